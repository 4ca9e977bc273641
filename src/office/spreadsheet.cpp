#include "office/spreadsheet.h"

#include "core/prompts.h"
#include "store/engine/confined_reader.h"
#include "store/engine/error.h"
#include "store/engine/late_library.h"
#include "store/engine/value.h"

#include <QDataStream>
#include <QFile>
#include <QFileInfo>

#include <freexl.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 LargestWorkbook = qint64(64) * 1024 * 1024; // bytes
constexpr int LettersOfColumns = 26;

struct Freexl : dao::LateLibrary {
    Freexl() : LateLibrary(ORVA_FREEXL) {}

    decltype(&freexl_open) open = function("freexl_open");
    decltype(&freexl_close) close = function("freexl_close");
    decltype(&freexl_select_active_worksheet) select = function("freexl_select_active_worksheet");
    decltype(&freexl_worksheet_dimensions) dimensions = function("freexl_worksheet_dimensions");
    decltype(&freexl_get_cell_value) cellValue = function("freexl_get_cell_value");
};

const Freexl& freexl() {
    static const Freexl library;
    return library;
}

// In the child process: the sheet packed, as its numbers of columns and rows and its cells' texts.

struct CloseWorkbook {
    void operator()(const void* handle) const { freexl().close(handle); }
};
using Workbook = std::unique_ptr<const void, CloseWorkbook>;

Workbook openFirstSheet(const QString& path) {
    const void* handle = nullptr;
    const int opened = freexl().open(QFile::encodeName(path).constData(), &handle);
    Workbook workbook(handle); // there is one to close after some failures too
    if (opened != FREEXL_OK || freexl().select(handle, 0) != FREEXL_OK)
        workbook.reset();
    return workbook;
}

QString cellText(const FreeXL_CellValue& cell) {
    switch (cell.type) {
    case FREEXL_CELL_INT:
        return QString::number(cell.value.int_value);
    case FREEXL_CELL_DOUBLE:
        return dao::numberText(cell.value.double_value);
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME:
        return QString::fromUtf8(cell.value.text_value);
    default:
        return {};
    }
}

/// No bytes for what is no spreadsheet.
QByteArray packFirstSheet(const QString& path) {
    const Workbook workbook = openFirstSheet(path);
    unsigned rows = 0;
    unsigned short columns = 0;
    if (!workbook || freexl().dimensions(workbook.get(), &rows, &columns) != FREEXL_OK)
        return {};
    rows = std::min<unsigned>(rows, Spreadsheet::LargestRow);
    columns = std::min<unsigned short>(columns, Spreadsheet::LargestColumn);
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << qint32(columns) << qint32(rows);
    for (unsigned row = 0; row < rows; ++row) {
        for (unsigned short column = 0; column < columns; ++column) {
            FreeXL_CellValue cell{};
            const bool isRead = freexl().cellValue(workbook.get(), row, column, &cell) == FREEXL_OK;
            out << (isRead ? cellText(cell) : QString());
        }
    }
    return bytes;
}

} // namespace

std::optional<Spreadsheet> Spreadsheet::read(const QString& path) {
    const qint64 size = QFileInfo(path).size();
    if (size > LargestWorkbook || !freexl().isWhole())
        return std::nullopt;
    try {
        const auto bytes =
            dao::readConfined(dao::boundsForInput(size), [&path] { return packFirstSheet(path); });
        return bytes ? unpack(*bytes) : std::nullopt;
    } catch (const dao::EngineError&) {
        return std::nullopt;
    }
}

std::optional<Spreadsheet> Spreadsheet::unpack(const QByteArray& bytes) {
    QDataStream in(bytes);
    Spreadsheet sheet;
    qint32 columns = 0;
    qint32 rows = 0;
    in >> columns >> rows;
    if (columns < 0 || columns > LargestColumn || rows < 0 || rows > LargestRow)
        return std::nullopt;
    sheet.m_columnCount = columns;
    while (sheet.rowCount() < rows && in.status() == QDataStream::Ok) {
        QStringList cells(columns);
        for (QString& cell : cells)
            in >> cell;
        sheet.m_rows += cells;
    }
    if (in.status() != QDataStream::Ok || !in.atEnd())
        return std::nullopt;
    return sheet;
}

QString columnLetters(int column) {
    QString letters;
    for (int rest = column; rest >= 0; rest = rest / LettersOfColumns - 1)
        letters.prepend(QChar(u'A' + rest % LettersOfColumns));
    return letters;
}

int columnOfLetters(QStringView letters) {
    int column = 0;
    for (const QChar letter : letters) {
        const QChar capital = letter.toUpper();
        if (capital < u'A' || capital > u'Z' || column > Spreadsheet::LargestColumn)
            return -1;
        column = column * LettersOfColumns + (capital.unicode() - u'A' + 1);
    }
    return column - 1;
}

void showCantOpen(Prompts& prompts, const QString& file) {
    prompts.PlainBox(u"Can't open "_s + file, OkButton | WarningIcon, u"Import Error"_s);
}
