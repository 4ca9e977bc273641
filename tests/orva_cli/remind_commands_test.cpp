// The reminders of a year played without a window.

#include "organiser/schedule_rows.h"
#include "support/engine_places.h"
#include "support/engine_program.h"
#include "support/year_file.h"

using namespace Qt::StringLiterals;

namespace {

using RemindCommandsTest = EngineFiles;

} // namespace

TEST_F(RemindCommandsTest, PrintsEachThatCameAndLetsItGoOn) {
    TestSeams seams;
    const QString year = path(u"Year.mdb"_s);
    createYear(twoWeekAnswers(), year, seams);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_CONFIG_HOME"_s, path(u"config"_s));
    environment.insert(u"XDG_DATA_HOME"_s, path(u"data"_s));
    const auto remind = [&](const QString& from, const QString& until) {
        return runProgram(test::built(u"bin/orva-cli"_s), {u"remind"_s, year, from, until}, {},
                          environment);
    };
    const QString from = u"2026-09-01T08:00:00"_s;
    const QString until = u"2026-09-03T09:00:00"_s;
    EXPECT_EQ(remind(from, until).status, 0) << "a year without the table";
    {
        const dao::Database database = engine.OpenDatabase(year);
        CheckSchedulesTable(database);
        dao::Recordset rows = database.OpenRecordset(u"Schedules"_s);
        for (const ScheduleItem& item : {ScheduleItem{.date = u"2026-09-02"_s,
                                        .time = u"09:00:00"_s,
                                        .caption = u"a\tb"_s,
                                        .memo = u"m"_s,
                                        .duration = EveryDay},
                                         ScheduleItem{.date = u"2026-08-01"_s,
                                         .time = u"09:00:00"_s,
                                         .caption = u"late"_s,
                                         .memo = u"m"_s,
                                         .type = SoundOnlyReminder}}) {
            rows.AddNew();
            setScheduleItem(rows, item);
            rows.Update();
        }
    }
    EXPECT_EQ(remind(from, until).output, u"2026-09-01T08:00:01\t2\tlate\n"
                                          "2026-09-02T09:00:00\t1\ta\\tb\n"
                                          "2026-09-03T09:00:00\t1\ta\\tb\n"_s);
    EXPECT_EQ(remind(from, until).output, QString());
    EXPECT_EQ(remind(until, from).status, 2);
    EXPECT_EQ(remind(u"2026-09-01"_s, until).status, 2);
}
