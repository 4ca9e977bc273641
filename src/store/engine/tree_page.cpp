#include "store/engine/tree_page.h"

#include <QStringDecoder>
#include <QtEndian>

#include <algorithm>
#include <bit>
#include <utility>

namespace dao {
namespace {

constexpr quint8 leafMark = 13;
constexpr quint8 interiorMark = 5;
constexpr qsizetype fileHeaderSize = 100;
constexpr qsizetype leafHeaderSize = 8;
constexpr qsizetype interiorHeaderSize = 12;
constexpr qsizetype smallestCell = 4;
constexpr quint64 longestRecord = quint64{1} << 31;
/// Types of values, beside those that tell a length from here on, even of bytes and odd of text.
constexpr quint64 firstLengthType = 12;

/// Bytes that are read from a place on; beyond their end everything is 0 and `isSound` false.
class PageBytes {
public:
    PageBytes(const QByteArray& bytes, qsizetype at) : m_bytes(bytes), m_at(at) {}

    bool isSound() const { return m_isSound; }
    qsizetype at() const { return m_at; }

    quint64 big(int width) {
        quint64 number = 0;
        for (int i = 0; i < width; ++i)
            number = number << 8 | next();
        return number;
    }
    /// A number of one to nine bytes: seven bits each, eight in the ninth.
    quint64 varint() {
        quint64 number = 0;
        for (int i = 0; i < 8; ++i) {
            const quint8 byte = next();
            number = number << 7 | (byte & 0x7f);
            if (byte < 0x80)
                return number;
        }
        return number << 8 | next();
    }

private:
    quint8 next() {
        if (m_at >= 0 && m_at < m_bytes.size())
            return static_cast<quint8>(m_bytes.at(m_at++));
        m_isSound = false;
        return 0;
    }

