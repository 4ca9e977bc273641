#pragma once

#include "year/backup_files.h"

/// Backups of the year: up to five numbered copies in the backup folder, the newest 001.
///
/// Whatever ends the work, a kill, a full disk, a folder that can't be written to, at least one
/// complete file of the year keeps a name that the next start finds: the database itself, or, in
/// the one moment when that has none, both backup 1 and the compacted file, from which
/// RecoverInterruptedBackup puts it back. What is written is written beside its place, flushed and
/// verified first; only then do older backups move.
///
/// The database has to be closed. What fails is told in a plain box, also when `silent`.

/// Copies the database to backup 1 as it is, protected if it is, after the rotation: backup 5 goes
/// and the others get the next number. True when the copy is there. `password` serves to verify it.
bool BackupOnly(const BackupContext& context, const QString& path, const QString& password = {});

/// Compacts the database and keeps it as it was as backup 1, after the rotation. Without the right
/// password it asks for it. Shows its progress only where the database lies on another volume than
/// the program's own folder. Unless `silent` it ends with a report of the sizes. True when the
/// compacted file is in place.
bool BackupAndCompact(const BackupContext& context, const QString& path, bool silent,
                      const QString& password);

/// The same for a file that is still built, silently and without a progress window of its own: its
/// backups bear the name of `finishedPath`, which it will have. What a kill would leave unfinished
/// is the caller's to note. Raises what goes wrong; why the compaction failed is told, and answered
/// with false.
bool BackupAndCompactAs(const BackupContext& context, const QString& path,
                        const QString& finishedPath, const QString& password);

/// Keeps a file that is about to be replaced as backup 1, as it is and unverified, for it may be
/// replaced because it is damaged; after the rotation. Raises what goes wrong; then the file is
/// where it was.
void KeepAsBackup(const BackupContext& context, const QString& path);

/// What was gained by compaction as the report writes it, "##.##": no zeros around the point, which
/// stays ("12.", ".25").
QString compactedPercent(qint64 formerSize, qint64 compactedSize);

/// What RecoverInterruptedBackup did.
enum class BackupRecovery {
    NothingToDo,      ///< no backup of the file was interrupted
    CompactedPutBack, ///< the database is the compacted file
    BackupPutBack,    ///< the database is a copy of backup 1
    NotPossible,      ///< it could not be put back; the teacher was told where it is
};

/// The database whose backup was cut off, by the settings; empty where none was. It need not be the
/// one that opens by default.
QString InterruptedBackup(const BackupContext& context);

/// For the start of the program, before it looks whether its database still exists: where a backup
/// was cut off in the moment between its last two steps, puts the database back under its name and
/// says so. Where InterruptedBackup tells of one cut off earlier, removes what that left behind.
BackupRecovery RecoverInterruptedBackup(const BackupContext& context, const QString& databasePath);
