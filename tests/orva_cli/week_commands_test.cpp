// The change of the weeks without windows, and what a check says of one that was broken off.

#include "core/silent_seams.h"
#include "support/engine_files.h"
#include "support/engine_places.h"
#include "support/engine_program.h"
#include "support/year_file.h"
#include "year/week_swap.h"

namespace {

class WeekCommandsTest : public EngineFiles {
protected:
    void SetUp() override {
        TestSeams seams;
        createYear(twoWeekAnswers(), year, seams);
    }

    /// Runs the program over folders of the test's own.
    Ended run(const QStringList& arguments) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, path(u"config"_s));
        environment.insert(u"XDG_DATA_HOME"_s, path(u"data"_s));
        environment.insert(u"HOME"_s, path({}));
        return runProgram(test::built(u"bin/orva-cli"_s), arguments, {}, environment);
    }
    QString lettersOfWeek(int week) const {
        return rowsOf(engine.OpenDatabase(year),
                      u"SELECT ABWeek FROM Planning WHERE Week = %1"_s.arg(week))
            .join(QString());
    }

    const QString year = path(u"Year.mdb"_s);
};

} // namespace

TEST_F(WeekCommandsTest, WeeksAreChangedOnceThatIsAgreedTo) {
    for (const QString& week : {u"0"_s, u"two"_s, u"99999"_s})
        EXPECT_EQ(run({u"change-weeks"_s, year, week, u"--yes"_s}).status, 2) << qPrintable(week);
    const Ended beyond = run({u"change-weeks"_s, year, u"4"_s, u"--yes"_s});
    EXPECT_EQ(beyond.status, 1);
    EXPECT_TRUE(beyond.errors.startsWith(u"[change-weeks] "_s)) << qPrintable(beyond.errors);
    const Ended declined = run({u"change-weeks"_s, year, u"3"_s});
    EXPECT_EQ(declined.status, 1);
    EXPECT_TRUE(declined.errors.contains(u"will be cleared"_s)) << qPrintable(declined.errors);
    EXPECT_EQ(lettersOfWeek(3), u"BBBBB"_s);
    EXPECT_FALSE(QFile::exists(path(u"Documents/ORVA/Backups/Year.001"_s)));

    const Ended done = run({u"change-weeks"_s, year, u"3"_s, u"--yes"_s});
    EXPECT_EQ(done.status, 0) << qPrintable(done.errors);
    EXPECT_EQ(done.output, QString());
    EXPECT_EQ(lettersOfWeek(3), u"AAAAA"_s);
    EXPECT_EQ(lettersOfWeek(2), u"AAAAA"_s);
    EXPECT_TRUE(QFile::exists(path(u"Documents/ORVA/Backups/Year.002"_s)));
}

TEST_F(WeekCommandsTest, ACheckTellsOfAChangeThatWasBrokenOffAndFinishesIt) {
    SilentProgress progress;
    swapWeeks(engine.OpenDatabase(year), twoWeekAnswers().periodsPerDay, 2, progress);
    const Ended told = run({u"check"_s, year});
    EXPECT_EQ(told.status, 1);
    EXPECT_TRUE(told.errors.startsWith(u"[Change week allocations] "_s)) << qPrintable(told.errors);
    EXPECT_EQ(fieldNames(engine.OpenDatabase(year), u"REG_7A"_s).size(), 2);
    EXPECT_EQ(run({u"check"_s, year, u"--yes"_s}).status, 0);
    EXPECT_EQ(fieldNames(engine.OpenDatabase(year), u"REG_7A"_s).size(), 6);
    const Ended whole = run({u"check"_s, year});
    EXPECT_EQ(whole.status, 0) << qPrintable(whole.errors);
    EXPECT_EQ(whole.errors, QString());
}
