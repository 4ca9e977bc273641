#pragma once

#include "core/setting.h"

namespace setting {

/// The database that a backup is at work on. Still there at a start: the backup was cut off.
inline constexpr Setting<QString> BackupInProgress{Root, u"BackupInProgress"};

/// The archive that is being made. Still there at a start: making it was cut off.
inline constexpr Setting<QString> ArchiveInProgress{Root, u"ArchiveInProgress"};

} // namespace setting
