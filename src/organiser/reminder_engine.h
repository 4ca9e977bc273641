#pragma once

#include "core/clock.h"
#include "organiser/schedule_rows.h"
#include "store/kept_row.h"

#include <QList>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class Session;

/// What becomes of an item that is due, for the person.
class ReminderEffects {
public:
    virtual ~ReminderEffects() = default;

    virtual void fired(const ScheduleItem&) {} ///< each item, of whatever type, before what follows
    virtual void show(const ScheduleItem& item) = 0;
    /// Plays a sound; `ended` is called when it is over, or at once where there is none to hear.
    virtual void play(const QString& path, const std::function<void()>& ended) = 0;
};

/// The reminders of the open year. One item is armed at a time, the first active one by its date
/// and time; when it is due it is shown or played, its row goes on, and the next is armed.
///
/// The time of day decides when an item is due. Whoever learns that the clock may have jumped calls
/// lookAtClock.
///
/// Begins once the year was opened with its windows, ends when it closes.
class ReminderEngine : public QObject {
    Q_OBJECT

public:
    /// All have to outlive it. `clock` may be another than the session's.
    ReminderEngine(Session& session, Clock& clock, ReminderEffects& effects);

    /// Arms the next item in place of what was armed. One that was due before comes after a second.
    /// One that is six days ahead or more is left to a later check. Items that make no sense are
    /// passed over, and each is told once. A failure is told, and leaves nothing armed.
    void Check_Schedules();
    /// The clock may show another time than the timer expects: arms the item anew by it, also one
    /// that was too far ahead before.
    void lookAtClock();
    /// Whether there is an item to come.
    bool isWaiting() const { return m_due.isValid(); }

signals:
    void waiting(); ///< an item is to come, armed or too far ahead

private:
    struct Next {
        dao::Recordset rows; ///< on its row
        ScheduleItem item = {};
        QDateTime due = {};
    };
    std::optional<Next> findNext();
    bool tryFindNext(std::optional<Next>& next);
    void arm();
    void disarm();
    void end();
    void Reminder_TimerProc();
    void fire(Next& next);
    void act(const ScheduleItem& item);
    void soundEnded(int sound);
    void advanceLate();
    bool advanceLateOne(const ScheduleItem& item);
    void tellChange();
    void tellSenseless();

    Session& m_session;
    Clock& m_clock;
    ReminderEffects& m_effects;
    QDateTime m_due; ///< of the item to come; invalid for none
    std::unique_ptr<Timer> m_timer;
    int m_sound = 0; ///< the number of the sound that plays
    bool m_isPlaying = false;
    bool m_isBusy = false; ///< with a row: no check is due before it is done
    /// Those that were due and could not be written since.
    QList<ScheduleItem> m_unwritten;
    std::unique_ptr<Timer> m_retry;
    ToldOnce m_failure;
    QList<ScheduleItem> m_senseless; ///< that were passed over
    qsizetype m_toldSenseless = 0;   ///< so many of them have been told
};
