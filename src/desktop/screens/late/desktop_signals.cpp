#include "desktop/screens/late/desktop_signals.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include <utility>

using namespace Qt::StringLiterals;

void DesktopSignals::notify(const QString& text) {
    constexpr uint replacesNone = 0;
    constexpr int usualTime = -1;
    QDBusMessage call = QDBusMessage::createMethodCall(
        u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s,
        u"org.freedesktop.Notifications"_s, u"Notify"_s);
    const QVariantMap hints{{u"transient"_s, true}};
    call << QCoreApplication::applicationName() << replacesNone << u"appointment-soon"_s << text
         << QString() << QStringList() << hints << usualTime;
    QDBusConnection::sessionBus().send(call);
}

void DesktopSignals::whenWoken(const std::function<void()>& act) {
    if (!std::exchange(m_woken, act))
        QDBusConnection::systemBus().connect(
            u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
            u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s, this,
            SLOT(prepareForSleep(bool)));
}

void DesktopSignals::prepareForSleep(bool begins) {
    if (!begins && m_woken)
        m_woken();
}
