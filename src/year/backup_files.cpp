#include "year/backup_files.h"

#include "core/session.h"
#include "store/engine/error.h"
#include "store/engine/files.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString journalOf(const QString& path) {
    return path + u"-journal"_s;
}

/// Renames over what has the new name. Answers the system's number of the failure, 0 for none.
int systemRename(const QString& from, const QString& to) {
    const bool done =
        std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
    return done ? 0 : errno;
}

void copyBytes(const QString& source, const QString& copy) {
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw dao::EngineError(dao::CannotOpenFile,
                               u"The file can't be opened:\n%1\n%2"_s.arg(
                                   QDir::toNativeSeparators(source), in.errorString()));
    dao::copyContent(in.handle(), copy);
    dao::makeAsStrict(copy, source);
}

void makeEmptyFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly, QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        throw dao::EngineError(
            dao::CannotOpenFile,
            u"Nothing can be written to this folder:\n%1\n%2"_s.arg(
                QDir::toNativeSeparators(QFileInfo(path).absolutePath()), file.errorString()));
}

} // namespace

QString withoutExtensionLetters(const QString& path) {
    return path.left(std::max<qsizetype>(path.size() - 3, 0));
}

BackupContext backupContext(Session& session) {
    return {session.Engine(), session.GetSeams(), session.GetSettings(), session.AppPath,
            session.FolderDefaults};
}

BackupNames::BackupNames(const QString& databasePath, const QString& backupFolder,
                         const QString& finishedPath)
    : database(dao::behindLinks(databasePath))
    , folder(backupFolder)
    , compacted(withoutExtensionLetters(database) + u"new"_s) {
    const QString finished = dao::behindLinks(finishedPath);
    m_stem = backupFolder +
             withoutExtensionLetters(finished.mid(finished.lastIndexOf(QDir::separator()) + 1));
}

QString BackupNames::backup(int number) const {
    return m_stem + u"00"_s + QString::number(number);
}

bool BackupNames::includeDatabase() const {
    const QFileInfo file(database);
    if (!file.exists())
        return false; // all files that are missing compare as one
    for (int number = 1; number <= OldestBackup; ++number) {
        if (QFileInfo(backup(number)) == file)
            return true;
    }
    return QFileInfo(compacted) == file;
}

std::shared_ptr<dao::OpenFile> lockClosedFile(const QString& path) {
    auto file = dao::OpenFile::acquire(path);
    if (file->handles > 0)
        throw dao::EngineError(dao::OpenedExclusively,
                               u"The database is still open in this program."_s);
    return file;
}

void requireYear(const dao::Database& database) {
    if (database.isJetFile())
        throw dao::EngineError(dao::InvalidOperation,
                               u"The file is in the older Jet format, which is only read. Open it "
                               "as a year first: a converted copy is then made beside it."_s);
    for (const QString& table : {AdminTable, PlanningTable, TermDatesTable}) {
        if (!TableExists(database, table))
            throw dao::EngineError(dao::NotADatabase,
                                   u"The file is no year's: it has no table %1."_s.arg(table));
    }
}

void checkDatabaseFile(const dao::DBEngine& engine, const QString& path, const QString& password) {
    try {
        engine.OpenDatabase(path, true, true, dao::connectText(password)).Close();
    } catch (const dao::EngineError& error) {
        if (error.number() != dao::WrongPassword)
            throw;
    }
}

QString copyBeside(const QString& source, const QString& target) {
    QString copy = dao::unfinishedName(target);
    dao::removeDatabaseFile(copy);
    try {
        copyBytes(source, copy);
        dao::flushToDisk(copy);
    } catch (...) {
        QFile::remove(copy);
        throw;
    }
    return copy;
}

void renameDatabaseFile(const QString& from, const QString& to) {
    // A journal that was left under the new name would be played into the file that gets it.
    QFile::remove(journalOf(to));
    if (QFile::exists(journalOf(from)))
        systemRename(journalOf(from), journalOf(to));
    if (systemRename(from, to) != 0)
        throw dao::EngineError(dao::CannotOpenFile, u"The file can't be renamed:\n%1"_s.arg(
                                                        QDir::toNativeSeparators(from)));
    dao::makePrivate(to);
}

void checkBackupFolder(const BackupNames& names) {
    if (!QFileInfo(names.folder).isDir())
        throw dao::EngineError(
            dao::CannotOpenFile,
            u"The backup folder is missing:\n%1\nPlease connect the drive that holds "
            "it, or choose another backup folder in the settings."_s.arg(
                QDir::toNativeSeparators(names.folder)));
    makeEmptyFile(dao::unfinishedName(names.backup(1)));
}

bool canRenameToBackup(const BackupNames& names) {
    const QString probe = dao::unfinishedName(names.database);
    makeEmptyFile(probe);
    const bool isRenamed = systemRename(probe, dao::unfinishedName(names.backup(1))) == 0;
    QFile::remove(probe);
    return isRenamed;
}

void copyOver(const QString& source, const QString& path, const std::function<void()>& before) {
    const QString target = dao::behindLinks(path);
    const QString copy = copyBeside(source, target);
    try {
        // A copy of a file on a medium that can't be written to is one to work with.
        QFile::setPermissions(copy, QFile::permissions(copy) | QFileDevice::WriteOwner);
        if (before)
            before();
        dao::replaceFile(copy, target);
    } catch (...) {
        dao::removeDatabaseFile(copy);
        throw;
    }
}

void removeBackupLeftovers(const BackupNames& names) {
    if (QFile::exists(names.database) && !names.includeDatabase())
        removeUnfinishedBackup(names);
}

void removeUnfinishedBackup(const BackupNames& names) {
    for (const QString& path :
         {names.compacted, dao::unfinishedName(names.compacted),
          dao::unfinishedName(names.backup(1)), dao::unfinishedName(names.database)}) {
        if (QFile::exists(path))
            dao::removeDatabaseFile(path);
    }
}
