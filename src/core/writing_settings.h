#pragma once

#include <QStringView>

/// What all windows with rich text share of the settings.
namespace setting {

/// The key with the font for new text. The planning sheets keep their place there too.
inline constexpr QStringView Planning = u"Planning";

} // namespace setting
