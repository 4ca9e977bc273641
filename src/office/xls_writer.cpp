#include "office/xls_writer.h"

#include "office/biff_stream.h"
#include "office/compound_writer.h"
#include "office/sheet_writer.h"
#include "store/engine/error.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRows = 65536;
constexpr int mostColumns = 256;
constexpr int styleFormats = 15; ///< come first in every workbook
constexpr int plainFormat = styleFormats;
constexpr int firstOwnFormat = plainFormat + 1;
constexpr int dateForm = 164; ///< the first number for forms of a workbook's own
constexpr int automaticColour = 64;
constexpr int automaticBackground = 65;
constexpr int headColour = 40;      ///< sky blue, 33 in the palette that people see
constexpr int usualRowHeight = 255; ///< twentieths of a point, as the next
constexpr int mostRowHeight = 8190;

/// The looks that a workbook uses, each a format that its cells know by its number.
class CellFormats {
public:
    int numberOf(CellLooks looks) {
        if (!looks)
            return plainFormat;
        if (!m_looks.contains(looks))
            m_looks += looks;
        return firstOwnFormat + static_cast<int>(m_looks.indexOf(looks));
    }
    const QList<CellLooks>& looks() const { return m_looks; }

private:
    QList<CellLooks> m_looks;
};

// What the file has of the workbook as a whole.

void addBeginning(QByteArray& stream, bool isSheet) {
    constexpr int version = 0x0600;
    constexpr int build = 0x0DBB;
    constexpr int year = 1996;
    addRecord(stream, Biff::Beginning,
              BiffFields()
                  .word(version)
                  .word(isSheet ? 0x0010 : 0x0005)
                  .word(build)
                  .word(year)
                  .longWord(0)
                  .longWord(6)); // the oldest version that can read it
}

/// The four fonts: plain, bold, underlined, and both.
void addFonts(QByteArray& stream) {
    constexpr int height = 200; // twentieths of a point
    constexpr int usualWeight = 400;
    constexpr int boldWeight = 700;
    constexpr int textColour = 0x7FFF;
    for (const bool underlined : {false, true}) {
        for (const bool bold : {false, true})
            addRecord(stream, Biff::Font,
                      BiffFields()
                          .word(height)
                          .word(0)
                          .word(textColour)
                          .word(bold ? boldWeight : usualWeight)
                          .word(0)
                          .byte(underlined)
                          .byte(2) // without serifs
                          .word(0)
                          .shortText(u"Arial"_s));
    }
}

int fontOf(CellLooks looks) {
    return (looks & CellLook::Underlined ? 2 : 0) + (looks & CellLook::Bold ? 1 : 0);
}

quint32 sideLinesOf(CellLooks looks) {
    constexpr quint32 thinOnAllSides = 0x1111;
    constexpr quint32 colour = automaticColour;
    return looks & CellLook::Bordered ? thinOnAllSides | colour << 16 | colour << 23 : 0;
}

/// The colours of the lines above and below, and whether the cell is filled.
quint32 fillOf(CellLooks looks) {
    constexpr quint32 colour = automaticColour;
    const quint32 lines = looks & CellLook::Bordered ? colour | colour << 7 : 0;
    const quint32 solid = looks & CellLook::Filled ? 1 : 0;
    return lines | solid << 26;
}

void addFormat(QByteArray& stream, CellLooks looks, bool isStyle, int ownAttributes) {
    const int wrapped = looks & CellLook::Wrapped ? 0x08 : 0; // at the top of the cell
    const int colour = looks & CellLook::Filled ? headColour : automaticColour;
    addRecord(stream, Biff::ExtendedFormat,
              BiffFields()
                  .word(fontOf(looks))
                  .word(looks & CellLook::Dated ? dateForm : 0)
                  .word(isStyle ? 0xFFF5 : 0x0001)
                  .byte(wrapped)
                  .byte(0)
                  .byte(0)
                  .byte(ownAttributes)
                  .longWord(sideLinesOf(looks))
                  .longWord(fillOf(looks))
                  .word(colour | automaticBackground << 7));
}

void addFormats(QByteArray& stream, const CellFormats& formats) {
    constexpr int allAttributes = 0xFC;
    addRecord(stream, Biff::Format, BiffFields().word(dateForm).text(u"d-mmm-yyyy"_s));
    for (int style = 0; style < styleFormats; ++style)
        addFormat(stream, {}, true, style == 0 ? 0 : 0xF4);
    addFormat(stream, {}, false, 0);
    for (const CellLooks looks : formats.looks())
        addFormat(stream, looks, false, allAttributes);
    addRecord(stream, Biff::Style, BiffFields().word(0x8000).byte(0).byte(0xFF)); // "Normal"
}

