#include "remind_commands.h"

#include "opened_year.h"

#include "core/played_clock.h"
#include "core/session.h"
#include "core/tab_separated.h"
#include "organiser/reminder_engine.h"

using namespace Qt::StringLiterals;

namespace {

const QString MomentForm = u"yyyy-MM-ddTHH:mm:ss"_s;

/// Raises UsageError.
QDateTime momentOf(const Call& call, const QString& text) {
    // Not read as one, since a change of the clock may skip it.
    const QDate date = QDate::fromString(text.section(u'T', 0, 0), u"yyyy-MM-dd"_s);
    const QTime time = QTime::fromString(text.section(u'T', 1), u"HH:mm:ss"_s);
    if (!date.isValid() || !time.isValid())
        throw UsageError(u"A moment is written as yyyy-mm-ddThh:mm:ss."_s, call.command);
    return localMoment(date, time);
}

class PrintedReminders : public ReminderEffects {
public:
    explicit PrintedReminders(const Clock& clock) : m_clock(clock) {}

    void fired(const ScheduleItem& item) override {
        printLine({QLocale::c().toString(m_clock.now(), MomentForm), QString::number(item.type),
                   item.caption});
    }
    void show(const ScheduleItem&) override {}
    void play(const QString&, const std::function<void()>& ended) override { ended(); }

private:
    const Clock& m_clock;
};

} // namespace

ExitStatus playReminders(const Workplace& workplace, const Call& call) {
    const QDateTime from = momentOf(call, call.arguments.at(0));
    const QDateTime until = momentOf(call, call.arguments.at(1));
    if (until < from)
        throw UsageError(u"UNTIL comes before FROM."_s, call.command);
    openYear(workplace, call);
    Session& session = workplace.session;
    {
        PlayedClock clock(from);
        PrintedReminders printed(clock);
        ReminderEngine engine(session, clock, printed);
        engine.Check_Schedules();
        clock.advance(std::chrono::milliseconds(from.msecsTo(until)));
    }
    session.CloseAllDatabases();
    return Done;
}
