#include "year/backup.h"

#include "core/engine_failure.h"
#include "core/password_retry.h"
#include "core/progress.h"
#include "core/prompts.h"
#include "core/settings.h"
#include "store/engine/error.h"
#include "store/engine/files.h"
#include "year/backup_settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <cmath>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int reportSeconds = 10;
/// Where the bar stands at each step, in percent. Compacting takes nearly all of the time.
enum BarAt { Acquiring = 0, Compacting = 10, Rotating = 70, Creating = 85, Renaming = 90 };
constexpr int barEnd = 100;
constexpr FailureBox compactingFailure{u"Compacting Error",
                                       u"Error compacting database, Please try again.\n\n%1",
                                       OkButton | WarningIcon};

void tellBackupFailure(Prompts& prompts, const BackupNames& names, const dao::EngineError& error) {
    QString text = u"The database could not be backed up:\n%1\n\n%2"_s.arg(names.database,
                                                                           error.description());
    if (QFile::exists(names.database))
        text += u"\n\nThe database itself has not been changed."_s;
    else if (error.number() != dao::NoSuchFile) // it was there
        text += u"\n\nThe complete database is kept in this file:\n"_s + names.backup(1);
    prompts.PlainBox(text, OkButton | WarningIcon, u"Backup Error"_s);
}

void noteInterruption(const BackupContext& context, const QString& database) {
    context.settings.set(setting::BackupInProgress, database);
}

void forgetInterruption(const BackupContext& context, const BackupNames& names) {
    if (QFile::exists(names.database) && InterruptedBackup(context) == names.database)
        context.settings.remove(setting::BackupInProgress);
}

/// Gives a file that is no backup's, but has the name of the compacted file, another that is free.
void setAside(const QString& path) {
    if (!QFile::exists(path))
        return;
    QString name = path + u".kept"_s;
    for (int number = 2; QFile::exists(name); ++number)
        name = u"%1.kept%2"_s.arg(path).arg(number);
    renameDatabaseFile(path, name);
}

/// Who tells the next start of what a kill leaves unfinished.
enum class NotedBy { Itself, Caller };

/// One backup at work: keeps others off the database, leaves nothing unfinished behind and notes
/// itself in the settings for as long as a kill would. Raises when the database is in use.
class BackupAtWork {
public:
    BackupAtWork(const BackupContext& context, const BackupNames& names, NotedBy notedBy)
        : m_context(context), m_names(names) {
        if (names.includeDatabase())
            throw dao::EngineError(
                dao::InvalidOperation,
                u"The file is itself one of the backups. Please restore it first."_s);
        m_lock = lockClosedFile(names.database);
        dao::makePrivate(names.database);
        if (InterruptedBackup(context) != names.database)
            setAside(names.compacted);
        if (notedBy == NotedBy::Itself)
            noteInterruption(context, names.database);
    }
    ~BackupAtWork() {
        removeBackupLeftovers(m_names);
        forgetInterruption(m_context, m_names);
    }
    BackupAtWork(const BackupAtWork&) = delete;
    BackupAtWork& operator=(const BackupAtWork&) = delete;

private:
    const BackupContext& m_context;
    const BackupNames& m_names;
    std::shared_ptr<dao::OpenFile> m_lock;
};

/// Undoes what a killed program left half written in the database, as opening it does, so that its
/// bytes alone are the whole of it.
void finishInterruptedWrite(const dao::DBEngine& engine, const QString& path,
                            const QString& password) {
    if (QFile::exists(path + u"-journal"_s))
        engine.OpenDatabase(path, true, false, dao::connectText(password)).Close();
}

/// Makes backup 1 free: the oldest goes, the others get the next number.
void rotate(const BackupNames& names, Progress& progress) {
    for (int number = OldestBackup; number >= 1; --number) {
        const QString backup = names.backup(number);
        if (!QFile::exists(backup))
            continue;
        if (number == OldestBackup) {
            progress.UpdateProgress(Rotating, u"Removing Backup file 005"_s);
            dao::removeDatabaseFile(backup);
        } else {
            progress.UpdateProgress(
                Rotating, u"Renaming Backup file 00%1 to 00%2"_s.arg(number).arg(number + 1));
            renameDatabaseFile(backup, names.backup(number + 1));
        }
    }
}