void addWorkbookWindow(QByteArray& stream) {
    addRecord(stream, Biff::Window1,
              BiffFields()
                  .word(360)
                  .word(270)
                  .word(14940)
                  .word(9150)
                  .word(0x0038) // with scroll bars and tabs
                  .word(0)
                  .word(0)
                  .word(1)
                  .word(600));
}

/// The names of the sheets and where each begins. `offset` is that of the first.
QByteArray sheetList(const Workbook& workbook, const QList<QByteArray>& sheets, qsizetype offset) {
    QByteArray list;
    for (qsizetype i = 0; i < sheets.size(); ++i) {
        addRecord(list, Biff::BoundSheet,
                  BiffFields()
                      .longWord(static_cast<quint32>(offset))
                      .word(0)
                      .shortText(workbook.sheets()[static_cast<size_t>(i)].name()));
        offset += sheets[i].size();
    }
    return list;
}

// What it has of one sheet.

void addPage(QByteArray& stream, const PageSetup& page) {
    constexpr int a4 = 9;
    constexpr int letter = 1;
    constexpr int upright = 0x0002;
    constexpr int resolution = 600;
    constexpr double lineMargin = 0.5; // inches
    const auto line = [&](Biff record, const QString& codes) {
        addRecord(stream, record, codes.isEmpty() ? BiffFields() : BiffFields().text(codes));
    };
    constexpr int usualBits = 0x04C1;
    constexpr int fitsPages = 0x0100;
    addRecord(stream, Biff::SheetBits,
              BiffFields().word(usualBits | (page.onePageWide ? fitsPages : 0)));
    line(Biff::Header, page.header.codes(u'C'));
    line(Biff::Footer, page.footer.codes(u'R'));
    addRecord(stream, Biff::CentredHorizontally, BiffFields().word(page.centred));
    addRecord(stream, Biff::Setup,
              BiffFields()
                  .word(page.letterPaper ? letter : a4)
                  .word(100) // per cent
                  .word(1)
                  .word(1)
                  .word(page.onePageWide ? 0 : 1) // as many pages high as it takes
                  .word(page.landscape ? 0 : upright)
                  .word(resolution)
                  .word(resolution)
                  .real(lineMargin)
                  .real(lineMargin)
                  .word(1));
}

void addColumnWidths(QByteArray& stream, const Sheet& sheet) {
    constexpr int usualWidth = 8;
    constexpr double pixelsOfDigit = 7;
    constexpr double margin = 5; // pixels
    constexpr double unit = 256; // of a digit
    addRecord(stream, Biff::DefaultColumnWidth, BiffFields().word(usualWidth));
    for (int column = 0; column < sheet.columnCount(); ++column) {
        const auto width = sheet.columnWidths().constFind(column);
        if (width == sheet.columnWidths().constEnd())
            continue;
        const double pixels = std::round(*width * pixelsOfDigit) + margin;
        addRecord(stream, Biff::ColumnInfo,
                  BiffFields()
                      .word(column)
                      .word(column)
                      .word(static_cast<int>(std::lround(pixels / pixelsOfDigit * unit)))
                      .word(plainFormat)
                      .word(0x0002) // set by somebody
                      .word(0));
    }
}

double dateNumber(QDate date) {
    return static_cast<double>(QDate(1899, 12, 30).daysTo(date));
}

void addCell(QByteArray& stream, int row, int column, const SheetCell& cell, SharedTexts& texts,
             CellFormats& formats) {
    BiffFields fields;
    fields.word(row).word(column).word(formats.numberOf(cell.looks));
    if (const auto* text = std::get_if<QString>(&cell.content))
        addRecord(stream, Biff::SharedString, fields.longWord(texts.numberOf(*text)));
    else if (const auto* number = std::get_if<double>(&cell.content))
        addRecord(stream, Biff::Number, fields.real(*number));
    else if (const auto* date = std::get_if<QDate>(&cell.content))
        addRecord(stream, Biff::Number, fields.real(dateNumber(*date)));
    else
        addRecord(stream, Biff::Blank, fields);
}

