#pragma once

#include "core/setting.h"

/// The settings of the seating plans. Colours have red in the low byte.
namespace setting {

/// The key with the place of the window and the font of the desks.
inline constexpr QStringView SeatingPlan = u"SeatingPlan";
inline constexpr Setting<qint32> DeskColor{SeatingPlan, u"DeskColor", 0xFFC0C0};
inline constexpr Setting<qint32> TeacherColor{SeatingPlan, u"TeacherColor", 0xC0FFC0};
inline constexpr Setting<qint32> ClassroomColor{SeatingPlan, u"ClassroomColor", 0xE0E0E0};
/// The size of a new desk, in units of the grid.
inline constexpr Setting<qint32> DefaultDeskWidth{SeatingPlan, u"DefaultDeskWidth", 7};
inline constexpr Setting<qint32> DefaultDeskHeight{SeatingPlan, u"DefaultDeskHeight", 5};

} // namespace setting
