#pragma once

#include "core/setting.h"

/// The settings of the post-it notes: whether all are shown once a year is open, and how they look.
/// Colours have red in the low byte.
namespace setting {

inline constexpr Setting<bool> AutoloadPostits{Root, u"AutoloadPostits", false};
inline constexpr Setting<qint32> PostitCapCol{Root, u"PostitCapCol", 0xE1A881};
inline constexpr Setting<qint32> PostitCol{Root, u"PostitCol", 0xF9E7DF};

/// The font of what is written in a note. Without a name it is that of the box.
inline constexpr Setting<QString> PostitFontName{Root, u"PostitFontName", u""};
inline constexpr Setting<bool> PostitFontBold{Root, u"PostitFontBold", false};
inline constexpr Setting<bool> PostitFontItalic{Root, u"PostitFontItalic", false};
inline constexpr Setting<bool> PostitFontUnderline{Root, u"PostitFontUnderline", false};
inline constexpr Setting<qint32> PostitFontSize{Root, u"PostitFontSize", 8};
inline constexpr Setting<qint32> PostitFontCol{Root, u"PostitFontCol", 0};

} // namespace setting
