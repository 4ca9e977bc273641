#pragma once

#include <QString>

/// The program's version as people see it, and the build number that upgrades go by.
inline QString programVersion() {
    return QStringLiteral("1.0.0");
}
inline constexpr int ProgramBuild = 1;
