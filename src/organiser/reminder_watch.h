#pragma once

#include "core/clock.h"

#include <QObject>

#include <memory>

class ReminderEngine;
class Shell;

/// Sees to it that the reminders go by the time of day: while an item is to come it lets them look
/// at the clock once a minute, and whenever the computer has woken. So what is due comes within a
/// minute, however long the computer slept and whatever became of its clock. Without an item to
/// come, and in the first minute, it does nothing.
class ReminderWatch : public QObject {
    Q_OBJECT

public:
    ReminderWatch(ReminderEngine& engine, Clock& clock, Shell& shell);

private:
    void begin();
    void look();

    ReminderEngine& m_engine;
    Clock& m_clock;
    Shell& m_shell;
    std::unique_ptr<Timer> m_minute;
    bool m_hearsWaking = false;
};
