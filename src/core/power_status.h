#pragma once

#include <QString>

#include <optional>

/// How the computer is powered, by the numbers that the desktop's own tools use.
struct PowerStatus {
    enum Line { Offline = 0, OnLine = 1, UnknownLine = 2 };
    enum Flag { High = 1, Low = 2, Critical = 4, Charging = 8, NoBattery = 128 };

    int line = UnknownLine;
    int flag = NoBattery;
    int percent = 0; ///< of the battery's life, 0 to 100

    bool operator==(const PowerStatus&) const = default;
};

/// What a battery tells of itself.
struct BatteryCharge {
    int percent = 0;
    bool isCharging = false;
};

/// What a computer tells of its power.
struct PowerSupply {
    int line = PowerStatus::UnknownLine;
    std::optional<BatteryCharge> battery = {}; ///< where it has one
};

/// Its status. Below 33 % a battery is low, below 5 % critical.
PowerStatus powerStatus(const PowerSupply& supply);

/// As the kernel tells it, in the files of a folder, /sys/class/power_supply as a rule. Of several
/// batteries the emptiest counts.
PowerSupply readKernelPower(const QString& folder);

/// The status in words, for the person.
QString BatteryStatusText(const PowerStatus& status);
