#pragma once

#include "core/setting.h"

/// The settings that the whole program stands on.
namespace setting {

inline constexpr Setting<QString> DefaultDatabasePath{Root, u"DefaultDatabasePath"};
/// Where dialogs start and backups go. Empty: as ReadFolderDefaults says.
inline constexpr Setting<QString> DefaultOpenFolder{Root, u"DefaultOpenFolder"};
inline constexpr Setting<QString> DefaultSaveFolder{Root, u"DefaultSaveFolder"};
inline constexpr Setting<QString> DefaultBackupFolder{Root, u"DefaultBackupFolder"};
inline constexpr Setting<bool> DisableGradients{Root, u"DisableGradients", false};
/// The program that shows whiteboard files: its name or path. Empty: what the desktop has for them.
inline constexpr Setting<QString> GwbViewer{Root, u"GwbViewer"};

} // namespace setting
