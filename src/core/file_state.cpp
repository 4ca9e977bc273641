#include "core/file_state.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>

using namespace Qt::StringLiterals;

namespace {

/// Opening and closing a file once more drops the locks that the database library holds on it for
/// this process, so a file of our own is recognised without touching it.
bool isOpenHere(const QString& path) {
    const QString wanted = QFileInfo(path).canonicalFilePath();
    const QFileInfoList open = QDir(u"/proc/self/fd"_s).entryInfoList(QDir::Files | QDir::System);
    return std::any_of(open.begin(), open.end(),
                       [&](const QFileInfo& entry) { return entry.symLinkTarget() == wanted; });
}

bool isLockedElsewhere(int descriptor) {
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK;
    ::flock(descriptor, LOCK_UN);
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    return ::fcntl(descriptor, F_OFD_GETLK, &whole) == 0 && whole.l_type != F_UNLCK;
}

} // namespace

bool FileExists(const QString& path) {
    return !path.isEmpty() && QFileInfo::exists(path);
}

bool FileLocked(const QString& path) {
    if (!FileExists(path))
        return false;
    if (isOpenHere(path))
        return true;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && isLockedElsewhere(file.handle());
}

QString FileSizeText(const QString& path) {
    return QString::number(QFileInfo(path).size());
}
