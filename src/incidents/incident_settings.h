#pragma once

#include "core/setting.h"

/// The settings of the incident reports.
namespace setting {

inline constexpr QStringView Incidents = u"Incidents";
/// Set, against its name: the warning is not shown any more.
inline constexpr Setting<bool> ShowSecurityDialog{Incidents, u"ShowSecurityDialog", false};
/// A key of its own with the teacher's own titles, the name of each a number from 1 on.
inline constexpr QStringView IncidentTitles = u"Incidents\\Titles";

} // namespace setting
