#include "support/workbook_cells.h"

#include "store/engine/value.h"

#include <QFile>

#include <freexl.h>

namespace {

QString readCell(const FreeXL_CellValue& cell) {
    switch (cell.type) {
    case FREEXL_CELL_NULL:
        return {};
    case FREEXL_CELL_INT:
        return u'#' + QString::number(cell.value.int_value);
    case FREEXL_CELL_DOUBLE:
        return u'#' + dao::numberText(cell.value.double_value);
    case FREEXL_CELL_DATE:
        return u'@' + QString::fromUtf8(cell.value.text_value);
    default:
        return QString::fromUtf8(cell.value.text_value);
    }
}

ReadSheet readSheet(const void* workbook, unsigned short number) {
    ReadSheet sheet;
    const char* name = nullptr;
    unsigned rows = 0;
    unsigned short columns = 0;
    freexl_get_worksheet_name(workbook, number, &name);
    sheet.name = QString::fromUtf8(name);
    freexl_select_active_worksheet(workbook, number);
    freexl_worksheet_dimensions(workbook, &rows, &columns);
    for (unsigned row = 0; row < rows; ++row) {
        QStringList cells;
        for (unsigned short column = 0; column < columns; ++column) {
            FreeXL_CellValue cell{};
            freexl_get_cell_value(workbook, row, column, &cell);
            cells += readCell(cell);
        }
        sheet.rows += cells;
    }
    return sheet;
}

} // namespace

QList<ReadSheet> readWorkbook(const QString& path) {
    const void* workbook = nullptr;
    QList<ReadSheet> sheets;
    unsigned count = 0;
    if (freexl_open(QFile::encodeName(path).constData(), &workbook) == FREEXL_OK &&
        freexl_get_info(workbook, FREEXL_BIFF_SHEET_COUNT, &count) == FREEXL_OK) {
        for (unsigned short number = 0; number < count; ++number)
            sheets += readSheet(workbook, number);
    }
    if (workbook)
        freexl_close(workbook);
    return sheets;
}
