#include "office/older_xls_reader.h"

#include "store/engine/late_library.h"

#include <QFile>

#include <freexl.h>

#include <algorithm>
#include <memory>

namespace {

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

struct CloseWorkbook {
    void operator()(const void* handle) const { freexl().close(handle); }
};
using OpenXls = std::unique_ptr<const void, CloseWorkbook>;

OpenXls openFirstSheet(const QString& path) {
    const void* handle = nullptr;
    const int opened = freexl().open(QFile::encodeName(path).constData(), &handle);
    OpenXls workbook(handle); // there is one to close after some failures too
    if (opened != FREEXL_OK || freexl().select(handle, 0) != FREEXL_OK)
        workbook.reset();
    return workbook;
}

void readXlsCell(const FreeXL_CellValue& cell, int row, int column, SheetCells& cells) {
    const auto moment = [&](CellKind kind) {
        constexpr qsizetype separator = 10; // between date and time
        QString text = QString::fromUtf8(cell.value.text_value);
        if (kind == CellKind::DateTime && text.size() > separator)
            text[separator] = u'T';
        cells.set(row, column, {kind, text});
    };
    switch (cell.type) {
    case FREEXL_CELL_INT:
        return cells.setNumber(row, column, cell.value.int_value);
    case FREEXL_CELL_DOUBLE:
        return cells.setNumber(row, column, cell.value.double_value);
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
        return cells.setText(row, column, QString::fromUtf8(cell.value.text_value));
    case FREEXL_CELL_DATE:
        return moment(CellKind::Date);
    case FREEXL_CELL_DATETIME:
        return moment(CellKind::DateTime);
    case FREEXL_CELL_TIME:
        return moment(CellKind::Time);
    default:
        return;
    }
}

} // namespace

bool loadOlderXlsReader() {
    return freexl().isWhole();
}

bool readOlderXls(const QString& path, SheetCells& cells) {
    const OpenXls workbook = openFirstSheet(path);
    unsigned rows = 0;
    unsigned short columns = 0;
    if (!workbook || freexl().dimensions(workbook.get(), &rows, &columns) != FREEXL_OK)
        return false;
    rows = std::min<unsigned>(rows, SheetCells::LargestRow);
    for (unsigned row = 0; row < rows; ++row) {
        for (unsigned short column = 0; column < columns; ++column) {
            FreeXL_CellValue cell{};
            if (freexl().cellValue(workbook.get(), row, column, &cell) == FREEXL_OK)
                readXlsCell(cell, static_cast<int>(row), column, cells);
        }
    }
    return true;
}
