#include "organiser/reminder_engine.h"

#include "core/engine_failure.h"
#include "core/session.h"
#include "store/engine/error.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <QPointer>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds OverdueDelay(1);
/// After so long an item that could not be written is tried again.
constexpr std::chrono::minutes RetryDelay(10);
constexpr int DaysAhead = 6;

const QString ActiveItems =
    u"SELECT * FROM Schedules WHERE Active = 'Yes' ORDER BY TaskDate,TaskTime"_s;

const FailureBox CheckFailure{.title = u"Schedule Reminder error",
                              .text = u"Error number : %2\n%1"};
const FailureBox WriteFailure{
    .title = u"Schedule Reminder error",
    .text = u"Error number : %2\n%1\n\nA reminder was due, and this could not be noted in the "
            "year's file. It will be tried again from time to time."};

} // namespace

ReminderEngine::ReminderEngine(Session& session, Clock& clock, ReminderEffects& effects)
    : m_session(session), m_clock(clock), m_effects(effects) {
    const Notices& notices = session.GetNotices();
    connect(&notices, &Notices::yearStarted, this, &ReminderEngine::Check_Schedules);
    connect(&notices, &Notices::yearMoved, this, &ReminderEngine::Check_Schedules);
    connect(&notices, &Notices::remindersChanged, this, &ReminderEngine::Check_Schedules);
    connect(&notices, &Notices::yearClosing, this, &ReminderEngine::end);
}

void ReminderEngine::disarm() {
    m_timer.reset();
    m_due = {};
}

void ReminderEngine::end() {
    disarm();
    m_retry.reset();
    m_unwritten.clear();
    m_senseless.clear();
    m_toldSenseless = 0;
    m_failure.reset();
    m_isPlaying = false; // whatever still sounds
    ++m_sound;
}

void ReminderEngine::Check_Schedules() {
    if (m_isBusy)
        return;
    disarm();
    if (m_isPlaying || !m_session.CurrentDB.isOpen())
        return;
    std::optional<Next> next;
    if (!tryFindNext(next))
        return;
    if (next) {
        m_due = next->due;
        next.reset();
        arm();
    }
    tellSenseless();
}

bool ReminderEngine::tryFindNext(std::optional<Next>& next) {
    return tryTelling(m_session.GetSeams().prompts, CheckFailure, [&] { next = findNext(); });
}

/// The first active item that makes sense and was not due before, by the order of the texts, which
/// is that of time.
std::optional<ReminderEngine::Next> ReminderEngine::findNext() {
    const dao::Database& year = m_session.CurrentDB;
    if (!TableExists(year, SchedulesTable))
        return std::nullopt;
    Next next{.rows = year.OpenRecordset(ActiveItems)};
    if (!next.rows.HasField(u"Type")) {
        next.rows.Close();
        CheckSchedulesTable(year);
        next.rows = year.OpenRecordset(ActiveItems);
    }
    QList<ScheduleItem> unwritten = m_unwritten; // two may be alike
    for (; !next.rows.EOF_(); next.rows.MoveNext()) {
        next.item = scheduleItem(next.rows);
        if (!makesSense(next.item)) {
            if (!m_senseless.contains(next.item))
                m_senseless += next.item;
        } else if (!unwritten.removeOne(next.item)) {
            next.due = dueTime(next.item);
            return next;
        }
    }
    return std::nullopt;
}

void ReminderEngine::arm() {
    const QDateTime now = m_clock.now();
    m_timer.reset();
    if (m_due < now.addDays(DaysAhead)) {
        const auto delay = m_due.secsTo(now) > 0
                               ? OverdueDelay
                               : std::chrono::milliseconds(std::max<qint64>(0, now.msecsTo(m_due)));
        m_timer = m_clock.after(delay, [this] { Reminder_TimerProc(); });
    }
    emit waiting();
}

void ReminderEngine::lookAtClock() {
    if (isWaiting())
        arm();
}

void ReminderEngine::Reminder_TimerProc() {
    disarm();
    std::optional<Next> next;
    if (!tryFindNext(next) || !next)
        return;
    if (next->due <= m_clock.now())
        return fire(*next);
    m_due = next->due; // the clock was put back, or the timer was early
    next.reset();
    arm();
}

void ReminderEngine::fire(Next& next) {
    std::optional<dao::EngineError> failure;
    {
        const QScopedValueRollback busy(m_isBusy, true);
        act(next.item);
        try {
            advanceItem(next.rows, m_clock.today());
            m_failure.reset();
        } catch (const dao::EngineError& error) {
            failure = error;
        }
        next.rows.Close();
        tellChange();
    }
    if (failure) {
        m_unwritten += next.item;
        if (!m_retry)
            m_retry = m_clock.after(RetryDelay, [this] { advanceLate(); });
    }
    Check_Schedules();
    if (failure && m_failure.first())
        tellFailure(m_session.GetSeams().prompts, WriteFailure, *failure);
}

void ReminderEngine::act(const ScheduleItem& item) {
    m_effects.fired(item);
    if (item.type == MessageReminder) {
        m_effects.show(item);
    } else if (item.type == SoundOnlyReminder) {
        m_isPlaying = true;
        m_effects.play(item.alarm, [guard = QPointer(this), sound = ++m_sound] {
            if (guard)
                guard->soundEnded(sound);
        });
    }
}

void ReminderEngine::soundEnded(int sound) {
    if (sound != m_sound)
        return;
    m_isPlaying = false;
    Check_Schedules();
}

/// Tries once more to write what was due. What works meanwhile is not told.
void ReminderEngine::advanceLate() {
    m_retry.reset();
    {
        const QScopedValueRollback busy(m_isBusy, true);
        m_unwritten.removeIf([this](const ScheduleItem& item) { return advanceLateOne(item); });
        tellChange();
    }
    if (!m_unwritten.isEmpty())
        m_retry = m_clock.after(RetryDelay, [this] { advanceLate(); });
    Check_Schedules();
}

/// Answers whether nothing is left to be written: also where the item has gone or was changed.
bool ReminderEngine::advanceLateOne(const ScheduleItem& item) {
    try {
        dao::Recordset rows = m_session.CurrentDB.OpenRecordset(ActiveItems);
        while (!rows.EOF_() && scheduleItem(rows) != item)
            rows.MoveNext();
        if (!rows.EOF_())
            advanceItem(rows, m_clock.today());
        m_failure.reset();
        return true;
    } catch (const dao::EngineError&) {
        return false;
    }
}

void ReminderEngine::tellChange() {
    emit m_session.GetNotices().remindersChanged();
}

void ReminderEngine::tellSenseless() {
    QStringList captions;
    for (; m_toldSenseless < m_senseless.size(); ++m_toldSenseless)
        captions += m_senseless.at(m_toldSenseless).caption;
    if (!captions.isEmpty())
        m_session.GetSeams().prompts.PlainBox(
            u"The date, the time or the repetition of these reminders makes no sense:\n\n"_s +
                captions.join(u'\n') + u"\n\nThey will not be shown until you have changed them."_s,
            OkButton | WarningIcon, CheckFailure.title.toString());
}
