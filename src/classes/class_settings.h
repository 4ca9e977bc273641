#pragma once

#include "core/setting.h"

/// The settings of the class window.
namespace setting {

inline constexpr QStringView Register = u"Register";
inline constexpr Setting<bool> DisplayKey{Register, u"DisplayKey", false}; ///< the side panel
/// Where the side panel begins, in twips. 0: as designed.
inline constexpr Setting<qint32> DisplayPnlLeft{Register, u"DisplayPnlLeft", 0};
/// Whether the side panel has the photo.
inline constexpr Setting<bool> DisplayKeyPicture{Register, u"DisplayKeyPicture", false};
inline constexpr Setting<bool> PupilNotes{Register, u"PupilNotes", false}; ///< lesson notes show
/// Whether lesson notes are neither read nor written.
inline constexpr Setting<bool> DontUsePupilNotes{Register, u"DontUsePupilNotes", false};
inline constexpr Setting<bool> SortPanel{Register, u"SortPanel", false}; ///< the sort panel shows
/// How many lessons before the current one are in view on opening.
inline constexpr Setting<qint32> PreviousDates{Register, u"PreviousDates", 1};

/// A key of its own: the name of each value is a mark, its content what the mark means.
inline constexpr QStringView RegisterKey = u"Register\\Key";

/// The key above those of the classes, each of which is named by its class and says how its grades
/// are laid out.
inline constexpr QStringView GradeCols = u"Register\\GradeCols\\";

} // namespace setting
