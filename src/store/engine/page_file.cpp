#include "store/engine/page_file.h"

#include "store/engine/tree_page.h"

#include <algorithm>
#include <utility>

namespace dao {
namespace {

constexpr qsizetype headerSize = 100;
/// So many pages tell of what size they are, and whether a password is theirs.
constexpr quint32 sampledPages = 256;

quint8 byteAt(const QByteArray& bytes, qsizetype at) {
    return static_cast<quint8>(bytes.at(at));
}

} // namespace

int pageSizeOf(const QByteArray& header) {
    if (header.size() < headerSize || byteAt(header, 21) != 64 || byteAt(header, 22) != 32 ||
        byteAt(header, 23) != 32)
        return 0;
    const int told = byteAt(header, 16) * 256 + byteAt(header, 17);
    const int size = told == 1 ? 65536 : told;
    return size >= 512 && (size & (size - 1)) == 0 ? size : 0;
}

PageFile::PageFile(std::shared_ptr<OpenFile> file, int pageSize, int reserved)
    : m_file(std::move(file))
    , m_pageSize(pageSize)
    , m_reserved(reserved)
    , m_count(static_cast<quint32>(std::min<qint64>(m_file->size() / pageSize, 0x7fffffff))) {}

void PageFile::readHeader() {
    const QByteArray header = page(1).value_or(QByteArray());
    if (pageSizeOf(header) == 0)
        return;
    switch (byteAt(header, 59)) {
    case 2:
        m_encoding = QStringConverter::Utf16LE;
        break;
    case 3:
        m_encoding = QStringConverter::Utf16BE;
        break;
    default:
        break;
    }
}

std::optional<PageFile> PageFile::plain(std::shared_ptr<OpenFile> file) {
    const QByteArray header = file->read(headerSize);
    if (const int size = pageSizeOf(header); size > 0) {
        PageFile pages(std::move(file), size, std::min<int>(byteAt(header, 20), size / 4));
        pages.readHeader();
        return pages;
    }
    std::optional<PageFile> best;
    qint64 mostBytes = 0;
    for (const int size : {4096, 1024, 2048, 8192, 512, 16384, 32768, 65536}) {
        PageFile pages(file, size, 0);
        qint64 bytes = 0;
        for (quint32 number = 2; number <= std::min(pages.count(), sampledPages); ++number) {
            const TreePage page = readTreePage(*pages.page(number), number);
            bytes += page.isWhole && !page.cells.isEmpty() ? size : 0;
        }
        if (bytes > mostBytes) {
            mostBytes = bytes;
            best = pages;
        }
    }
    return best;
}

std::optional<PageFile> PageFile::protectedBy(const QString& password,
                                              std::shared_ptr<OpenFile> file) {
    if (file->size() < PageCipher::PageSize)
        return std::nullopt;
    PageFile pages(std::move(file), PageCipher::PageSize, PageCipher::Reserved);
    pages.m_cipher = std::make_shared<PageCipher>(password, pages.stored(1));
    const quint32 step = std::max(pages.count() / sampledPages, quint32(1));
    for (quint32 number = 1; number <= pages.count(); number += step) {
        if (pages.m_cipher->isWhole(number, pages.stored(number))) {
            pages.readHeader();
            return pages;
        }
    }
    return std::nullopt;
}

QByteArray PageFile::stored(quint32 number) const {
    return m_file->read(m_pageSize, static_cast<qint64>(number - 1) * m_pageSize);
}

std::optional<QByteArray> PageFile::page(quint32 number) const {
    if (number < 1 || number > m_count)
        return std::nullopt;
    QByteArray bytes = stored(number);
    if (m_cipher) {
        std::optional<QByteArray> clear = m_cipher->clear(number, bytes);
        if (!clear)
            return std::nullopt;
        bytes = *std::move(clear);
    }
    if (bytes.size() != m_pageSize)
        return std::nullopt;
    bytes.truncate(usable());
    return bytes;
}

bool isDamagedUnder(const QString& password, const std::shared_ptr<OpenFile>& file) {
    return PageFile::protectedBy(password, file).has_value();
}

} // namespace dao
