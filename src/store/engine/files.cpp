#include "store/engine/files.h"

#include "store/engine/error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

[[noreturn]] void raiseFileError(const QString& path, int cause) {
    throw EngineError(
        cause == ENOSPC || cause == EDQUOT ? DiskFull : DiskError,
        u"The file \"%1\" can't be written: %2."_s.arg(
            QDir::toNativeSeparators(path), QString::fromLocal8Bit(std::strerror(cause))));
}

/// What a file system answers that has nothing to flush for this kind of file; many have no such
/// thing as a flush of a folder.
bool hasNoFlush(int cause) {
    return cause == EINVAL || cause == ENOTSUP || cause == ENOSYS;
}

void removeSideFiles(const QString& path) {
    for (const char* suffix : {"-journal", "-wal", "-shm"})
        QFile::remove(path + QLatin1StringView(suffix));
}

} // namespace

QString unfinishedName(const QString& path) {
    const QFileInfo info(path);
    return info.absolutePath() + u"/."_s + info.fileName() + u".unfinished"_s;
}

QString behindLinks(const QString& path) {
    const QString file = QFileInfo(path).canonicalFilePath();
    return file.isEmpty() ? path : file;
}

void flushToDisk(const QString& path) {
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        raiseFileError(path, errno);
    const int result = ::fsync(descriptor);
    const int cause = errno;
    ::close(descriptor);
    if (result != 0 && !hasNoFlush(cause))
        raiseFileError(path, cause);
}

void replaceFile(const QString& finished, const QString& target) {
    if (QFileInfo::exists(target))
        QFile::setPermissions(finished, QFileInfo(target).permissions());
    flushToDisk(finished);
    removeSideFiles(target);
    if (std::rename(QFile::encodeName(finished).constData(),
                    QFile::encodeName(target).constData()) != 0)
        raiseFileError(target, errno);
    try {
        flushToDisk(QFileInfo(target).absolutePath());
    } catch (const EngineError&) {
        // The name stands for the new file by now: to report a failure would be to claim that the
        // old one is there.
    }
}

void keepFile(const QString& path, const QString& keptAs) {
    if (::link(QFile::encodeName(path).constData(), QFile::encodeName(keptAs).constData()) == 0)
        return;
    // There are file systems that know no second names.
    if (!QFile::copy(path, keptAs)) {
        const int cause = errno;
        QFile::remove(keptAs);
        raiseFileError(keptAs, cause);
    }
    flushToDisk(keptAs);
}

void removeDatabaseFile(const QString& path) {
    QFile::remove(path);
    removeSideFiles(path);
}

} // namespace dao
