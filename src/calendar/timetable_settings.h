#pragma once

#include <QStringView>

namespace setting {

/// The key with the place of the timetable's window and the font of its grid.
inline constexpr QStringView Timetable = u"Timetable";

} // namespace setting
