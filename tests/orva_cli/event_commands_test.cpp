// The calendar of events without a window: printed, and taken over from another year.

#include "calendar/event_rows.h"
#include "support/engine_places.h"
#include "support/engine_program.h"
#include "support/year_file.h"

using namespace Qt::StringLiterals;

namespace {

class EventCommandsTest : public EngineFiles {
protected:
    void SetUp() override {
        TestSeams seams;
        createYear(twoWeekAnswers(), year, seams);
        createYear(oneWeekAnswers(), other, seams);
        dao::Database database = engine.OpenDatabase(other);
        dao::Recordset month = openEventMonth(database, {2024, 9}, 2024);
        month.Edit();
        month.SetCollect(u"D3", u"{\\rtf1\\ansi Trip\\par back by \\b four\\par }"_s);
        month.SetCollect(u"D4", u"{\\rtf1\\ansi  \\par }"_s);
        month.SetCollect(u"D30", u"plain"_s);
        month.SetCollect(u"D31", u"never"_s);
        month.Update();
    }
    Ended run(const QStringList& arguments, const QByteArray& input = {}) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, path(u"config"_s));
        environment.insert(u"XDG_DATA_HOME"_s, path(u"data"_s));
        return runProgram(test::built(u"bin/orva-cli"_s), arguments, input, environment);
    }
    QString september(const QString& file, const QStringList& options = {}) const {
        return run(QStringList{u"events"_s, file, u"2024-09"_s} + options, "geheim\n").output;
    }

    const QString year = path(u"Year.mdb"_s);
    const QString other = path(u"Other.mdb"_s);
    const QString expected = u"3\tTrip\\nback by four\n30\tplain\n"_s;
};

} // namespace

TEST_F(EventCommandsTest, PrintsTheDaysThatHaveText) {
    EXPECT_EQ(september(other), expected);
    EXPECT_EQ(september(year), QString());
    const QByteArray before = bytesOf(other);
    EXPECT_EQ(run({u"events"_s, other, u"2025-09"_s}).status, 0);
    EXPECT_TRUE(bytesOf(other) == before) << "no row is made";
    for (const QString& month : {u"2024-13"_s, u"2024-9"_s, u"09/2024"_s, u"2024-09-01"_s})
        EXPECT_EQ(run({u"events"_s, other, month}).status, 2) << qPrintable(month);
}

TEST_F(EventCommandsTest, TakesAnotherYearsCalendarOnceThatIsAgreedTo) {
    const Ended declined = run({u"import-events"_s, year, other});
    EXPECT_EQ(declined.status, 1);
    EXPECT_TRUE(declined.errors.startsWith(u"[Import COE] "_s)) << qPrintable(declined.errors);
    EXPECT_EQ(september(year), QString());
    const Ended done = run({u"import-events"_s, year, other, u"--yes"_s});
    EXPECT_EQ(done.status, 0) << qPrintable(done.errors);
    EXPECT_EQ(done.output, QString());
    EXPECT_EQ(september(year), expected);
    const Ended same = run({u"import-events"_s, year, year, u"--yes"_s});
    EXPECT_EQ(same.status, 1);
    EXPECT_TRUE(same.errors.contains(u"[Already Open] "_s)) << qPrintable(same.errors);
}

TEST_F(EventCommandsTest, EachFileMayHaveItsOwnPassword) {
    engine.OpenDatabase(year).NewPassword({}, u"geheim"_s);
    engine.OpenDatabase(other).NewPassword({}, u"secret"_s);
    const QStringList call{u"import-events"_s, year, other, u"--yes"_s, u"--password-fd"_s, u"0"_s};
    for (const QByteArray& wrong : {QByteArray("geheim\n"), QByteArray("secret\n"), QByteArray()}) {
        const Ended refused = run(call, wrong);
        EXPECT_EQ(refused.status, 1);
        EXPECT_TRUE(refused.errors.contains(u"password"_s)) << qPrintable(refused.errors);
    }
    EXPECT_EQ(run(call, "geheim\nsecret\n").status, 0);
    EXPECT_EQ(september(year, {u"--password-fd"_s, u"0"_s}), expected);
}
