#include "store/engine/file_kind.h"

#include "store/engine/copy.h"
#include "store/engine/database_core.h"
#include "store/engine/error.h"
#include "store/engine/files.h"
#include "store/engine/jet_reader.h"
#include "store/engine/page_file.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

/// A change of the file that was cut off, which is undone when the file is next opened.
bool hasJournal(const QString& path) {
    return QFileInfo(path + u"-journal"_s).size() > 0;
}

} // namespace

FileKind kindOf(const OpenFile& file, const QString& path) {
    const QByteArray start = file.read(headerBytes);
    if (isPlainHeader(start))
        return FileKind::Plain;
    if (isJetHeader(start))
        return FileKind::Jet;
    const bool isWhole = file.size() % PageCipher::PageSize == 0 || hasJournal(path);
    return isWhole && file.size() >= PageCipher::PageSize && looksLikeNoise(start)
               ? FileKind::Protected
               : FileKind::Foreign;
}

bool mayBeProtected(const OpenFile& file) {
    constexpr int oneIn = 4;
    const QByteArray start = file.read(headerBytes);
    qsizetype noisy = 0;
    qsizetype pages = 0;
    for (; (pages + 1) * PageCipher::PageSize <= start.size(); ++pages)
        noisy += looksLikeNoise(start.mid(pages * PageCipher::PageSize, PageCipher::PageSize));
    return noisy > 0 && noisy * oneIn >= pages;
}

bool hasWholePages(const OpenFile& file, FileKind kind) {
    const int size =
        kind == FileKind::Protected ? PageCipher::PageSize : pageSizeOf(file.read(headerBytes));
    return size == 0 || file.size() % size == 0;
}

QString passwordOf(const QString& connect) {
    const QString key = u";pwd="_s;
    const qsizetype start = connect.indexOf(key, 0, Qt::CaseInsensitive);
    return start < 0 ? QString() : connect.mid(start + key.size());
}

QString checkedPath(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists())
        throw EngineError(NoSuchFile, u"The file could not be found."_s);
    if (!info.isFile() || !info.isReadable())
        throw EngineError(CannotOpenFile, u"The file could not be opened."_s);
    return behindLinks(info.absoluteFilePath());
}

void checkWritable(const QString& path) {
    if (!QFileInfo(path).isWritable())
        throw EngineError(CannotOpenFile, u"The file could not be opened for writing."_s);
}

void connectOwnFile(DatabaseCore& core, FileKind kind) {
    if (kind == FileKind::Foreign)
        throw EngineError(DamagedDatabase, u"The file is not a database, or it is damaged."_s);
    if (kind == FileKind::Plain)
        core.password.clear();
    else if (core.password.isEmpty())
        throw EngineError(WrongPassword, u"A password is needed."_s);
    try {
        core.connection = Connection(core.path, Connection::Mode::Existing, core.password);
    } catch (const EngineError& error) {
        if (error.number() != WrongPassword)
            throw;
        if (isDamagedUnder(core.password, core.file))
            throw EngineError(DamagedDatabase, u"The file is damaged."_s);
        throw EngineError(WrongPassword, u"The password is wrong, or the file is damaged."_s);
    }
}

} // namespace dao
