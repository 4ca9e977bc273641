#include "richtext/object_files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <utility>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

const QString folderPattern = u"objects-*"_s;

QString lockOf(const QString& folder) {
    return folder + u"/lock"_s;
}

/// The last part of the name, whatever system it comes from, with nothing in it that a file system
/// or another program may take for something else.
QString safeName(const QString& name) {
    QString last = name.section(u'/', -1).section(u'\\', -1);
    for (QChar& c : last) {
        if (!c.isPrint() || QStringView(u":*?\"<>|").contains(c))
            c = u'_';
    }
    while (last.startsWith(u'.') || last.startsWith(u'-'))
        last.remove(0, 1);
    constexpr qsizetype longest = 80; // even where each character takes three bytes
    last = last.right(longest).trimmed();
    return last.isEmpty() ? u"object"_s : last;
}

} // namespace

ObjectFiles::ObjectFiles(QString place, QObject* parent)
    : QObject(parent), m_place(std::move(place)) {}

ObjectFiles::~ObjectFiles() {
    m_lock.reset();
}

ObjectFiles& ObjectFiles::ofProcess(const QString& place) {
    QObject* application = QCoreApplication::instance();
    for (QObject* child : application->children()) {
        if (auto* files = dynamic_cast<ObjectFiles*>(child))
            return *files;
    }
    return *new ObjectFiles(place, application);
}

void ObjectFiles::removeLeftovers(const QString& place) {
    const QDir folder(place);
    for (const QString& name : folder.entryList({folderPattern}, QDir::Dirs)) {
        QLockFile lock(lockOf(folder.filePath(name)));
        if (!lock.tryLock(0))
            continue;
        lock.unlock();
        QDir(folder.filePath(name)).removeRecursively();
    }
}

bool ObjectFiles::makeFolder() {
    if (m_folder)
        return m_folder->isValid();
    QDir().mkpath(m_place);
    m_folder = std::make_unique<QTemporaryDir>(QDir(m_place).filePath(u"objects-XXXXXX"_s));
    m_lock = std::make_unique<QLockFile>(lockOf(m_folder->path()));
    m_lock->setStaleLockTime(0);
    return m_folder->isValid() && m_lock->tryLock(0);
}

QString ObjectFiles::write(const EmbeddedObject& package) {
    if (!makeFolder())
        return {};
    // A folder a file: two files of one name, and the same one opened again, do not meet.
    const QDir folder(m_folder->filePath(QString::number(++m_count)));
    if (!folder.mkpath(u"."_s))
        return {};
    QFile file(folder.filePath(safeName(package.name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(package.content) != package.content.size() ||
        !file.flush() || !file.setPermissions(QFile::ReadOwner)) {
        file.remove();
        return {};
    }
    return file.fileName();
}

} // namespace richtext
