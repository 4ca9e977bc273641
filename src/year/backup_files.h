#pragma once

#include "core/paths.h"
#include "core/seams.h"
#include "store/engine/engine.h"
#include "store/engine/open_file.h"

#include <QString>

#include <functional>
#include <memory>

class Session;
class Settings;

/// What the operations on whole files work with. Whoever calls them owns it all.
struct BackupContext {
    const dao::DBEngine& engine;
    Seams seams;
    Settings& settings;
    QString appPath; ///< with a separator at its end
    ::FolderDefaults folders;

    const QString& backupFolder() const { return folders[BackupFolder].folder; }
};

/// The session's own.
BackupContext backupContext(Session& session);

/// The newest backup is 1, the oldest this one.
inline constexpr int OldestBackup = 5;

/// The names of the files of a backup. For D/Year.mdb: D/Year.new, and Year.001 to Year.005 in the
/// backup folder, which is used as it stands, with its separator. A link stands for the file behind
/// it.
///
/// They are cut by position, for an extension of three letters; one of another length gets odd
/// names (Year.sqlite: Year.sqlnew and Year.sql001), which is known and harmless.
struct BackupNames {
    BackupNames(const QString& databasePath, const QString& backupFolder)
        : BackupNames(databasePath, backupFolder, databasePath) {}
    /// Of a file that is still built, for its backups bear the name that it will have.
    BackupNames(const QString& databasePath, const QString& backupFolder,
                const QString& finishedPath);

    QString database;  ///< the file behind links
    QString folder;    ///< of the backups
    QString compacted; ///< the temporary file, beside the database
    QString backup(int number) const;
    /// Whether the database itself has one of the names: then it must not be backed up, or its own
    /// rotation would take it.
    bool includeDatabase() const;

private:
    QString m_stem; ///< of the backups
};

/// A path or name without its last three characters.
QString withoutExtensionLetters(const QString& path);

/// Keeps other programs off a file as long as the answer lives. Raises 3356 when another program
/// has it, or this one; 3024, 3051 as OpenFile does.
std::shared_ptr<dao::OpenFile> lockClosedFile(const QString& path);

/// Raises what makes an open database none that is backed up: 3219 for a genuine Jet file, with the
/// way to convert it, 3049 for one that is no year's.
void requireYear(const dao::Database& database);

/// Raises what makes a file no complete database. One that needs another password than this counts
/// as complete: no more can be told of it.
void checkDatabaseFile(const dao::DBEngine& engine, const QString& path,
                       const QString& password = {});

/// Copies a file's bytes to the unfinished name of `target`, on the disk for good, and answers that
/// name; dao::replaceFile then puts it in place. Raises 3182 on a full disk, 3051 or 3043; then
/// nothing is left of the copy.
QString copyBeside(const QString& source, const QString& target);

/// Gives a database file another name, with the journal that may stand beside it, and makes it
/// private. No file has the new name. Raises 3051.
void renameDatabaseFile(const QString& from, const QString& to);

/// Raises 3051 when the backup folder is missing or can't be written to. Leaves an empty file under
/// backup 1's unfinished name.
void checkBackupFolder(const BackupNames& names);

/// Whether the database can become backup 1 by renaming it, as it can within one file system. Tries
/// it with an empty file, which takes backup 1's unfinished name; the folder has to be checked.
bool canRenameToBackup(const BackupNames& names);

/// Removes what an interrupted backup left, as long as the database itself is in its place.
void removeBackupLeftovers(const BackupNames& names);
/// Removes what is only there while a backup is at work, wherever the database itself is.
void removeUnfinishedBackup(const BackupNames& names);

/// Copies a file over another, or to where none is, whatever interrupts it: the name stands for the
/// former file or the whole copy, which its owner may write in. A link stands for
/// the file behind it. `before` is called once the copy is there and before it takes the name.
/// Raises as copyBeside, and what `before` raises; then the name stands for the former file. Until
/// then the copy has the unfinished name of that file.
void copyOver(const QString& source, const QString& path, const std::function<void()>& before = {});
