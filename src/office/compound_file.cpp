#include "office/compound_file.h"

#include <QtEndian>

#include <utility>

namespace {

constexpr qsizetype CompoundEntry = 128; // bytes of an entry of the directory

/// Places in the header.
enum CompoundPlace {
    SectorShift = 30,
    DirectoryStart = 48,
    LeastWholeStream = 56, ///< shorter ones stand together in a stream of small pieces
    PiecesStart = 60,
    FurtherTableStart = 68,
    FirstTableSectors = 76,
};
constexpr int TableSectorsInHeader = 109;
constexpr int PieceSize = 64;

quint32 littleNumber(const QByteArray& bytes, qsizetype place) {
    return place >= 0 && place + 4 <= bytes.size()
               ? qFromLittleEndian<quint32>(bytes.constData() + place)
               : 0;
}

} // namespace

CompoundFile::CompoundFile(QByteArray bytes) : m_bytes(std::move(bytes)) {
    constexpr int usualShift = 9;
    constexpr int largeShift = 12;
    const int shift = static_cast<int>(number(SectorShift) & 0xFFFF);
    if (shift != usualShift && shift != largeShift)
        return;
    m_sectorSize = qsizetype(1) << shift;
    readTable();
}

quint32 CompoundFile::number(qsizetype place) const {
    return littleNumber(m_bytes, place);
}

QByteArray CompoundFile::sector(quint32 index) const {
    const qsizetype start = (static_cast<qsizetype>(index) + 1) * m_sectorSize; // behind the header
    return m_sectorSize > 0 && start < m_bytes.size() ? m_bytes.mid(start, m_sectorSize)
                                                      : QByteArray();
}

/// The table of what follows each sector stands in sectors itself: which, says the header, and
/// for large files a chain of further ones whose last number leads on.
void CompoundFile::readTable() {
    QList<quint32> sectors;
    for (int i = 0; i < TableSectorsInHeader; ++i)
        sectors += number(FirstTableSectors + 4 * i);
    const qsizetype most = m_bytes.size() / m_sectorSize;
    QByteArray further = sector(number(FurtherTableStart));
    for (qsizetype count = 0; further.size() == m_sectorSize && count < most; ++count) {
        for (qsizetype place = 0; place < m_sectorSize - 4; place += 4)
            sectors += littleNumber(further, place);
        further = sector(littleNumber(further, m_sectorSize - 4));
    }
    for (const quint32 index : std::as_const(sectors)) {
        const QByteArray table = sector(index);
        if (m_next.size() > most || table.isEmpty()) // unused ones are no sector's number
            break;
        for (qsizetype place = 0; place + 4 <= table.size(); place += 4)
            m_next += littleNumber(table, place);
    }
}

QByteArray CompoundFile::chain(quint32 first) const {
    QByteArray bytes;
    quint32 index = first;
    for (qsizetype count = 0; count < m_next.size() && index < m_next.size(); ++count) {
        bytes += sector(index);
        index = m_next[index];
    }
    return bytes;
}

QByteArray CompoundFile::ofPieces(quint32 first, qsizetype size, quint32 piecesStart) const {
    const QByteArray pieces = chain(piecesStart);
    const QByteArray table = chain(number(PiecesStart));
    QByteArray bytes;
    qsizetype piece = first;
    while (bytes.size() < size && piece * PieceSize < pieces.size()) {
        bytes += pieces.mid(piece * PieceSize, PieceSize);
        piece = 4 * piece + 4 <= table.size() ? littleNumber(table, 4 * piece) : pieces.size();
    }
    return bytes.left(size);
}

QByteArray CompoundFile::stream(QStringView name) const {
    constexpr int nameLength = 64; // places in an entry, as the next
    constexpr int start = 116;
    constexpr int size = 120;
    const QByteArray directory = chain(number(DirectoryStart));
    for (qsizetype entry = 0; entry + CompoundEntry <= directory.size(); entry += CompoundEntry) {
        const qsizetype length = (littleNumber(directory, entry + nameLength) & 0xFFFF) / 2 - 1;
        const auto* letters = reinterpret_cast<const char16_t*>(directory.constData() + entry);
        if (length != name.size() || QStringView(letters, length) != name)
            continue;
        const quint32 first = littleNumber(directory, entry + start);
        const quint32 bytes = littleNumber(directory, entry + size);
        const QByteArray found =
            bytes >= number(LeastWholeStream)
                ? chain(first).left(bytes)
                : ofPieces(first, bytes, littleNumber(directory, start)); // the root's own
        return found.size() == bytes ? found : QByteArray();
    }
    return {};
}
