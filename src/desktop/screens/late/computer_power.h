#pragma once

#include "core/power_status.h"

#include <QString>

#include <optional>

/// How the computer is powered, as org.freedesktop.UPower tells it; nothing where there is no such
/// service.
std::optional<PowerSupply> desktopPower();

/// Lets the computer sleep (`suspend`, else it hibernates) through org.freedesktop.login1. Answers
/// why it does not, for the person; empty where it does.
QString letSleep(bool suspend, bool force);