/// The rows in blocks: what is said of the rows as such, then the cells of all of them.
void addCells(QByteArray& stream, const Sheet& sheet, SharedTexts& texts, CellFormats& formats) {
    constexpr int block = 32;
    for (int first = 0; first < sheet.rowCount(); first += block) {
        const int end = std::min(first + block, sheet.rowCount());
        for (int row = first; row < end; ++row)
            addRecord(stream, Biff::Row,
                      BiffFields()
                          .word(row)
                          .word(0)
                          .word(sheet.columnCount())
                          .word(std::min(sheet.linesOfRow(row) * usualRowHeight, mostRowHeight))
                          .longWord(0)
                          .word(0x0100)
                          .word(plainFormat));
        for (int row = first; row < end; ++row) {
            for (int column = 0; column < sheet.columnCount(); ++column) {
                if (const SheetCell& cell = sheet.cell(row, column); !cell.isBare())
                    addCell(stream, row, column, cell, texts, formats);
            }
        }
    }
}

/// The first cell is selected; of frozen columns that is one.
void addSheetWindow(QByteArray& stream, int frozenColumns, bool isFirst) {
    constexpr int usualBits = 0x00B6; // lines, headings and zeros show
    constexpr int frozenBits = 0x0108;
    constexpr int selectedBits = 0x0600;
    constexpr int leftPane = 3;
    addRecord(
        stream, Biff::Window2,
        BiffFields()
            .word(usualBits | (frozenColumns > 0 ? frozenBits : 0) | (isFirst ? selectedBits : 0))
            .word(0)
            .word(0)
            .longWord(automaticColour)
            .word(0)
            .word(0)
            .longWord(0));
    if (frozenColumns > 0)
        addRecord(
            stream, Biff::Pane,
            BiffFields().word(frozenColumns).word(0).word(0).word(frozenColumns).word(leftPane));
    addRecord(stream, Biff::Selection,
              BiffFields().byte(leftPane).word(0).word(0).word(0).word(1).longWord(0).word(0));
}

void checkSize(const Sheet& sheet) {
    if (sheet.columnCount() > mostColumns)
        throw dao::EngineError(
            dao::TooManyFields,
            u"The sheet \"%1\" needs %2 columns, but a file of the kind .xls has %3. Please give "
            "the file a name that ends in .xlsx."_s.arg(sheet.name())
                .arg(sheet.columnCount())
                .arg(mostColumns));
    if (sheet.rowCount() > mostRows)
        throw dao::EngineError(
            dao::TooManyFields,
            u"The sheet \"%1\" needs %2 rows, but a file of the kind .xls has %3. Please give the "
            "file a name that ends in .xlsx."_s.arg(sheet.name())
                .arg(sheet.rowCount())
                .arg(mostRows));
}

QByteArray sheetStream(const Sheet& sheet, bool isFirst, SharedTexts& texts, CellFormats& formats) {
    checkSize(sheet);
    QByteArray stream;
    addBeginning(stream, true);
    addRecord(stream, Biff::DefaultRowHeight, BiffFields().word(0).word(usualRowHeight));
    addPage(stream, sheet.page());
    addColumnWidths(stream, sheet);
    addRecord(stream, Biff::Dimensions,
              BiffFields()
                  .longWord(0)
                  .longWord(static_cast<quint32>(sheet.rowCount()))
                  .word(0)
                  .word(sheet.columnCount())
                  .word(0));
    addCells(stream, sheet, texts, formats);
    addSheetWindow(stream, sheet.frozenColumns(), isFirst);
    addRecord(stream, Biff::Eof);
    return stream;
}

QByteArray workbookStream(const Workbook& workbook) {
    SharedTexts texts;
    CellFormats formats;
    QList<QByteArray> sheets;
    for (const Sheet& sheet : workbook.sheets())
        sheets += sheetStream(sheet, sheets.isEmpty(), texts, formats);

    QByteArray stream;
    addBeginning(stream, false);
    addRecord(stream, Biff::CodePage, BiffFields().word(1200));
    addWorkbookWindow(stream);
    addRecord(stream, Biff::DateMode, BiffFields().word(0)); // days since 1900
    addFonts(stream);
    addFormats(stream, formats);
    QByteArray end;
    texts.addTo(end);
    addRecord(end, Biff::Eof);
    const qsizetype listSize = sheetList(workbook, sheets, 0).size();
    stream += sheetList(workbook, sheets, stream.size() + listSize + end.size());
    return stream + end + sheets.join();
}

} // namespace

QByteArray xlsContent(const Workbook& workbook) {
    return compoundFile("Workbook", workbookStream(workbook));
}
