#include "office/xlsx_writer.h"

#include "office/sheet_writer.h"
#include "store/engine/error.h"
#include "store/engine/late_library.h"

#include <QFile>
#include <QStorageInfo>
#include <QTemporaryDir>

#include <xlsxwriter.h>

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct XlsxWriter : dao::LateLibrary {
    XlsxWriter() : LateLibrary(ORVA_XLSXWRITER) {}

    decltype(&workbook_new_opt) newWorkbook = function("workbook_new_opt");
    decltype(&workbook_add_worksheet) addWorksheet = function("workbook_add_worksheet");
    decltype(&workbook_add_format) addFormat = function("workbook_add_format");
    decltype(&workbook_close) closeWorkbook = function("workbook_close");
    decltype(&format_set_font_name) setFontName = function("format_set_font_name");
    decltype(&format_set_font_size) setFontSize = function("format_set_font_size");
    decltype(&format_set_bold) setBold = function("format_set_bold");
    decltype(&format_set_underline) setUnderline = function("format_set_underline");
    decltype(&format_set_bg_color) setFillColour = function("format_set_bg_color");
    decltype(&format_set_border) setBorder = function("format_set_border");
    decltype(&format_set_text_wrap) setTextWrap = function("format_set_text_wrap");
    decltype(&format_set_align) setAlign = function("format_set_align");
    decltype(&format_set_num_format) setNumberForm = function("format_set_num_format");
    decltype(&worksheet_write_string) writeText = function("worksheet_write_string");
    decltype(&worksheet_write_number) writeNumber = function("worksheet_write_number");
    decltype(&worksheet_write_datetime) writeDate = function("worksheet_write_datetime");
    decltype(&worksheet_write_blank) writeBlank = function("worksheet_write_blank");
    decltype(&worksheet_set_column) setColumn = function("worksheet_set_column");
    decltype(&worksheet_set_row) setRow = function("worksheet_set_row");
    decltype(&worksheet_freeze_panes) freezePanes = function("worksheet_freeze_panes");
    decltype(&worksheet_set_landscape) setLandscape = function("worksheet_set_landscape");
    decltype(&worksheet_set_paper) setPaper = function("worksheet_set_paper");
    decltype(&worksheet_center_horizontally) centre = function("worksheet_center_horizontally");
    decltype(&worksheet_fit_to_pages) fitToPages = function("worksheet_fit_to_pages");
    decltype(&worksheet_set_header) setHeader = function("worksheet_set_header");
    decltype(&worksheet_set_footer) setFooter = function("worksheet_set_footer");
};

const XlsxWriter& writer() {
    static const XlsxWriter library;
    return library;
}

/// The folder for the library's temporary files. In memory they need no disk, and leave nothing on
/// one.
QString temporaryPlace() {
    const QString inMemory = u"/dev/shm/orva-XXXXXX"_s;
    return QFileInfo(inMemory.section(u'/', 0, -2)).isWritable()
               ? inMemory
               : QDir::tempPath() + u"/orva-XXXXXX"_s;
}

/// The library does not notice where its temporary files break off.
void requireRoom(const QString& folder, const Workbook& workbook) {
    constexpr qint64 bytesOfCell = 100;
    constexpr qint64 bytesOfCharacter = 6;
    qint64 needed = 0;
    for (const Sheet& sheet : workbook.sheets()) {
        for (int row = 0; row < sheet.rowCount(); ++row) {
            for (int column = 0; column < sheet.columnCount(); ++column) {
                needed += bytesOfCell;
                if (const auto* text = std::get_if<QString>(&sheet.cell(row, column).content))
                    needed += bytesOfCharacter * text->size();
            }
        }
    }
    if (QStorageInfo(folder).bytesAvailable() < needed)
        throw dao::EngineError(dao::DiskFull, u"There is not enough space for temporary files."_s);
}

