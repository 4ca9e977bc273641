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
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

constexpr size_t blockBytes = size_t{1024} * 1024;
/// What a person may do with a file of his own. Asked of the system, the rights of whoever runs the
/// program come too (`ReadUser`), and would be set as the owner's.
constexpr QFileDevice::Permissions ownerRights =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
/// So many links may lead from one to the next; more are a circle.
constexpr int mostLinks = 40;

[[noreturn]] void raiseFileError(const QString& path, int cause) {
    const bool isFull = cause == ENOSPC || cause == EDQUOT || cause == EFBIG;
    const QString reason = isFull ? u"There is not enough space on the disk"_s
                                  : QString::fromLocal8Bit(std::strerror(cause));
    throw EngineError(isFull ? DiskFull : DiskError, u"The file \"%1\" can't be written: %2."_s.arg(
                                                         QDir::toNativeSeparators(path), reason));
}

/// Repeats a call of the system that a signal cut short.
template<typename Call>
ssize_t uninterrupted(Call call) {
    ssize_t result = 0;
    do {
        result = call();
    } while (result < 0 && errno == EINTR);
    return result;
}

void writeWhole(QFile& file, const char* bytes, ssize_t size) {
    while (size > 0) {
        const ssize_t written =
            uninterrupted([&] { return ::write(file.handle(), bytes, static_cast<size_t>(size)); });
        if (written < 0)
            raiseFileError(file.fileName(), errno);
        bytes += written;
        size -= written;
    }
}

void copyBytes(int source, QFile& copy) {
    std::vector<char> block(blockBytes);
    for (off_t done = 0;;) {
        const ssize_t got =
            uninterrupted([&] { return ::pread(source, block.data(), block.size(), done); });
        if (got < 0)
            throw EngineError(DiskError, u"The file could not be read."_s);
        if (got == 0)
            return;
        writeWhole(copy, block.data(), got);
        done += got;
    }
}

/// What a file system answers that has nothing to flush for this kind of file; many have no such
/// thing as a flush of a folder.
bool hasNoFlush(int cause) {
    return cause == EINVAL || cause == ENOTSUP || cause == ENOSYS;
}

/// A new file that its owner alone may read and write.
std::unique_ptr<QFile> openPrivateFile(const QString& path) {
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered,
                    QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        throw EngineError(CannotOpenFile, u"The file \"%1\" could not be made: %2."_s.arg(
                                              QDir::toNativeSeparators(path), file->errorString()));
    return file;
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
    const QFileInfo info(path);
    const QString file = info.canonicalFilePath();
    if (!file.isEmpty())
        return file;
    // Of a link to a file that is gone the system tells the next step alone. One that leads back to
    // itself leads nowhere.
    QString step = path;
    for (int steps = 0; QFileInfo(step).isSymLink(); ++steps) {
        if (steps == mostLinks)
            return path;
        step = QFileInfo(step).symLinkTarget();
    }
    return step;
}

void makePrivateFile(const QString& path) {
    openPrivateFile(path);
}

void copyContent(int source, const QString& copy) {
    const auto file = openPrivateFile(copy);
    try {
        copyBytes(source, *file);
    } catch (...) {
        file->remove();
        throw;
    }
}

void makeAsStrict(const QString& copy, const QString& source) {
    QFile::setPermissions(copy,
                          QFile::permissions(copy) & QFile::permissions(source) & ownerRights);
}

void makePrivate(const QString& path) {
    if (QFile::exists(path))
        QFile::setPermissions(path, QFile::permissions(path) & ownerRights);
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
        QFile::setPermissions(finished, QFileInfo(target).permissions() & ownerRights);
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

void putFile(const QString& path, const QByteArray& bytes) {
    const QString target = behindLinks(path);
    const QString working = unfinishedName(target);
    QFile::remove(working); // of a run that was killed
    try {
        const auto file = openPrivateFile(working);
        writeWhole(*file, bytes.constData(), bytes.size());
        file->close();
        replaceFile(working, target);
    } catch (const EngineError& error) {
        QFile::remove(working);
        QString sentence = error.description(); // of the file that is meant
        sentence.replace(QDir::toNativeSeparators(working), QDir::toNativeSeparators(target));
        throw EngineError(error.number(), sentence);
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
