#include "desktop/screens/late/computer_power.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace {

constexpr int powerAnswerMilliseconds = 2000;

QDBusMessage askSystem(const QString& service, const QString& path, const QString& interface,
                       const QString& method, const QVariantList& arguments, int milliseconds) {
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, method);
    call.setArguments(arguments);
    return QDBusConnection::systemBus().call(call, QDBus::Block, milliseconds);
}

/// Empty where the service does not answer.
QVariantMap powerProperties(const QString& path, const QString& interface) {
    const QDBusMessage answer =
        askSystem(u"org.freedesktop.UPower"_s, path, u"org.freedesktop.DBus.Properties"_s,
                  u"GetAll"_s, {interface}, powerAnswerMilliseconds);
    QVariantMap properties;
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty())
        answer.arguments().constFirst().value<QDBusArgument>() >> properties;
    return properties;
}

QString askLogin(const QString& method, const QVariantList& arguments, int milliseconds,
                 QString& failure) {
    const QDBusMessage answer =
        askSystem(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                  u"org.freedesktop.login1.Manager"_s, method, arguments, milliseconds);
    if (answer.type() != QDBusMessage::ReplyMessage)
        failure = answer.errorMessage();
    return answer.arguments().value(0).toString();
}

} // namespace

std::optional<PowerSupply> desktopPower() {
    constexpr int batteryType = 2;
    constexpr int chargingState = 1;
    const QVariantMap computer =
        powerProperties(u"/org/freedesktop/UPower"_s, u"org.freedesktop.UPower"_s);
    if (!computer.contains(u"OnBattery"_s))
        return std::nullopt;
    const QVariantMap display = powerProperties(u"/org/freedesktop/UPower/devices/DisplayDevice"_s,
                                                u"org.freedesktop.UPower.Device"_s);
    PowerSupply supply{.line = computer.value(u"OnBattery"_s).toBool() ? PowerStatus::Offline
                                                                       : PowerStatus::OnLine};
    if (display.value(u"Type"_s).toInt() == batteryType && display.value(u"IsPresent"_s).toBool())
        supply.battery =
            BatteryCharge{.percent = qRound(display.value(u"Percentage"_s).toDouble()),
                          .isCharging = display.value(u"State"_s).toInt() == chargingState};
    return supply;
}

QString letSleep(bool suspend, bool force) {
    constexpr int passwordMilliseconds = 120000; // the person may be asked for one
    const QString method = suspend ? u"Suspend"_s : u"Hibernate"_s;
    QString failure;
    const QString may = askLogin(u"Can"_s + method, {}, powerAnswerMilliseconds, failure);
    if (!failure.isEmpty())
        return u"The service that lets the computer sleep does not answer:\n"_s + failure;
    if (may == u"na")
        return u"This computer can't sleep."_s;
    if (may == u"no")
        return u"You are not allowed to let this computer sleep."_s;
    constexpr quint64 skipInhibitors = 1ULL << 4;
    constexpr bool mayAsk = true;
    if (force)
        askLogin(method + u"WithFlags"_s, {skipInhibitors}, passwordMilliseconds, failure);
    else
        askLogin(method, {mayAsk}, passwordMilliseconds, failure);
    return failure;
}
