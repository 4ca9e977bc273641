#include "organiser/screens/reminder_desk.h"

#include "core/session.h"
#include "core/shell.h"
#include "organiser/screens/reminder_window.h"

#include <QApplication>
#include <QWidget>

ReminderDesk::ReminderDesk(Session& session, const QWidget& mainWindow)
    : m_session(session)
    , m_mainWindow(mainWindow)
    , m_engine(session, session.GetSeams().clock, *this)
    , m_watch(m_engine, session.GetSeams().clock, session.GetSeams().shell) {}

void ReminderDesk::show(const ScheduleItem& item) {
    ReminderWindow::present(m_session, item);
    // A window on another workspace can't be told from one behind other programs.
    const bool isInFront =
        !m_mainWindow.isMinimized() && QApplication::applicationState() == Qt::ApplicationActive;
    if (!isInFront)
        m_session.GetSeams().shell.Notify(item.caption);
}

void ReminderDesk::play(const QString& path, const std::function<void()>& ended) {
    m_session.GetSeams().shell.PlaySoundFile(path, false, ended);
}
