#pragma once

#include <QStringView>

/// The settings of the class window. Unless told otherwise they are values of the key `Register`.
namespace setting {

inline constexpr QStringView Register = u"Register";
inline constexpr QStringView DisplayKey = u"DisplayKey";         ///< 1: the side panel is shown
inline constexpr QStringView DisplayPnlLeft = u"DisplayPnlLeft"; ///< twips; absent: as designed
inline constexpr QStringView PupilNotes = u"PupilNotes";         ///< 1: lesson notes are shown
inline constexpr QStringView SortPanel = u"SortPanel";           ///< 1: the sort panel is shown
inline constexpr QStringView DisplayKeyPicture =
    u"DisplayKeyPicture"; ///< 1: the side panel has the photo
inline constexpr QStringView DontUsePupilNotes = u"DontUsePupilNotes"; ///< 1: no lesson notes
/// How many lessons before the current one are in view on opening; absent: 1.
inline constexpr QStringView PreviousDates = u"PreviousDates";

/// A key of its own: the name of each value is a mark, its content what the mark means.
inline constexpr QStringView RegisterKey = u"Register\\Key";

} // namespace setting
