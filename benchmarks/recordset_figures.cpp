// Work on the records of an open file: all of them read, one found.

#include "figures.h"
#include "raw_library.h"

#include "store/engine/engine.h"
#include "store/engine/names.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowCount = 200;
constexpr int fieldCount = 25;
constexpr int wholeNumbers = 5;

QString surname(int row) {
    return u"Featherstone%1"_s.arg(row * 37 % rowCount);
}

/// Pupils with their names, marks and remarks; some of the texts are Null.
void createPupils(const QString& path) {
    const dao::DBEngine engine;
    const dao::Database database = engine.CreateDatabase(path, dao::GeneralLocale.toString());
    dao::TableDef table(u"Pupils"_s);
    table.Fields().Append(dao::TableDef::CreateField(u"Surname"_s, dao::DataType::Text, 50));
    for (int i = 1; i < fieldCount; ++i)
        table.Fields().Append(dao::TableDef::CreateField(
            u"Field%1"_s.arg(i), i <= wholeNumbers ? dao::DataType::Long : dao::DataType::Text,
            50));
    database.TableDefs().Append(table);

    dao::Transaction transaction(database);
    dao::Recordset pupils = database.OpenRecordset(u"Pupils"_s);
    for (int row = 0; row < rowCount; ++row) {
        pupils.AddNew();
        pupils.SetCollect(0, surname(row));
        for (int i = 1; i < fieldCount; ++i) {
            if (i <= wholeNumbers)
                pupils.SetCollect(i, row * i);
            else if ((row + i) % 5 != 0)
                pupils.SetCollect(i, u"works well, %1"_s.arg(row));
        }
        pupils.Update();
    }
    transaction.commit();
}

class Walk : public Work {
public:
    explicit Walk(const QString& path) : m_database(m_engine.OpenDatabase(path)) {}

    void run() override {
        m_sum = 0;
        dao::Recordset pupils = m_database.OpenRecordset(u"Pupils"_s);
        for (; !pupils.EOF_(); pupils.MoveNext()) {
            for (int i = 0; i < fieldCount; ++i) {
                const dao::Value value = pupils.Collect(i);
                m_sum += value.isText() ? value.toText().size() : value.toInteger();
            }
        }
    }
    qint64 finish() override { return m_sum; }

private:
    dao::DBEngine m_engine;
    dao::Database m_database;
    qint64 m_sum = 0;
};

class RawWalk : public Work {
public:
    explicit RawWalk(const QString& path) : m_database(path) {}

    void run() override {
        m_sum = 0;
        const RawStatement rows = m_database.prepare("SELECT * FROM Pupils");
        while (m_database.step(rows))
            m_sum += readColumns(rows);
    }
    qint64 finish() override { return m_sum; }

private:
    RawDatabase m_database;
    qint64 m_sum = 0;
};

/// Finds every pupil once, so that the rows looked through are half of all on average.
class Finding : public Work {
public:
    explicit Finding(const QString& path)
        : m_database(m_engine.OpenDatabase(path)), m_pupils(m_database.OpenRecordset(u"Pupils"_s)) {
        for (int row = 0; row < rowCount; ++row)
            m_criteria += u"Surname = "_s + dao::writeText(surname(row));
    }

    void run() override {
        m_found = 0;
        for (const QString& criteria : std::as_const(m_criteria)) {
            m_pupils.FindFirst(criteria);
            m_found += !m_pupils.NoMatch();
        }
    }
    qint64 finish() override { return m_found; }

private:
    dao::DBEngine m_engine;
    dao::Database m_database;
    dao::Recordset m_pupils;
    QStringList m_criteria;
    qint64 m_found = 0;
};

class RawFinding : public Work {
public:
    explicit RawFinding(const QString& path) : m_database(path) {
        for (int row = 0; row < rowCount; ++row)
            m_statements +=
                "SELECT rowid FROM Pupils WHERE Surname = '" + surname(row).toUtf8() + '\'';
    }

    void run() override {
        m_found = 0;
        for (const QByteArray& text : std::as_const(m_statements)) {
            const RawStatement statement = m_database.prepare(text);
            m_found += m_database.step(statement);
        }
    }
    qint64 finish() override { return m_found; }

private:
    RawDatabase m_database;
    QList<QByteArray> m_statements;
    qint64 m_found = 0;
};

} // namespace

std::vector<Figure> recordsetFigures(const QString& folder) {
    const QString file = folder + u"/pupils.mdb"_s;
    createPupils(file);
    std::vector<Figure> figures;
    figures.push_back({u"walk a dynaset"_s, 3, 500, std::make_unique<Walk>(file),
                       std::make_unique<RawWalk>(file)});
    figures.push_back({u"find by text"_s, 4, 100, std::make_unique<Finding>(file),
                       std::make_unique<RawFinding>(file)});
    return figures;
}
