#pragma once

#include <QObject>

#include <functional>

/// What the desktop says and hears on its message buses: its notifications
/// (org.freedesktop.Notifications) and the computer's sleep (org.freedesktop.login1).
class DesktopSignals : public QObject {
    Q_OBJECT

public:
    /// Asks for a notification that is not kept in any list of former ones. Waits for nothing.
    void notify(const QString& text);
    /// Calls `act` after each sleep; one only, the last that was given.
    void whenWoken(const std::function<void()>& act);

private slots:
    void prepareForSleep(bool begins);

private:
    std::function<void()> m_woken;
};