    const QByteArray& m_bytes;
    qsizetype m_at;
    bool m_isSound = true;
};

struct Extent {
    qsizetype begin = 0;
    qsizetype end = 0;
};

struct FoundCell {
    TreeCell cell;
    Extent extent;
};

/// How many bytes of a long record stand on the leaf itself.
qsizetype localSize(quint64 size, qsizetype usable) {
    const qsizetype most = usable - 35;
    if (size <= static_cast<quint64>(most))
        return static_cast<qsizetype>(size);
    const qsizetype least = (usable - 12) * 32 / 255 - 23;
    const auto rest = static_cast<qsizetype>((size - static_cast<quint64>(least)) %
                                             static_cast<quint64>(usable - 4));
    return least + rest <= most ? least + rest : least;
}

std::optional<FoundCell> readLeafCell(const QByteArray& page, qsizetype at) {
    PageBytes bytes(page, at);
    FoundCell found;
    found.cell.size = bytes.varint();
    found.cell.row = static_cast<qint64>(bytes.varint());
    if (!bytes.isSound() || found.cell.size == 0 || found.cell.size > longestRecord)
        return std::nullopt;
    const qsizetype local = localSize(found.cell.size, page.size());
    const bool goesOn = static_cast<quint64>(local) < found.cell.size;
    PageBytes behind(page, bytes.at() + local);
    if (goesOn)
        found.cell.overflow = static_cast<quint32>(behind.big(4));
    if (behind.at() > page.size() || !behind.isSound() || (goesOn && found.cell.overflow < 2))
        return std::nullopt;
    found.cell.local = page.mid(bytes.at(), local);
    found.extent = {at, std::max(behind.at(), at + smallestCell)};
    return found;
}

std::optional<FoundCell> readInteriorCell(const QByteArray& page, qsizetype at) {
    PageBytes bytes(page, at);
    FoundCell found;
    found.cell.child = static_cast<quint32>(bytes.big(4));
    found.cell.row = static_cast<qint64>(bytes.varint());
    if (!bytes.isSound() || found.cell.child < 2)
        return std::nullopt;
    found.extent = {at, bytes.at()};
    return found;
}

bool isInOrder(const QList<TreeCell>& cells) {
    return std::adjacent_find(cells.begin(), cells.end(), [](const auto& one, const auto& next) {
               return one.row >= next.row;
           }) == cells.end();
}

/// Takes out the cells that reach into each other. Answers the bytes of all that stay.
qsizetype dropOverlapping(QList<FoundCell>& cells) {
    QList<Extent> extents;
    for (const FoundCell& each : std::as_const(cells))
        extents += each.extent;
    std::sort(extents.begin(), extents.end(),
              [](const Extent& one, const Extent& other) { return one.begin < other.begin; });
    const auto overlaps = [&extents](const FoundCell& each) {
        const auto at = std::lower_bound(
            extents.begin(), extents.end(), each.extent.begin,
            [](const Extent& extent, qsizetype begin) { return extent.begin < begin; });
        const bool intoNext = std::next(at) != extents.end() && std::next(at)->begin < at->end;
        const bool fromBefore = at != extents.begin() && std::prev(at)->end > at->begin;
        return intoNext || fromBefore;
    };
    cells.removeIf(overlaps);
    qsizetype bytes = 0;
    for (const FoundCell& each : std::as_const(cells))
        bytes += each.extent.end - each.extent.begin;
    return bytes;
}

/// The bytes of the free room that a page lists; none where the list can't be right.
std::optional<qsizetype> freeRoom(const QByteArray& page, qsizetype first) {
    qsizetype bytes = 0;
    for (qsizetype at = first; at != 0;) {
        PageBytes block(page, at);
        const auto next = static_cast<qsizetype>(block.big(2));
        const auto size = static_cast<qsizetype>(block.big(2));
        if (!block.isSound() || size < smallestCell || at + size > page.size() ||
            (next != 0 && next < at + size))
            return std::nullopt;
        bytes += size;
        at = next;
    }
    return bytes;
}

/// The value of a type; none for one whose bytes are no text.
std::optional<Value> readValue(quint64 type, const QByteArray& bytes,
                               QStringConverter::Encoding encoding) {
    switch (type) {
    case 0:
        return Value();
    case 7:
        return Value(std::bit_cast<double>(qFromBigEndian<quint64>(bytes.constData())));
    case 8:
        return Value(0);
    case 9:
        return Value(1);
    default:
        break;
    }
    if (type < firstLengthType) {
        qint64 number = static_cast<signed char>(bytes.front());
        for (const char byte : bytes.sliced(1))
            number = number * 256 + static_cast<quint8>(byte);
        return Value(number);
    }
    if (type % 2 == 0)
        return Value(bytes);
    QStringDecoder decoder(encoding, QStringDecoder::Flag::Stateless |
                                         QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder.decode(bytes);
    if (decoder.hasError() || text.contains(QString(8, QChar()))) // a page that was made void
        return std::nullopt;
    return Value(std::move(text));
}

/// The bytes that a value of the type takes; none for a type that does not exist.
std::optional<quint64> sizeOfType(quint64 type) {
    constexpr quint64 sizes[] = {0, 1, 2, 3, 4, 6, 8, 8, 0, 0};
    if (type >= firstLengthType)
        return (type - firstLengthType) / 2;
    if (type >= std::size(sizes))
        return std::nullopt;
    return sizes[type];
}

} // namespace

TreePage readTreePage(const QByteArray& page, quint32 number) {
    TreePage read;
    const qsizetype start = number == 1 ? fileHeaderSize : 0;
    PageBytes header(page, start);
    const quint64 mark = header.big(1);
    if (mark != leafMark && mark != interiorMark)
        return read;
    read.kind = mark == leafMark ? TreePage::Leaf : TreePage::Interior;
    const auto freeBlock = static_cast<qsizetype>(header.big(2));
    const auto count = static_cast<qsizetype>(header.big(2));
    const auto toldContent = static_cast<qsizetype>(header.big(2));
    const qsizetype content = toldContent == 0 ? 65536 : toldContent;
    const auto fragments = static_cast<qsizetype>(header.big(1));
    const qsizetype pointers =
        start + (read.kind == TreePage::Leaf ? leafHeaderSize : interiorHeaderSize);
    if (read.kind == TreePage::Interior)
        read.lastChild = static_cast<quint32>(header.big(4));
    const qsizetype pointersEnd = pointers + 2 * count;

    QList<FoundCell> cells;
    PageBytes pointer(page, pointers);
    for (qsizetype i = 0; i < count && pointersEnd <= page.size(); ++i) {
        const auto at = static_cast<qsizetype>(pointer.big(2));
        auto cell =
            read.kind == TreePage::Leaf ? readLeafCell(page, at) : readInteriorCell(page, at);
        if (cell && at >= pointersEnd && cell->extent.end <= page.size())
            cells += *std::move(cell);
    }
    const qsizetype taken = dropOverlapping(cells);
    for (FoundCell& each : cells)
        read.cells += std::move(each.cell);
    const std::optional<qsizetype> room = freeRoom(page, freeBlock);
    read.isWhole = header.isSound() && cells.size() == count && pointersEnd <= content && room &&
                   content + taken + *room + fragments == page.size() && isInOrder(read.cells) &&
                   (read.kind == TreePage::Leaf || read.lastChild >= 2);
    if (!read.isWhole && read.kind == TreePage::Interior)
        read.cells.clear();
    return read;
}

QByteArray recordBytes(const TreeCell& cell, const PageReader& overflowPage) {
    QByteArray bytes = cell.local;
    for (quint32 number = cell.overflow; number != 0;) {
        const std::optional<QByteArray> page = overflowPage(number);
        if (!page)
            return bytes;
        const auto next = static_cast<quint32>(PageBytes(*page, 0).big(4));
        const quint64 missing = cell.size - static_cast<quint64>(bytes.size());
        const bool isLast = missing <= static_cast<quint64>(page->size() - 4);
        if (isLast != (next == 0)) // then it is no page of this record any more
            return bytes;
        bytes += page->mid(4, isLast ? static_cast<qsizetype>(missing) : -1);
        number = next;
    }
    return bytes;
}

std::optional<SalvagedRecord> readRecord(qint64 row, quint64 size, const QByteArray& bytes,
                                         QStringConverter::Encoding encoding) {
    PageBytes header(bytes, 0);
    const quint64 headerSize = header.varint();
    if (!header.isSound() || headerSize > static_cast<quint64>(bytes.size()))
        return std::nullopt;
    SalvagedRecord record{.row = row};
    quint64 at = headerSize;
    while (static_cast<quint64>(header.at()) < headerSize) {
        const quint64 type = header.varint();
        const std::optional<quint64> length = sizeOfType(type);
        if (!header.isSound() || !length || *length > size || at + *length > size)
            return std::nullopt;
        const bool isThere = at + *length <= static_cast<quint64>(bytes.size());
        const auto value =
            isThere
                ? readValue(type,
                            bytes.mid(static_cast<qsizetype>(at), static_cast<qsizetype>(*length)),
                            encoding)
                : std::nullopt;
        if (!value && record.begunValue.isNull())
            record.begunValue =
                bytes.mid(static_cast<qsizetype>(at), static_cast<qsizetype>(*length));
        record.lostValues += value ? 0 : 1;
        record.values += value.value_or(Value());
        at += *length;
    }
    if (static_cast<quint64>(header.at()) != headerSize || at != size)
        return std::nullopt;
    return record;
}

} // namespace dao
