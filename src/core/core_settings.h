#pragma once

#include <QStringView>

/// The settings of the program as a whole. Unless told otherwise they are values of the root key.
namespace setting {

inline constexpr QStringView DefaultDatabasePath = u"DefaultDatabasePath"; ///< text
inline constexpr QStringView DontShowStartup =
    u"DontShowStartup"; ///< 1: open it without the wizard
inline constexpr QStringView CheckForUpgrade = u"CheckForUpgrade"; ///< 1: after a file was opened
inline constexpr QStringView UpgradeAddress = u"UpgradeAddress";   ///< text: where versions are
/// At close: 0 nothing, 1 ask, 2 back up and compact, 3 back up only.
inline constexpr QStringView AutoBackup = u"AutoBackup";
/// Text: the database that a backup is at work on. Still there at a start: it was cut off.
inline constexpr QStringView BackupInProgress = u"BackupInProgress";
inline constexpr QStringView DefaultOpenFolder = u"DefaultOpenFolder";     ///< text
inline constexpr QStringView DefaultSaveFolder = u"DefaultSaveFolder";     ///< text
inline constexpr QStringView DefaultBackupFolder = u"DefaultBackupFolder"; ///< text
/// 1 left, 2 right, 3 top, 4 bottom; all else is left.
inline constexpr QStringView ToolbarAlignment = u"ToolbarAlignment";
inline constexpr QStringView FadeStartColor = u"FadeStartColor";
inline constexpr QStringView FadeEndColor = u"FadeEndColor";
inline constexpr QStringView FadeStyle = u"FadeStyle"; ///< 0 diagonal, 1 horizontal, 2 vertical
inline constexpr QStringView DisableGradients = u"DisableGradients";
/// The program that shows whiteboard files: its name or path. Absent: what the desktop has for
/// them.
inline constexpr QStringView GwbViewer = u"GwbViewer";

/// The key with the main window's placement. Written at every close and never read back: the main
/// window does not restore its place.
inline constexpr QStringView Options = u"Options";

/// The key with the windows to open again. That a value exists is its meaning, whatever it holds.
inline constexpr QStringView Startup = u"Startup";
inline constexpr QStringView Open_Register = u"Open_Register";
inline constexpr QStringView Open_Timetable = u"Open_Timetable";
inline constexpr QStringView Open_COE = u"Open_COE";
inline constexpr QStringView Open_Planning = u"Open_Planning";
inline constexpr QStringView Open_WeeklyPlan = u"Open_WeeklyPlan";

} // namespace setting
