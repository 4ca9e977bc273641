// The tools as programs: what they print, where, and how they end.

#include "support/engine_files.h"
#include "support/engine_places.h"
#include "support/engine_program.h"

#include <QDir>
#include <QFile>

namespace {

Ended run(const QString& tool, const QStringList& arguments, const QByteArray& input = {}) {
    return runProgram(test::tool(tool), arguments, input);
}

class ToolsTest : public EngineFiles {
protected:
    QString written(const QString& name, const QByteArray& content) const {
        return writeFile(path(name), content);
    }
    QStringList filesThere() const {
        return QDir(path({})).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    QString query(const QString& file, const QString& statement) const {
        return run(u"jet"_s, {file, statement}).output;
    }

    const QString sample = test::sample(u"year.json"_s);
};

} // namespace

TEST_F(ToolsTest, AYearIsMadeAndReplacedOnlyWhenAsked) {
    const QString year = path(u"year.mdb"_s);
    const Ended made = run(u"make_year"_s, {sample, year});
    EXPECT_EQ(made.status, 0) << qPrintable(made.errors);
    EXPECT_EQ(made.output + made.errors, QString());
    EXPECT_EQ(query(year, u"SELECT TTweekly FROM Admin"_s), u"1\n");

    written(u"year.mdb"_s, "not a year");
    const Ended kept = run(u"make_year"_s, {sample, year});
    EXPECT_EQ(kept.status, 2);
    EXPECT_TRUE(kept.errors.contains(u"already exists"));
    EXPECT_EQ(QFileInfo(year).size(), 10);

    EXPECT_EQ(run(u"make_year"_s, {u"--replace"_s, sample, year}).status, 0);
    EXPECT_EQ(query(year, u"SELECT TTweekly FROM Admin"_s), u"1\n");
    EXPECT_EQ(filesThere(), QStringList{u"year.mdb"_s});
}

TEST_F(ToolsTest, RefusedAnswersLeaveNoFile) {
    struct Case {
        QStringList arguments;
        int status;
        QString error;
    };
    const QString year = path(u"year.mdb"_s);
    const QString bad = written(u"bad.json"_s, R"({"title": "Mr", "name": 7})");
    const QStringList before = filesThere();
    const Case cases[] = {
        {{bad, year}, 2, u"name: This must be a text.\n"_s},
        {{path(u"gone.json"_s), year}, 1, u"gone.json"_s},
        {{sample, path(u"gone/year.mdb"_s)}, 1, u"could not be made"_s},
        {{sample}, 2, u"usage: make_year"_s},
    };
    for (const Case& each : cases) {
        const Ended ended = run(u"make_year"_s, each.arguments);
        EXPECT_EQ(ended.status, each.status) << qPrintable(ended.errors);
        EXPECT_TRUE(ended.errors.contains(each.error)) << qPrintable(ended.errors);
        EXPECT_EQ(ended.errors.count(u'\n'), 1) << "one line, whatever the reason";
        EXPECT_EQ(filesThere(), before);
    }
}

TEST_F(ToolsTest, RowsArePrintedSoThatNothingIsMistaken) {
    dao::Database database = pupilsFile(u"pupils.mdb"_s);
    addRecord(database, u"Pupils"_s, {u"Ad\tams"_s, 7, u"a\\b\r\nc"_s});
    addRecord(database, u"Pupils"_s, {u"Ünal"_s, dao::Value(), QString()});
    database.Close();
    const QString file = path(u"pupils.mdb"_s);
    EXPECT_EQ(
        run(u"jet"_s, {file, u"--names"_s, u"SELECT Surname, Mark, Notes FROM Pupils"_s}).output,
        u"Surname\tMark\tNotes\nAd\\tams\t7\ta\\\\b\\r\\nc\nÜnal\t\\N\t\n"_s);
    EXPECT_EQ(query(file, u"SHOW TABLES"_s), u"Pupils\n");
    EXPECT_TRUE(query(file, u"SHOW FIELDS Pupils"_s).contains(u"Notes\t12\t"));

    const Ended failed =
        run(u"jet"_s, {file, u"SELECT Mark FROM Pupils"_s, u"SELECT x FROM Pupils"_s});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.output, u"7\n\\N\n") << "what came before the failure is answered";
    EXPECT_TRUE(failed.errors.startsWith(u"3061: ")) << qPrintable(failed.errors);

    const Ended read =
        run(u"jet"_s, {file}, "SELECT Mark FROM Pupils\nSELECT Mark FROM\nSHOW TABLES\n");
    EXPECT_EQ(read.status, 0);
    const QStringList lines = read.output.split(u'\n');
    ASSERT_EQ(lines.size(), 7) << qPrintable(read.output);
    EXPECT_EQ(lines[2], u".");
    EXPECT_TRUE(lines[3].startsWith(u"! 3075 ")) << qPrintable(lines[3]);
    EXPECT_EQ(lines[5], u".");
}

TEST_F(ToolsTest, AProtectedFileNeedsItsPassword) {
    dao::Database database = pupilsFile(u"pupils.mdb"_s);
    database.NewPassword({}, u"geheim"_s);
    database.Close();
    const QString file = path(u"pupils.mdb"_s);
    EXPECT_TRUE(run(u"jet"_s, {file, u"SHOW TABLES"_s}).errors.startsWith(u"3031: "));
    EXPECT_EQ(run(u"jet"_s, {file, u"--password"_s, u"geheim"_s, u"SHOW TABLES"_s}).output,
              u"Pupils\n");
    EXPECT_EQ(run(u"jet"_s, {file, u"--password-fd"_s, u"0"_s}, "geheim\nSHOW TABLES").output,
              u"Pupils\n.\n");
    qputenv("ORVA_PASSWORD", "geheim");
    EXPECT_EQ(run(u"jet"_s, {file, u"SHOW TABLES"_s}).output, u"Pupils\n");
    qunsetenv("ORVA_PASSWORD");
    EXPECT_EQ(run(u"jet"_s, {file, u"--password-fd"_s, u"777"_s}).status, 2);
    EXPECT_EQ(run(u"jet"_s, {path(u"gone.mdb"_s), u"SHOW TABLES"_s}).errors.left(6), u"3024: ");
    EXPECT_EQ(run(u"jet"_s, {}).status, 2);
}
