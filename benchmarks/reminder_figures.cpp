// The check for the next reminder in a table that years have filled, beside the raw SELECT of all
// items, stepped to the first active one.

#include "core/session.h"
#include "core/system_clock.h"
#include "figures.h"
#include "organiser/reminder_engine.h"
#include "quiet_session.h"
#include "raw_library.h"
#include "sample_year.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int items = 5000;
constexpr int activeItems = 2500; ///< the last of them by their dates

QString madeReminders(const QString& folder) {
    QDir().mkpath(folder);
    const QString path = folder + u"/reminders.mdb"_s;
    createSampleYear(path);
    dao::DBEngine engine;
    const dao::Database year = engine.OpenDatabase(path);
    CheckSchedulesTable(year);
    dao::Transaction whole(year);
    dao::Recordset rows = year.OpenRecordset(u"Schedules"_s);
    const QDate today = QDate::currentDate();
    for (int i = 0; i < items; ++i) {
        constexpr int shuffle = 1237; // they were not added in the order of their dates
        const int place = i * shuffle % items;
        rows.AddNew();
        setScheduleItem(rows, {.date = scheduleDate(today.addDays(1 + place - items + activeItems)),
                               .time = u"09:00:00"_s,
                               .caption = u"Reminder %1"_s.arg(place),
                               .memo = u"Reports of Year 7 to the office"_s,
                               .isActive = place >= items - activeItems});
        rows.Update();
    }
    whole.commit();
    return path;
}

class ReminderCheck : public Work, public ReminderEffects {
public:
    ReminderCheck(const QString& folder, const QString& path)
        : m_quiet(folder), m_engine(m_quiet.session(), m_clock, *this) {
        Session& session = m_quiet.session();
        session.CurrentDB = session.Engine().OpenDatabase(path);
    }
    void run() override { m_engine.Check_Schedules(); }
    qint64 finish() override { return m_engine.isWaiting() ? 1 : 0; }

    void show(const ScheduleItem&) override {}
    void play(const QString&, const std::function<void()>&) override {}

private:
    QuietSession m_quiet;
    SystemClock m_clock;
    ReminderEngine m_engine;
};

class RawCheck : public Work {
public:
    explicit RawCheck(const QString& path) : m_database(path) {}
    void run() override {
        const RawStatement rows =
            m_database.prepare("SELECT * FROM Schedules ORDER BY TaskDate, TaskTime");
        constexpr int activeColumn = 4;
        m_found = 0;
        while (m_found == 0 && m_database.step(rows)) {
            const auto* active =
                reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), activeColumn));
            m_found = QByteArrayView(active) == "Yes" ? 1 : 0;
        }
    }
    qint64 finish() override { return m_found; }

private:
    RawDatabase m_database;
    qint64 m_found = 0;
};

} // namespace

std::vector<Figure> reminderFigures(const QString& folder) {
    constexpr int rounds = 50;
    constexpr double checkBound = 1.5;
    const QString own = folder + u"/reminders"_s;
    const QString path = madeReminders(own);
    std::vector<Figure> figures;
    figures.push_back({u"reminder check with 5,000 items"_s, checkBound, rounds,
                       std::make_unique<ReminderCheck>(own, path),
                       std::make_unique<RawCheck>(path)});
    return figures;
}
