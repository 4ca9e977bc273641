#pragma once

#include "organiser/reminder_engine.h"
#include "organiser/reminder_watch.h"

class QWidget;

/// The reminders of a program with windows: shows and plays what is due, and says so by the
/// desktop's own notification where the person does not have the program in front.
class ReminderDesk : public ReminderEffects {
public:
    /// Both have to outlive it.
    ReminderDesk(Session& session, const QWidget& mainWindow);

    void show(const ScheduleItem& item) override;
    void play(const QString& path, const std::function<void()>& ended) override;

private:
    Session& m_session;
    const QWidget& m_mainWindow;
    ReminderEngine m_engine;
    ReminderWatch m_watch;
};
