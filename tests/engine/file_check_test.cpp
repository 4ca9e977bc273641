// The check of a whole file: which table a fault is found in, and that it stays as it is.

#include "support/engine_files.h"
#include "support/engine_places.h"

#include <QFile>

#include <sqlcipher/sqlite3.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Does to a file what this engine would refuse.
void runRaw(const QString& path, const char* sql) {
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &raw), SQLITE_OK);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> closing(raw, sqlite3_close);
    ASSERT_EQ(sqlite3_exec(raw, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(raw);
}

class FileCheckTest : public EngineFiles {
protected:
    /// Pupils with an index over their names, and `Marks` of theirs.
    void SetUp() override {
        dao::Database database = pupilsFile();
        for (int i = 0; i < 50; ++i)
            addRecord(database, u"Pupils"_s, {u"Adams"_s, i, QString(6000, u'n')});
        dao::Index names = dao::TableDef::CreateIndex(u"Names"_s);
        names.Fields = {u"Surname"_s};
        database.TableDefs()[u"Pupils"].AppendIndex(names);
        dao::TableDef marks = database.CreateTableDef(u"Marks"_s);
        marks.Fields().Append(dao::TableDef::CreateField(u"PupilID"_s, dao::DataType::Long));
        dao::Relation relation = database.CreateRelation(u"Owner"_s, u"Pupils"_s, u"Marks"_s,
                                                         dao::RelationDeleteCascade);
        relation.Fields = {{u"ID"_s, u"PupilID"_s}};
        marks.AppendRelation(relation);
        database.TableDefs().Append(marks);
        database.Close();
    }
    const QString file = path(u"pupils.mdb"_s);
};

} // namespace

TEST_F(FileCheckTest, AFaultIsFoundInItsTable) {
    struct Case {
        const char* damage;
        const char* faulty; ///< the table; none where empty
    };
    const Case cases[] = {
        {"", ""},
        {"PRAGMA writable_schema = ON;"
         "UPDATE sqlite_master SET sql = replace(sql, 'Surname', 'Mark') WHERE type = 'index'",
         "Pupils"},
        {"PRAGMA ignore_check_constraints = ON;"
         "INSERT INTO Pupils (Surname) VALUES ('A name of more than twenty letters')",
         "Pupils"},
        {"INSERT INTO Marks VALUES (777)", "Marks"},
    };
    const QByteArray sound = contentOf(file);
    for (const Case& each : cases) {
        {
            QFile restored(file);
            ASSERT_TRUE(restored.open(QIODevice::WriteOnly));
            restored.write(sound);
        }
        runRaw(file, each.damage);
        const QByteArray before = contentOf(file);
        const dao::FileCheck check = engine.CheckDatabase(file);
        EXPECT_EQ(check.fault, QString()) << each.damage;
        ASSERT_EQ(check.tables.size(), 2);
        for (const dao::TableCheck& table : check.tables)
            EXPECT_EQ(!table.fault.isEmpty(), table.table == QLatin1StringView(each.faulty))
                << each.damage << qPrintable(table.table);
        EXPECT_GE(check.tables[0].records, 50);
        EXPECT_EQ(contentOf(file), before);
        engine.RepairDatabase(file);
        for (const dao::TableCheck& table : engine.CheckDatabase(file).tables)
            EXPECT_EQ(table.fault, QString()) << each.damage << qPrintable(table.table);
    }
}

TEST_F(FileCheckTest, AMemoThatWasWrittenOverIsFound) {
    QByteArray bytes = contentOf(file);
    // Nothing but the rest of a long memo fills a page, and no other page tells of its content.
    const qsizetype page = bytes.indexOf(QByteArray(4000, 'n')) / 4096 * 4096;
    ASSERT_GT(page, 0);
    bytes.replace(page, 4096, QByteArray(4096, '\xaa'));
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(bytes);
    damaged.close();
    const dao::FileCheck check = engine.CheckDatabase(file);
    ASSERT_EQ(check.tables.size(), 2);
    EXPECT_NE(check.tables[0].fault, QString());
    EXPECT_LT(check.tables[0].records, 50);
    EXPECT_EQ(check.tables[1].fault, QString());
}
