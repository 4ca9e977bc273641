#include "office/xls_formulas.h"

#include "office/compound_file.h"
#include "office/number_format.h"
#include "richtext/code_pages.h"

#include <QtEndian>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

enum BiffKind : quint16 {
    BiffFormula = 0x0006,
    BiffEnd = 0x000A,
    BiffFrom1904 = 0x0022,
    BiffSheet = 0x0085,
    BiffStyle = 0x00E0,
    BiffTruth = 0x0205, ///< or an error
    BiffText = 0x0207,
    BiffFormat = 0x041E,
    BiffBegin = 0x0809,
};

/// A record of a workbook; what is asked of it beyond its end is 0.
struct BiffRecord {
    quint16 kind = 0;
    QByteArrayView data;

    quint8 byte(qsizetype place) const {
        return place < data.size() ? static_cast<quint8>(data[place]) : 0;
    }
    quint16 number(qsizetype place) const {
        return static_cast<quint16>(byte(place) | byte(place + 1) << 8);
    }
    quint32 longNumber(qsizetype place) const {
        return number(place) | static_cast<quint32>(number(place + 2)) << 16;
    }
};

class BiffRecords {
public:
    BiffRecords(QByteArrayView stream, qsizetype place) : m_stream(stream), m_place(place) {}

    std::optional<BiffRecord> next() {
        constexpr qsizetype head = 4;
        if (m_place < 0 || m_place + head > m_stream.size())
            return std::nullopt;
        const BiffRecord header{0, m_stream.sliced(m_place, head)};
        const qsizetype size = header.number(2);
        if (m_place + head + size > m_stream.size())
            return std::nullopt;
        const BiffRecord record{header.number(0), m_stream.sliced(m_place + head, size)};
        m_place += head + size;
        return record;
    }

private:
    QByteArrayView m_stream;
    qsizetype m_place;
};

constexpr quint16 Biff8 = 0x0600;

/// A text of a record from its length on; the length takes one byte or two.
QString biffText(const BiffRecord& record, qsizetype place, int lengthBytes, bool isBiff8) {
    const qsizetype length = lengthBytes == 1 ? record.byte(place) : record.number(place);
    qsizetype start = place + lengthBytes;
    const bool isWide = isBiff8 && (record.byte(start) & 1) != 0;
    start += isBiff8 ? 1 : 0;
    const qsizetype bytes = std::min(isWide ? 2 * length : length, record.data.size() - start);
    if (bytes <= 0)
        return {};
    const QByteArrayView text = record.data.sliced(start, bytes);
    if (!isBiff8)
        return richtext::decode(richtext::westernCodePage, text);
    if (!isWide)
        return QString::fromLatin1(text);
    QString wide;
    for (qsizetype i = 0; i + 1 < bytes; i += 2)
        wide += QChar(record.number(start + i));
    return wide;
}

/// What is true of the whole workbook.
struct BiffWorkbook {
    NumberFormats formats;
    bool isBiff8 = false;
    qsizetype firstSheet = -1; ///< its place in the stream
};

BiffWorkbook readBiffWorkbook(QByteArrayView stream) {
    BiffWorkbook book;
    BiffRecords records(stream, 0);
    while (const auto record = records.next()) {
        const bool isCells = record->kind == BiffSheet && record->byte(5) == 0;
        if (record->kind == BiffBegin)
            book.isBiff8 = record->number(0) == Biff8;
        else if (record->kind == BiffFrom1904)
            book.formats.from1904 = record->number(0) != 0;
        else if (record->kind == BiffFormat)
            book.formats.codes[record->number(0)] =
                biffText(*record, 2, book.isBiff8 ? 2 : 1, book.isBiff8);
        else if (record->kind == BiffStyle)
            book.formats.cells += record->number(2);
        else if (isCells && book.firstSheet < 0)
            book.firstSheet = record->longNumber(0);
        else if (record->kind == BiffEnd)
            break;
    }
    return book;
}

/// Takes the formulas' records as they come; the text of one follows in a record of its own.
class BiffFormulas {
public:
    BiffFormulas(const BiffWorkbook& book, SheetCells& cells) : m_book(book), m_cells(cells) {}

    void take(const BiffRecord& record) {
        if (record.kind == BiffFormula)
            takeFormula(record);
        else if (record.kind == BiffText && m_textWanted)
            takeText(record);
        else if (record.kind == BiffTruth && record.byte(truth + 1) == 0)
            m_cells.setTruth(record.number(0), record.number(2), record.byte(truth) != 0);
    }

private:
    static constexpr qsizetype style = 4; ///< places in a cell's record, as the next
    static constexpr qsizetype result = 6;
    static constexpr qsizetype truth = 6;

    void takeFormula(const BiffRecord& record) {
        enum { Text = 0, Truth = 1 }; // of the results that are no numbers
        m_row = record.number(0);
        m_column = record.number(2);
        const bool isWhole = record.data.size() >= result + qsizetype(sizeof(double));
        const bool isNumber = record.number(result + 6) != 0xFFFF;
        m_textWanted = !isNumber && record.byte(result) == Text;
        if (isWhole && isNumber)
            m_book.formats.put(m_cells, m_row, m_column,
                               qFromLittleEndian<double>(record.data.sliced(result).data()),
                               record.number(style));
        else if (record.byte(result) == Truth)
            m_cells.setTruth(m_row, m_column, record.byte(result + 2) != 0);
    }

    void takeText(const BiffRecord& record) {
        m_cells.setText(m_row, m_column, biffText(record, 0, 2, m_book.isBiff8));
        m_textWanted = false;
    }

    const BiffWorkbook& m_book;
    SheetCells& m_cells;
    int m_row = 0;
    int m_column = 0;
    bool m_textWanted = false;
};

} // namespace

void readXlsFormulas(const QByteArray& file, SheetCells& cells) {
    const CompoundFile container(file);
    QByteArray stream = container.stream(u"Workbook");
    if (stream.isEmpty())
        stream = container.stream(u"Book");
    const BiffWorkbook book = readBiffWorkbook(stream);
    BiffFormulas formulas(book, cells);
    BiffRecords records(stream, book.firstSheet);
    int depth = 0; // a chart in a sheet has records of its own
    while (const auto record = records.next()) {
        if (record->kind == BiffBegin)
            ++depth;
        else if (record->kind == BiffEnd && --depth == 0)
            break;
        else if (depth == 1)
            formulas.take(*record);
    }
}
