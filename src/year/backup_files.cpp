#include "year/backup_files.h"

#include "core/session.h"
#include "store/engine/error.h"
#include "store/engine/files.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype blockBytes = qsizetype{1024} * 1024;

QString journalOf(const QString& path) {
    return path + u"-journal"_s;
}

dao::EngineError writeError(int cause) {
    if (cause == ENOSPC || cause == EDQUOT || cause == EFBIG)
        return {dao::DiskFull, u"There is not enough space on the disk."_s};
    return {dao::DiskError, u"The disk or the network reported an error."_s};
}

/// Renames over what has the new name. Answers the system's number of the failure, 0 for none.
int systemRename(const QString& from, const QString& to) {
    const bool done =
        std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
    return done ? 0 : errno;
}

void writeWhole(int descriptor, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const ssize_t written =
            ::write(descriptor, bytes.data(), static_cast<size_t>(bytes.size()));
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            throw writeError(errno);
        bytes = bytes.sliced(written);
    }
}

void openFor(QFile& file, QIODevice::OpenMode mode) {
    if (!file.open(mode | QIODevice::Unbuffered))
        throw dao::EngineError(dao::CannotOpenFile,
                               u"The file can't be opened:\n%1\n%2"_s.arg(
                                   QDir::toNativeSeparators(file.fileName()), file.errorString()));
}

void copyBytes(const QString& source, const QString& copy) {
    QFile in(source);
    QFile out(copy);
    openFor(in, QIODevice::ReadOnly);
    openFor(out, QIODevice::WriteOnly | QIODevice::NewOnly);
    QByteArray block(blockBytes, Qt::Uninitialized);
    for (;;) {
        const qint64 count = in.read(block.data(), block.size());
        if (count < 0)
            throw dao::EngineError(dao::DiskError, u"The file could not be read."_s);
        if (count == 0)
            break;
        writeWhole(out.handle(), QByteArrayView(block).first(count));
    }
    // Kept as private as it was, where the file system knows of that; and a copy of a file on a
    // read-only medium is one to work with.
    out.setPermissions(in.permissions() | QFileDevice::WriteOwner);
}

void makeEmptyFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
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

BackupNames::BackupNames(const QString& databasePath, const QString& backupFolder)
    : database(databasePath)
    , folder(backupFolder)
    , compacted(withoutExtensionLetters(databasePath) + u"new"_s)
    , m_stem(backupFolder + withoutExtensionLetters(databasePath.mid(
                                databasePath.lastIndexOf(QDir::separator()) + 1))) {}

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

void copyOver(const QString& source, const QString& target) {
    const QString copy = copyBeside(source, target);
    try {
        dao::replaceFile(copy, target);
    } catch (const dao::EngineError&) {
        dao::removeDatabaseFile(copy);
        throw;
    }
}

void removeBackupLeftovers(const BackupNames& names) {
    if (!QFile::exists(names.database) || names.includeDatabase())
        return;
    for (const QString& path :
         {names.compacted, dao::unfinishedName(names.compacted),
          dao::unfinishedName(names.backup(1)), dao::unfinishedName(names.database)}) {
        if (QFile::exists(path))
            dao::removeDatabaseFile(path);
    }
}
