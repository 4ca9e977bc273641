#include "store/engine/open_file.h"

#include "store/engine/error.h"
#include "store/engine/files.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <map>

using namespace Qt::StringLiterals;

namespace dao {

/// The files that this process has open. One a process, as the lock that it keeps is the process's.
struct OpenFileRegistry {
    static std::map<OpenFile::Identity, std::weak_ptr<OpenFile>>& files() {
        static std::map<OpenFile::Identity, std::weak_ptr<OpenFile>> all;
        return all;
    }
};

namespace {

EngineError openError(int cause) {
    if (cause == ENOENT || cause == ENOTDIR)
        return {NoSuchFile, u"The file could not be found."_s};
    return {CannotOpenFile, u"The file could not be opened."_s};
}

/// Takes the file's lock. False when another process has it. A file system without such locks is no
/// reason to keep a teacher from the year: the database library's own locks still guard each write.
bool takeLock(int descriptor) {
    int result = 0;
    do {
        result = ::flock(descriptor, LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    return result == 0 || (errno != EWOULDBLOCK && errno != EACCES); // EACCES: some network shares
}

/// A file descriptor that closes by itself until it is taken.
struct Descriptor {
    int value;
    ~Descriptor() {
        if (value >= 0)
            ::close(value);
    }
    int take() { return std::exchange(value, -1); }
};

} // namespace

OpenFile::OpenFile(int descriptor, Identity identity)
    : m_descriptor(descriptor), m_identity(identity) {}

OpenFile::~OpenFile() {
    OpenFileRegistry::files().erase(m_identity);
    ::close(m_descriptor);
}

OpenFile::Identity OpenFile::identify(int descriptor) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0)
        throw openError(errno);
    if (!S_ISREG(status.st_mode))
        throw openError(EISDIR);
    return {status.st_dev, status.st_ino};
}

std::shared_ptr<OpenFile> OpenFile::acquire(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    struct stat status {};
    if (::stat(name.constData(), &status) != 0)
        throw openError(errno);
    // Where this process has the file, no second descriptor is opened: closing one would drop the
    // locks that the database library holds on it.
    const auto known = OpenFileRegistry::files().find({status.st_dev, status.st_ino});
    if (known != OpenFileRegistry::files().end()) {
        if (auto file = known->second.lock())
            return file;
    }
    if (!S_ISREG(status.st_mode))
        throw openError(EISDIR);

    Descriptor descriptor{::open(name.constData(), O_RDONLY | O_CLOEXEC)};
    if (descriptor.value < 0)
        throw openError(errno);
    const Identity identity = identify(descriptor.value);
    if (!takeLock(descriptor.value))
        throw EngineError(OpenedExclusively, u"The file is already open in another program."_s);
    std::shared_ptr<OpenFile> file(new OpenFile(descriptor.take(), identity));
    OpenFileRegistry::files()[identity] = file;
    return file;
}

QByteArray OpenFile::read(qsizetype count, qint64 from) const {
    QByteArray bytes(count, Qt::Uninitialized);
    qsizetype done = 0;
    while (done < count) {
        const ssize_t got =
            ::pread(m_descriptor, bytes.data() + done, static_cast<size_t>(count - done),
                    static_cast<off_t>(from + done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throw EngineError(DiskError, u"The file could not be read."_s);
        if (got == 0)
            break;
        done += got;
    }
    bytes.truncate(done);
    return bytes;
}

qint64 OpenFile::size() const {
    struct stat status {};
    return ::fstat(m_descriptor, &status) == 0 ? status.st_size : 0;
}

bool OpenFile::isAt(const QString& path) const {
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 &&
           Identity{status.st_dev, status.st_ino} == m_identity;
}

bool OpenFile::hasOtherNames() const {
    struct stat status {};
    return ::fstat(m_descriptor, &status) == 0 && status.st_nlink > 1;
}

void OpenFile::copyInto(const QString& path) const {
    copyContent(m_descriptor, path);
}

} // namespace dao