/// A file without a name, in memory.
class MemoryFile {
public:
    MemoryFile() : m_descriptor(memfd_create("workbook", MFD_CLOEXEC)) {}
    ~MemoryFile() { ::close(m_descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    QByteArray path() const { return "/proc/self/fd/" + QByteArray::number(m_descriptor); }
    QByteArray content() const {
        QFile file(QFile::decodeName(path()));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    int m_descriptor;
};

/// The formats of a workbook, made when first used.
class XlsxFormats {
public:
    explicit XlsxFormats(lxw_workbook* workbook) : m_workbook(workbook) {}

    lxw_format* of(CellLooks looks) {
        lxw_format*& format = m_formats[looks.toInt()];
        if (!format)
            format = make(looks);
        return format;
    }

private:
    lxw_format* make(CellLooks looks) {
        constexpr double points = 10;
        constexpr lxw_color_t headColour = 0x00CCFF;
        lxw_format* format = writer().addFormat(m_workbook);
        writer().setFontName(format, "Arial");
        writer().setFontSize(format, points);
        writer().setAlign(format, LXW_ALIGN_VERTICAL_TOP);
        if (looks & CellLook::Bold)
            writer().setBold(format);
        if (looks & CellLook::Underlined)
            writer().setUnderline(format, LXW_UNDERLINE_SINGLE);
        if (looks & CellLook::Filled)
            writer().setFillColour(format, headColour);
        if (looks & CellLook::Bordered)
            writer().setBorder(format, LXW_BORDER_THIN);
        if (looks & CellLook::Wrapped)
            writer().setTextWrap(format);
        if (looks & CellLook::Dated)
            writer().setNumberForm(format, "d-mmm-yyyy");
        return format;
    }

    lxw_workbook* m_workbook;
    QHash<int, lxw_format*> m_formats;
};

void writeCell(lxw_worksheet* sheet, int row, int column, const SheetCell& cell,
               XlsxFormats& formats) {
    const auto atRow = static_cast<lxw_row_t>(row);
    const auto atColumn = static_cast<lxw_col_t>(column);
    lxw_format* format = formats.of(cell.looks);
    if (const auto* text = std::get_if<QString>(&cell.content)) {
        writer().writeText(sheet, atRow, atColumn, text->toUtf8().constData(), format);
    } else if (const auto* number = std::get_if<double>(&cell.content)) {
        writer().writeNumber(sheet, atRow, atColumn, *number, format);
    } else if (const auto* date = std::get_if<QDate>(&cell.content)) {
        lxw_datetime day{date->year(), date->month(), date->day(), 0, 0, 0};
        writer().writeDate(sheet, atRow, atColumn, &day, format);
    } else {
        writer().writeBlank(sheet, atRow, atColumn, format);
    }
}

/// Not every program finds out by itself how high a row with wrapped texts is.
void writeRowHeight(lxw_worksheet* sheet, int row, int lines) {
    constexpr double lineHeight = 12.75; // points, as the next
    constexpr double highest = 409.5;
    if (lines > 1)
        writer().setRow(sheet, static_cast<lxw_row_t>(row), std::min(lines * lineHeight, highest),
                        nullptr);
}

void writePage(lxw_worksheet* sheet, const PageSetup& page) {
    constexpr uint8_t a4 = 9;
    constexpr uint8_t letter = 1;
    writer().setPaper(sheet, page.letterPaper ? letter : a4);
    if (page.landscape)
        writer().setLandscape(sheet);
    if (page.centred)
        writer().centre(sheet);
    if (page.onePageWide)
        writer().fitToPages(sheet, 1, 0); // as many pages high as it takes
    if (const QString codes = page.header.codes(u'C'); !codes.isEmpty())
        writer().setHeader(sheet, codes.toUtf8().constData());
    if (const QString codes = page.footer.codes(u'R'); !codes.isEmpty())
        writer().setFooter(sheet, codes.toUtf8().constData());
}

void writeSheet(lxw_workbook* workbook, const Sheet& sheet, XlsxFormats& formats) {
    lxw_worksheet* written = writer().addWorksheet(workbook, sheet.name().toUtf8().constData());
    for (auto width = sheet.columnWidths().cbegin(); width != sheet.columnWidths().cend();
         ++width) {
        const auto column = static_cast<lxw_col_t>(width.key());
        writer().setColumn(written, column, column, width.value(), nullptr);
    }
    for (int row = 0; row < sheet.rowCount(); ++row) {
        writeRowHeight(written, row, sheet.linesOfRow(row));
        for (int column = 0; column < sheet.columnCount(); ++column) {
            if (const SheetCell& cell = sheet.cell(row, column); !cell.isBare())
                writeCell(written, row, column, cell, formats);
        }
    }
    if (sheet.frozenColumns() > 0)
        writer().freezePanes(written, 0, static_cast<lxw_col_t>(sheet.frozenColumns()));
    writePage(written, sheet.page());
}

} // namespace

QByteArray xlsxContent(const Workbook& workbook) {
    if (!writer().isWhole())
        throw dao::EngineError(dao::NotSupported,
                               u"Workbooks of the kind .xlsx can't be written: the library "
                               "libxlsxwriter is not installed."_s);
    const QTemporaryDir folder(temporaryPlace());
    requireRoom(folder.path(), workbook);
    const MemoryFile file;
    QByteArray folderName = QFile::encodeName(folder.path());
    lxw_workbook_options options{};
    options.tmpdir = folderName.data();
    lxw_workbook* written = writer().newWorkbook(file.path().constData(), &options);
    if (!written)
        throw dao::EngineError(dao::DiskError, u"There is not enough memory."_s);
    XlsxFormats formats(written);
    for (const Sheet& sheet : workbook.sheets())
        writeSheet(written, sheet, formats);
    if (writer().closeWorkbook(written) != LXW_NO_ERROR)
        throw dao::EngineError(dao::DiskError, u"The workbook could not be put together."_s);
    return file.content();
}
