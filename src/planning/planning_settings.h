#pragma once

#include "core/setting.h"

/// The settings of the planning sheets.
namespace setting {

/// The key with the windows' place and the font for new text among other things.
inline constexpr QStringView Planning = u"Planning";
/// Whether classes are shown in their colours.
inline constexpr Setting<bool> ShowClassCoding{Planning, u"ShowClassCoding", false};

/// The key of the history viewer, with its place.
inline constexpr QStringView History = u"History";
/// The height of the viewer's upper box, in twips. 0: as designed.
inline constexpr Setting<qint32> Splitbar{History, u"Splitbar", 0};

} // namespace setting
