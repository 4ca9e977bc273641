#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>

namespace dao {

/// A file that this process has open: the lock that keeps other processes off it, and which of its
/// tables are in use by recordsets. All handles on one file share it.
///
/// The lock is one of the file's own (`flock`): it goes with the process, also under a kill, and
/// leaves nothing behind. It is apart from the locks that the database library takes on the file,
/// which are all there is on a file system that knows no locks of this kind.
class OpenFile {
public:
    /// Takes the lock, or shares it where this process has it. Raises 3024 for no such file, 3051
    /// when it can't be opened, 3356 when another process has it.
    static std::shared_ptr<OpenFile> acquire(const QString& path);
    ~OpenFile();
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    /// Bytes of the file from a place on, fewer where it ends. Read through the lock's own handle:
    /// opening and closing another would drop the database library's locks.
    QByteArray read(qsizetype count, qint64 from = 0) const;
    qint64 size() const;
    /// Whether the path still leads to this file: it may have been moved, deleted or replaced.
    bool isAt(const QString& path) const;
    /// Whether the file has another name beside the one it was opened by (a hard link).
    bool hasOtherNames() const;
    /// Copies the whole file, as copyContent does; also one that has no name any more.
    void copyInto(const QString& path) const;

    int handles = 0; ///< how many databases are open on the file
    quint64 changes =
        0; ///< counts the changes of records, so that what was read ahead is known stale
    /// How many open recordsets have a table in use, by its folded name.
    QHash<QString, int> tablesInUse;

private:
    struct Identity {
        quint64 device;
        quint64 inode;
        auto operator<=>(const Identity&) const = default;
    };
    OpenFile(int descriptor, Identity identity);
    static Identity identify(int descriptor);
    friend struct OpenFileRegistry;

    int m_descriptor;
    Identity m_identity;
};

} // namespace dao
