#pragma once

#include "core/setting.h"

/// The settings of the incident reports.
namespace setting {

inline constexpr QStringView Incidents = u"Incidents";
/// Set, against its name: the warning is not shown any more.
inline constexpr Setting<bool> ShowSecurityDialog{Incidents, u"ShowSecurityDialog", false};

} // namespace setting
