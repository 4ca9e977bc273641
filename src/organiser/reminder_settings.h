#pragma once

#include "core/setting.h"

/// The settings of the reminders.
namespace setting {

/// The colours of a reminder and of the details of an item, red in the low byte.
inline constexpr Setting<qint32> SchedBackcolor{Root, u"SchedBackcolor", 0xE0E0E0};
inline constexpr Setting<qint32> SchedFontcolor{Root, u"SchedFontcolor", 0};

/// The key with the sounds that were chosen, the last first: `Sound1`, `Sound2`, ...
inline constexpr QStringView ReminderSounds = u"ReminderSounds";

} // namespace setting
