#include "office/xls_reader.h"

#include "office/biff_stream.h"
#include "office/compound_file.h"
#include "office/number_format.h"
#include "richtext/code_pages.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// A record of a workbook; what is asked of it beyond its end is 0.
struct BiffRecord {
    Biff kind{};
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
    double real(qsizetype place) const {
        return std::bit_cast<double>(longNumber(place) | static_cast<quint64>(longNumber(place + 4))
                                                             << 32);
    }
};

class BiffRecords {
public:
    BiffRecords(QByteArrayView stream, qsizetype place) : m_stream(stream), m_place(place) {}

    std::optional<BiffRecord> next() {
        constexpr qsizetype head = 4;
        if (m_place < 0 || m_place + head > m_stream.size())
            return std::nullopt;
        const BiffRecord header{{}, m_stream.sliced(m_place, head)};
        const qsizetype size = header.number(2);
        if (m_place + head + size > m_stream.size())
            return std::nullopt;
        const BiffRecord record{Biff{header.number(0)}, m_stream.sliced(m_place + head, size)};
        m_place += head + size;
        return record;
    }

private:
    QByteArrayView m_stream;
    qsizetype m_place;
};

QString wideText(QByteArrayView bytes) {
    QString text(bytes.size() / 2, Qt::Uninitialized);
    qFromLittleEndian<quint16>(bytes.data(), text.size(), text.data());
    return text;
}

/// The texts of a workbook: a record that goes on in others, wherever one is full. The first byte
/// of the next says anew how wide the characters of a text are.
class SharedTextRecords {
public:
    explicit SharedTextRecords(const QList<QByteArrayView>& records) : m_records(records) {}

    QStringList texts() {
        constexpr qsizetype counts = 8;
        QStringList texts;
        skip(counts);
        while (hasMore())
            texts += text();
        return texts;
    }

private:
    enum TextFlag { Wide = 1, Spoken = 4, Formatted = 8 };

    bool hasMore() {
        while (m_rest.isEmpty() && !m_records.isEmpty())
            m_rest = m_records.takeFirst();
        return !m_rest.isEmpty();
    }
    QByteArrayView take(qsizetype most) {
        const QByteArrayView bytes = m_rest.first(std::min(most, m_rest.size()));
        m_rest = m_rest.sliced(bytes.size());
        return bytes;
    }
    quint32 number(int bytes) {
        quint32 value = 0;
        for (int byte = 0; byte < bytes && hasMore(); ++byte)
            value |= static_cast<quint32>(static_cast<quint8>(take(1)[0])) << 8 * byte;
        return value;
    }
    void skip(qsizetype bytes) {
        for (; bytes > 0 && hasMore(); bytes -= take(bytes).size()) {
        }
    }

    QString text() {
        constexpr qsizetype bytesOfRun = 4;
        const qsizetype length = number(2);
        quint32 flags = number(1);
        const qsizetype runs = flags & Formatted ? number(2) : 0;
        const qsizetype spoken = flags & Spoken ? number(4) : 0;
        QString text;
        while (text.size() < length) {
            const qsizetype left = length - text.size();
            text += flags & Wide ? wideText(take(2 * left)) : QString::fromLatin1(take(left));
            if (text.size() == length || !hasMore())
                break;
            flags = number(1);
        }
        skip(bytesOfRun * runs + spoken);
        return text;
    }

    QList<QByteArrayView> m_records;
    QByteArrayView m_rest; ///< of the current one
};

/// What is true of the whole workbook.
struct BiffWorkbook {
    NumberFormats formats;
    QStringList texts;
    int codePage = richtext::westernCodePage; ///< before BIFF8, whose texts need none
    bool isBiff8 = false;
    bool isEncrypted = false;
    qsizetype firstSheet = -1; ///< its place in the stream; of those that show, if any does
    bool isHidden = false;     ///< it

    /// A text of a record from its length on; the length takes one byte or two.
    QString text(const BiffRecord& record, qsizetype place, int lengthBytes) const {
        const qsizetype length = lengthBytes == 1 ? record.byte(place) : record.number(place);
        qsizetype start = place + lengthBytes;
        const bool isWide = isBiff8 && (record.byte(start) & 1) != 0;
        start += isBiff8 ? 1 : 0;
        const qsizetype bytes = std::min(isWide ? 2 * length : length, record.data.size() - start);
        if (bytes <= 0)
            return {};
        const QByteArrayView text = record.data.sliced(start, bytes);
        if (!isBiff8)
            return richtext::decode(codePage, text);
        return isWide ? wideText(text) : QString::fromLatin1(text);
    }

    void take(const BiffRecord& record) {
        constexpr int biff8 = 0x0600;
        constexpr int bareSheet = 0x0010; // without a workbook around it
        constexpr int cells = 0;
        if (record.kind == Biff::Beginning) {
            isBiff8 = record.number(0) == biff8;
            firstSheet = record.number(2) == bareSheet ? 0 : -1;
        } else if (record.kind == Biff::Encryption)
            isEncrypted = true;
        else if (record.kind == Biff::CodePage)
            codePage = richtext::knownCodePage(record.number(0));
        else if (record.kind == Biff::DateMode)
            formats.from1904 = record.number(0) != 0;
        else if (record.kind == Biff::Format)
            formats.codes[record.number(0)] = text(record, 2, isBiff8 ? 2 : 1);
        else if (record.kind == Biff::ExtendedFormat)
            formats.cells += record.number(2);
        else if (record.kind == Biff::BoundSheet && record.byte(5) == cells)
            takeSheet(record);
    }