/// Writes the compacted file and verifies it by opening it. False when it is not there; the teacher
/// knows why.
bool compact(const BackupContext& context, const BackupNames& names, const QString& password) {
    QString used = password;
    for (int failures = 0;; ++failures) {
        try {
            dao::removeDatabaseFile(names.compacted); // of an earlier backup that was cut off
            const QString connect = dao::connectText(used);
            requireYear(context.engine.OpenDatabase(names.database, true, true, connect));
            context.engine.CompactDatabase(names.database, names.compacted,
                                           dao::GeneralLocale.toString(), 0, connect);
            context.engine.OpenDatabase(names.compacted, true, true, connect).Close();
            return true;
        } catch (const dao::EngineError& error) {
            if (error.number() != dao::WrongPassword) {
                tellFailure(context.seams.prompts, compactingFailure, error);
                return false;
            }
        }
        if (!askForPassword(context.seams.prompts, failures, used))
            return false;
    }
}

/// Makes the database, or the copy of it that is meant to, backup 1, and the compacted file the
/// database. Where the database is renamed, its name stands for nothing in between.
void exchange(const BackupNames& names, const QString& becomesBackup) {
    try {
        if (becomesBackup == names.database) {
            renameDatabaseFile(names.database, names.backup(1));
            dao::flushToDisk(names.folder);
        } else {
            dao::replaceFile(becomesBackup, names.backup(1));
        }
        dao::replaceFile(names.compacted, names.database);
    } catch (const dao::EngineError&) {
        if (!QFile::exists(names.database))
            renameDatabaseFile(names.backup(1), names.database);
        throw;
    }
}

void prepareBackupFolder(const BackupContext& context, const BackupNames& names) {
    MakeProposedFolder(context.folders[BackupFolder]);
    checkBackupFolder(names);
}

/// The steps of BackupAndCompact on the files. Raises what goes wrong but for compaction.
bool compactAndExchange(const BackupContext& context, const BackupNames& names,
                        const QString& password, NotedBy notedBy) {
    Progress& progress = context.seams.progress;
    const BackupAtWork atWork(context, names, notedBy);
    prepareBackupFolder(context, names);
    const bool isRenamed = canRenameToBackup(names);
    progress.UpdateProgress(Compacting, u"Compacting Database"_s);
    if (!compact(context, names, password))
        return false;
    const auto compactedLock = lockClosedFile(names.compacted);
    // The copy for another file system is made first: a full one then costs no older backup.
    const QString becomesBackup =
        isRenamed ? names.database : copyBeside(names.database, names.backup(1));
    rotate(names, progress);
    progress.UpdateProgress(Creating, u"Creating latest backup file 001"_s);
    exchange(names, becomesBackup);
    // Told when it is done, for showing it lets events run and nothing may come between.
    progress.UpdateProgress(Renaming, u"Renaming compacted file as current database."_s);
    return true;
}

void report(const BackupNames& names, Prompts& prompts) {
    const qint64 former = QFileInfo(names.backup(1)).size();
    const qint64 compacted = QFileInfo(names.database).size();
    prompts.MsgAuto_box(u"The orignal database has been saved as the file %1\n"
                        "Please use the 'Restore a Backup database' facility\n"
                        "if there are problems with the new compacted database.\n"
                        "Orignal File Size : %2 bytes.\n"
                        "Compacted File Size : %3 bytes.\n"
                        "%4% Compacted."_s.arg(ShortenPath(names.backup(1)),
                                               QString::number(former), QString::number(compacted),
                                               compactedPercent(former, compacted)),
                        OkButton | InformationIcon, u"Database Compacted:"_s, reportSeconds);
}

/// Puts the database back under its name from what is there.
BackupRecovery putBack(const BackupContext& context, const BackupNames& names) {
    try {
        checkDatabaseFile(context.engine, names.compacted);
        dao::replaceFile(names.compacted, names.database);
        return BackupRecovery::CompactedPutBack;
    } catch (const dao::EngineError&) {
        checkDatabaseFile(context.engine, names.backup(1));
        copyOver(names.backup(1), names.database);
        return BackupRecovery::BackupPutBack;
    }
}

/// Whether another program has the file open, and so is in the midst of a backup of its own.
bool isInUse(const QString& path) {
    try {
        lockClosedFile(path);
    } catch (const dao::EngineError& error) {
        return error.number() == dao::OpenedExclusively;
    }
    return false;
}

} // namespace

