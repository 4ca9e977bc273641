#pragma once

#include "core/setting.h"
#include "core/writing_settings.h"

/// The settings of the planning sheets.
namespace setting {

/// Whether classes are shown in their colours.
inline constexpr Setting<bool> ShowClassCoding{Planning, u"ShowClassCoding", false};

/// What a new short term plan begins with. None has a default.
inline constexpr Setting<QString> STP_Subject{Planning, u"STP_Subject"};
inline constexpr Setting<qint32> STP_Term{Planning, u"STP_Term"}; ///< the place in the list, from 0
inline constexpr Setting<QString> STP_Ability{Planning, u"STP_Ability"};
inline constexpr Setting<QString> STP_Unit{Planning, u"STP_Unit"};
/// The timings of starter, main part and plenary, as their lists have them.
inline constexpr Setting<QString> STP_Time1{Planning, u"STP_Time1"};
inline constexpr Setting<QString> STP_Time2{Planning, u"STP_Time2"};
inline constexpr Setting<QString> STP_Time3{Planning, u"STP_Time3"};
/// The one timing of older settings.
inline constexpr Setting<QString> STP_Time{Planning, u"STP_Time"};
/// The subject of the short term plan that was saved last.
inline constexpr Setting<QString> LastUsedSubject{Planning, u"LastUsedSubject"};

/// The key of the history viewer, with its place.
inline constexpr QStringView History = u"History";
/// The height of the viewer's upper box, in twips. 0: as designed.
inline constexpr Setting<qint32> Splitbar{History, u"Splitbar", 0};

} // namespace setting