    void takeSheet(const BiffRecord& record) {
        constexpr int hidings = 3;
        const bool hides = (record.byte(4) & hidings) != 0;
        if (firstSheet >= 0 && (!isHidden || hides))
            return;
        firstSheet = record.longNumber(0);
        isHidden = hides;
    }
};

BiffWorkbook readBiffWorkbook(QByteArrayView stream) {
    BiffWorkbook book;
    QList<QByteArrayView> texts;
    Biff last{};
    BiffRecords records(stream, 0);
    while (const auto record = records.next()) {
        if (record->kind == Biff::Eof || book.isEncrypted)
            break;
        if (record->kind != Biff::Continue)
            last = record->kind;
        if (last == Biff::SharedStrings)
            texts += record->data;
        book.take(*record);
    }
    book.texts = SharedTextRecords(texts).texts();
    return book;
}

/// Takes the cells' records as they come; the text of a formula follows in a record of its own.
class BiffCells {
public:
    BiffCells(const BiffWorkbook& book, SheetCells& cells) : m_book(book), m_cells(cells) {}

    void take(const BiffRecord& record) {
        const int row = record.number(0);
        const int column = record.number(2);
        switch (record.kind) {
        case Biff::Number:
            return put(row, column, record.real(content), record.number(style));
        case Biff::ShortNumber:
            return put(row, column, shortNumber(record.longNumber(content)), record.number(style));
        case Biff::ShortNumbers:
            return takeShortNumbers(record);
        case Biff::SharedString:
            return m_cells.setText(row, column, m_book.texts.value(record.longNumber(content)));
        case Biff::Label:
        case Biff::FormattedLabel:
            return m_cells.setText(row, column, m_book.text(record, content, 2));
        case Biff::Truth:
            return takeTruth(record);
        case Biff::Formula:
            return takeFormula(record);
        case Biff::FormulaText:
            return takeFormulaText(record);
        default:
            return;
        }
    }

private:
    static constexpr qsizetype style = 4; ///< places in a cell's record, as the next
    static constexpr qsizetype content = 6;

    void put(int row, int column, double number, qsizetype styleOfCell) {
        m_book.formats.put(m_cells, row, column, number, styleOfCell);
    }

    /// A whole number, or the upper half of a real one; either may be given in hundredths.
    static double shortNumber(quint32 bits) {
        enum { Hundredths = 1, Whole = 2, Flags = 3 };
        const double number =
            bits & Whole
                ? static_cast<qint32>(bits) >> 2
                : std::bit_cast<double>(static_cast<quint64>(bits & ~quint32(Flags)) << 32);
        return bits & Hundredths ? number / 100 : number;
    }

    /// Of neighbouring cells, each with its style.
    void takeShortNumbers(const BiffRecord& record) {
        constexpr qsizetype start = 4;
        constexpr qsizetype each = 6;
        constexpr qsizetype lastColumn = 2; // stands behind them
        int column = record.number(2);
        for (qsizetype place = start; place + each + lastColumn <= record.data.size();
             place += each)
            put(record.number(0), column++, shortNumber(record.longNumber(place + 2)),
                record.number(place));
    }

    void takeTruth(const BiffRecord& record) {
        const bool isError = record.byte(content + 1) != 0;
        if (!isError)
            m_cells.setTruth(record.number(0), record.number(2), record.byte(content) != 0);
    }

    void takeFormula(const BiffRecord& record) {
        enum { Text = 0, Truth = 1 }; // of the results that are no numbers
        m_row = record.number(0);
        m_column = record.number(2);
        const bool isWhole = record.data.size() >= content + qsizetype(sizeof(double));
        const bool isNumber = record.number(content + 6) != 0xFFFF;
        m_textWanted = !isNumber && record.byte(content) == Text;
        if (isWhole && isNumber)
            put(m_row, m_column, record.real(content), record.number(style));
        else if (record.byte(content) == Truth)
            m_cells.setTruth(m_row, m_column, record.byte(content + 2) != 0);
    }

    void takeFormulaText(const BiffRecord& record) {
        if (m_textWanted)
            m_cells.setText(m_row, m_column, m_book.text(record, 0, 2));
        m_textWanted = false;
    }

    const BiffWorkbook& m_book;
    SheetCells& m_cells;
    int m_row = 0; ///< of the last formula
    int m_column = 0;
    bool m_textWanted = false;
};

/// The records of a workbook; some programs write a sheet without a container around it.
QByteArray xlsStream(const QByteArray& file) {
    if (file.startsWith("\x09\x08"))
        return file;
    const CompoundFile container(file);
    const QByteArray stream = container.stream(u"Workbook");
    return stream.isEmpty() ? container.stream(u"Book") : stream;
}

} // namespace

bool readXls(const QByteArray& file, SheetCells& cells) {
    const QByteArray stream = xlsStream(file);
    const BiffWorkbook book = readBiffWorkbook(stream);
    if (book.isEncrypted)
        return false;
    BiffCells sheet(book, cells);
    BiffRecords records(stream, book.firstSheet);
    int depth = 0; // a chart in a sheet has records of its own
    while (const auto record = records.next()) {
        if (record->kind == Biff::Beginning)
            ++depth;
        else if (record->kind == Biff::Eof && --depth <= 0)
            return depth == 0;
        else if (depth == 1)
            sheet.take(*record);
    }
    return false;
}

bool isXlsEncrypted(const QByteArray& file) {
    return readBiffWorkbook(xlsStream(file)).isEncrypted;
}
