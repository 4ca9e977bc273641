#include "store/new_file.h"

#include "store/engine/error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

[[noreturn]] void raiseDiskError(const QString& path, int reason) {
    throw dao::EngineError(dao::DiskError, QStringLiteral("The file \"%1\" can't be written: %2.")
                                               .arg(QDir::toNativeSeparators(path),
                                                    QString::fromLocal8Bit(std::strerror(reason))));
}

void flushToDisk(const QString& path) {
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        raiseDiskError(path, errno);
    const int result = ::fsync(descriptor);
    const int reason = errno;
    ::close(descriptor);
    if (result != 0)
        raiseDiskError(path, reason);
}

/// A rollback journal left from an old database would be played into a new one of its name.
void removeSideFiles(const QString& path) {
    for (const char* suffix : {"-journal", "-wal", "-shm"})
        QFile::remove(path + QLatin1String(suffix));
}

} // namespace

void putInPlace(const QString& made, const QString& target) {
    flushToDisk(made);
    removeSideFiles(target);
    if (std::rename(QFile::encodeName(made).constData(), QFile::encodeName(target).constData()))
        raiseDiskError(target, errno);
    flushToDisk(QFileInfo(target).absolutePath());
}

void removeDatabaseFile(const QString& path) {
    QFile::remove(path);
    removeSideFiles(path);
}
