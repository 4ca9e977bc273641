#include "core/power_status.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int lowBelow = 33;     // percent
constexpr int criticalBelow = 5; // percent

/// The one line that such a file holds; empty where there is none.
QString kernelText(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readLine()).trimmed()
                                          : QString();
}

int chargeFlag(const BatteryCharge& battery) {
    if (battery.isCharging)
        return PowerStatus::Charging;
    if (battery.percent < criticalBelow)
        return PowerStatus::Critical;
    return battery.percent < lowBelow ? PowerStatus::Low : PowerStatus::High;
}

QString lineText(int line) {
    switch (line) {
    case PowerStatus::Offline:
        return u"AC power status: Offline"_s;
    case PowerStatus::OnLine:
        return u"AC power status: OnLine"_s;
    default:
        return u"AC power status: Unknown"_s;
    }
}

QString chargeText(int flag) {
    constexpr int lastOfCharging = 12;
    if (flag >= PowerStatus::Charging && flag <= lastOfCharging)
        return u"Status: Charging"_s;
    switch (flag) {
    case PowerStatus::High:
        return u"Status: High"_s;
    case PowerStatus::Low:
        return u"Status: Low"_s;
    case PowerStatus::Critical:
        return u"Status: Critical"_s;
    case PowerStatus::NoBattery:
        return u"No system battery"_s;
    default:
        return u"Unknown Charge Status %1"_s.arg(flag);
    }
}

} // namespace

PowerStatus powerStatus(const PowerSupply& supply) {
    if (!supply.battery)
        return {.line = supply.line};
    return {.line = supply.line,
            .flag = chargeFlag(*supply.battery),
            .percent = supply.battery->percent};
}

PowerSupply readKernelPower(const QString& folder) {
    PowerSupply computer;
    for (const QString& name : QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString supply = folder + u'/' + name + u'/';
        const QString type = kernelText(supply + u"type"_s);
        if (type == u"Mains" && computer.line != PowerStatus::OnLine)
            computer.line = kernelText(supply + u"online"_s).toInt() != 0 ? PowerStatus::OnLine
                                                                          : PowerStatus::Offline;
        const bool isOfDevice = kernelText(supply + u"scope"_s) == u"Device"; // of a mouse
        bool isNumber = false;
        const int percent = kernelText(supply + u"capacity"_s).toInt(&isNumber);
        if (type != u"Battery" || isOfDevice || !isNumber ||
            (computer.battery && computer.battery->percent <= percent))
            continue;
        computer.battery = {.percent = percent,
                            .isCharging = kernelText(supply + u"status"_s) == u"Charging"};
    }
    return computer;
}

QString BatteryStatusText(const PowerStatus& status) {
    return u"%1\n%2( %3% remaining. )"_s.arg(lineText(status.line), chargeText(status.flag))
        .arg(status.percent);
}