bool BackupOnly(const BackupContext& context, const QString& path, const QString& password) {
    const BackupNames names(path, context.backupFolder());
    try {
        const BackupAtWork atWork(context, names, NotedBy::Itself);
        prepareBackupFolder(context, names);
        finishInterruptedWrite(context.engine, names.database, password);
        const QString copy = copyBeside(names.database, names.backup(1));
        checkDatabaseFile(context.engine, copy, password);
        rotate(names, context.seams.progress);
        dao::replaceFile(copy, names.backup(1));
        return true;
    } catch (const dao::EngineError& error) {
        tellBackupFailure(context.seams.prompts, names, error);
        return false;
    }
}

void KeepAsBackup(const BackupContext& context, const QString& path) {
    const BackupNames names(path, context.backupFolder());
    prepareBackupFolder(context, names);
    const QString copy = copyBeside(names.database, names.backup(1));
    rotate(names, context.seams.progress);
    dao::replaceFile(copy, names.backup(1));
}

bool BackupAndCompact(const BackupContext& context, const QString& path, bool silent,
                      const QString& password) {
    Progress& progress = context.seams.progress;
    const BackupNames names(path, context.backupFolder());
    {
        std::optional<ProgressWindow> window;
        if (QStorageInfo(QFileInfo(names.database).absolutePath()) != QStorageInfo(context.appPath))
            window.emplace(progress, u"Backing up Database: "_s + path);
        progress.UpdateProgress(Acquiring, u"Acquiring filenames"_s);
        try {
            if (!compactAndExchange(context, names, password, NotedBy::Itself))
                return false;
        } catch (const dao::EngineError& error) {
            tellBackupFailure(context.seams.prompts, names, error);
            return false;
        }
        progress.UpdateProgress(Renaming, u"Finishing Backup Process"_s);
        for (int percent = Renaming + 1; percent <= barEnd; ++percent)
            progress.UpdateProgress(percent);
    }
    if (!silent)
        report(names, context.seams.prompts);
    return true;
}

bool BackupAndCompactAs(const BackupContext& context, const QString& path,
                        const QString& finishedPath, const QString& password) {
    return compactAndExchange(context, BackupNames(path, context.backupFolder(), finishedPath),
                              password, NotedBy::Caller);
}

QString compactedPercent(qint64 formerSize, qint64 compactedSize) {
    constexpr double whole = 100;
    const double percent = formerSize == 0 ? 0
                                           : whole - static_cast<double>(compactedSize) /
                                                         static_cast<double>(formerSize) * whole;
    QString text = QString::number(std::fabs(percent), 'f', 2);
    while (text.endsWith(u'0'))
        text.chop(1);
    if (text.startsWith(u'0'))
        text.remove(0, 1);
    return percent < 0 && text != u"." ? u'-' + text : text;
}

QString InterruptedBackup(const BackupContext& context) {
    return context.settings.get(setting::BackupInProgress);
}

BackupRecovery RecoverInterruptedBackup(const BackupContext& context, const QString& databasePath) {
    const BackupNames names(databasePath, context.backupFolder());
    if (QFile::exists(names.database)) {
        if (InterruptedBackup(context) == names.database && !isInUse(names.database)) {
            removeBackupLeftovers(names);
            forgetInterruption(context, names);
        }
        return BackupRecovery::NothingToDo;
    }
    if (!QFile::exists(names.compacted) || isInUse(names.compacted))
        return BackupRecovery::NothingToDo;
    Prompts& prompts = context.seams.prompts;
    try {
        const BackupRecovery done = putBack(context, names);
        removeBackupLeftovers(names);
        forgetInterruption(context, names);
        prompts.PlainBox(u"The last backup was interrupted before it was finished.\n\nThe database "
                         "has been put back in its place and is complete:\n%1"_s.arg(databasePath),
                         OkButton | InformationIcon, u"Backup interrupted"_s);
        return done;
    } catch (const dao::EngineError& error) {
        prompts.PlainBox(u"The last backup was interrupted before it was finished, and the "
                         "database could not be put back in its place:\n%1\n\n%2\n\nPlease "
                         "restore it from the newest backup:\n%3"_s.arg(
                             databasePath, error.description(), names.backup(1)),
                         OkButton | WarningIcon, u"Backup interrupted"_s);
        return BackupRecovery::NotPossible;
    }
}
