#pragma once

#include "year/backup_files.h"

#include <functional>

/// The way back to a working file by a backup (`repair.h` has the other). What is put in place is a
/// verified copy that was written beside it and takes the name at once, so that whatever interrupts
/// the work leaves the former file or the restored one. What fails is told in a plain box.

/// Asks for a backup and copies it to where the database is kept by default; without a default, to
/// its own name in the open folder. A file that stands there is replaced if the teacher agrees;
/// otherwise the copy goes to the backup's name in the backup folder, over any that is there. What
/// is replaced is kept as the newest backup of its name; where that fails nothing is replaced.
/// Answers the path of the restored file, empty when nothing was restored.
QString RestoreBackupFile(const BackupContext& context);

/// What RestoreBackup needs of the session.
struct RestoreSession {
    std::function<void()> close;    ///< closes the open database
    std::function<bool()> isDBOpen; ///< whether it is still in use somewhere; tells the teacher
    std::function<void()> reopen;   ///< opens it again
};

/// The older restore, of the database that is open, from a folder that has a file of its name. The
/// former file becomes ORVA.OLD in the program's own folder. A database path that is a mere name
/// means a file in that folder. The database is open again when it returns.
void RestoreBackup(const BackupContext& context, const QString& databasePath,
                   const RestoreSession& session);
