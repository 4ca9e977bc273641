#pragma once

#include "core/setting.h"

/// The settings of the calendar of events.
namespace setting {

/// The key with the window's place among other things.
inline constexpr QStringView COE = u"COE";
/// The grounds of Saturdays and Sundays and of holidays, red in the low byte.
inline constexpr Setting<qint32> WeekendCol{COE, u"WeekendCol", 0xC0FFC0};
inline constexpr Setting<qint32> HolidayCol{COE, u"HolidayCol", 0xFFC0C0};
/// Whether holidays have theirs.
inline constexpr Setting<bool> ShowHolidays{COE, u"ShowHolidays", false};

} // namespace setting
