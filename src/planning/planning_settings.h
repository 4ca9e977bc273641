#pragma once

#include "core/setting.h"

/// The settings of the planning sheets.
namespace setting {

/// The key with the windows' place and the font for new text among other things.
inline constexpr QStringView Planning = u"Planning";
/// Whether classes are shown in their colours.
inline constexpr Setting<bool> ShowClassCoding{Planning, u"ShowClassCoding", false};

} // namespace setting
