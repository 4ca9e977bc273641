#pragma once

#include "core/setting.h"
#include "core/toolbar_side.h"

/// What happens to the database when the program closes.
enum class ClosingBackup { None = 0, Ask = 1, CompactAndBackUp = 2, BackUpOnly = 3 };

/// How the shading of the main window's background runs.
enum class FadeDirection { Diagonal = 0, Horizontal = 1, Vertical = 2 };

/// The settings of the main window, of the start and of the end.
namespace setting {

/// Set: the default database is opened without the wizard.
inline constexpr Setting<bool> DontShowStartup{Root, u"DontShowStartup", false};
/// Set: after a database was opened.
inline constexpr Setting<bool> CheckForUpgrade{Root, u"CheckForUpgrade", false};
inline constexpr Setting<QString> UpgradeAddress{Root, u"UpgradeAddress"}; ///< where versions are
inline constexpr Setting<ClosingBackup, ChoiceForm<ClosingBackup::None, ClosingBackup::BackUpOnly>>
    AutoBackup{Root, u"AutoBackup", ClosingBackup::None};

inline constexpr Setting<ToolbarSide, ChoiceForm<ToolbarSide::Left, ToolbarSide::Bottom>>
    ToolbarAlignment{Root, u"ToolbarAlignment", ToolbarSide::Left};
/// The colours between which the background is shaded. The default of the end is no number but a
/// colour of the person's scheme, so find() is the way to it.
inline constexpr Setting<qint32> FadeStartColor{Root, u"FadeStartColor", 0xFFFFFF};
inline constexpr Setting<qint32> FadeEndColor{Root, u"FadeEndColor"};
inline constexpr Setting<FadeDirection,
                         ChoiceForm<FadeDirection::Diagonal, FadeDirection::Vertical>>
    FadeStyle{Root, u"FadeStyle", FadeDirection::Diagonal};

/// The key with the main window's placement. Written at every close and never read back: the main
/// window does not restore its place.
inline constexpr QStringView Options = u"Options";

/// The key with the windows to open again.
inline constexpr QStringView Startup = u"Startup";
using OpenAtStart = Setting<bool, ExistenceForm>;
inline constexpr OpenAtStart Open_Register{Startup, u"Open_Register"};
inline constexpr OpenAtStart Open_Timetable{Startup, u"Open_Timetable"};
inline constexpr OpenAtStart Open_COE{Startup, u"Open_COE"};
inline constexpr OpenAtStart Open_Planning{Startup, u"Open_Planning"};
inline constexpr OpenAtStart Open_WeeklyPlan{Startup, u"Open_WeeklyPlan"};

} // namespace setting
