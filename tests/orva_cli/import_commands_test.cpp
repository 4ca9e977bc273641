// Class lists and grades taken in without a window.

#include "support/class_file.h"
#include "support/engine_places.h"
#include "support/engine_program.h"
#include "support/year_file.h"

using namespace Qt::StringLiterals;

namespace {

class ImportCommandsTest : public EngineFiles {
protected:
    void SetUp() override {
        TestSeams seams;
        createYear(twoWeekAnswers(), year, seams);
    }
    Ended run(const QStringList& arguments) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, path(u"config"_s));
        environment.insert(u"XDG_DATA_HOME"_s, path(u"data"_s));
        return runProgram(test::built(u"bin/orva-cli"_s), arguments, {}, environment);
    }

    const QString year = path(u"Year.mdb"_s);
    const QString list = test::testData(u"spreadsheets/class_list.xls"_s);
};

} // namespace

TEST_F(ImportCommandsTest, AListAndItsMarksComeIn) {
    EXPECT_EQ(run({u"import-list"_s, year, u"7A"_s, list}).output, u"5\n"_s);
    const QStringList marks{u"import-marks"_s, year, u"7A"_s, list, u"--row"_s, u"2"_s};
    const Ended declined = run(marks);
    EXPECT_EQ(declined.status, 1);
    EXPECT_TRUE(declined.errors.startsWith(u"[Import Data] "_s)) << qPrintable(declined.errors);
    EXPECT_EQ(run(marks + QStringList{u"--yes"_s}).output, u"Test 1\nTest 2\n"_s);
    EXPECT_EQ(run({u"import-column"_s, year, u"7A"_s, list, u"Test 1"_s, u"--columns"_s, u"A,B,E"_s,
                   u"--yes"_s})
                  .output,
              u"5\n"_s);
    EXPECT_EQ(run({u"import-list"_s, year, u"9C"_s, year, u"--class"_s, u"7a"_s}).output, u"5\n"_s);
    EXPECT_EQ(run({u"import-grades"_s, year, u"9C"_s, year, u"7A"_s, u"--yes"_s}).output,
              u"Test 1\nTest 2\n"_s);
    const dao::Database database = engine.OpenDatabase(year);
    EXPECT_EQ(rowsOf(database, u"SELECT [Test 1],[Test 2] FROM Marks_9C ORDER BY ID"_s).mid(0, 3),
              (QStringList{u"23.5|23.5"_s, u"21|21"_s, u"|"_s}));
}

TEST_F(ImportCommandsTest, WrongCallsChangeNothing) {
    struct {
        QStringList call;
        int status;
    } const cases[] = {
        {{u"import-list"_s, year, u"7A"_s, list, u"--row"_s, u"0"_s}, 2},
        {{u"import-list"_s, year, u"7A"_s, list, u"--columns"_s, u"A,B"_s}, 2},
        {{u"import-list"_s, year, u"7A"_s, list, u"--columns"_s, u"None,B,C"_s}, 2},
        {{u"import-list"_s, year, u"7X"_s, list}, 1},
        {{u"import-list"_s, year, u"7A"_s, year}, 1}, // which of its classes?
        {{u"import-list"_s, year, u"7A"_s, path(u"none.xls"_s)}, 1},
        {{u"import-marks"_s, year, u"7A"_s, year, u"--yes"_s}, 1},
        {{u"import-column"_s, year, u"7A"_s, list, u"None"_s, u"--yes"_s}, 1},
        {{u"import-grades"_s, year, u"7A"_s, year, u"7X"_s, u"--yes"_s}, 1},
    };
    for (const auto& each : cases) {
        const Ended ended = run(each.call);
        EXPECT_EQ(ended.status, each.status) << qPrintable(each.call.join(u' '));
        EXPECT_EQ(ended.output, QString());
        EXPECT_FALSE(ended.errors.isEmpty());
    }
    const dao::Database database = engine.OpenDatabase(year);
    EXPECT_EQ(rowsOf(database, u"SELECT * FROM Class_7A"_s), QStringList());
    EXPECT_EQ(fieldNames(database, u"Marks_7A"_s), QStringList{u"ID"_s});
}
