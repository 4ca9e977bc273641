#pragma once

#include <QStringList>

class Settings;

/// The years that were opened last, by the paths of their files.

inline constexpr int MostRecentYears = 5;

/// Those whose files are there, the newest first. One on a medium that is not in is kept for the
/// day when it comes back.
QStringList RecentYears(const Settings& settings);

/// Makes a year the newest. Where it is so already nothing is written.
void NoteRecentYear(Settings& settings, const QString& path);
