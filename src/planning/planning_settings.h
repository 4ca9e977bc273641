#pragma once

#include "core/setting.h"
#include "core/writing_settings.h"

/// The settings of the planning sheets.
namespace setting {

/// Whether classes are shown in their colours.
inline constexpr Setting<bool> ShowClassCoding{Planning, u"ShowClassCoding", false};

} // namespace setting
