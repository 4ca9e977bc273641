#include "office/spreadsheet.h"

#include "core/prompts.h"
#include "store/engine/value.h"

#include <QFile>
#include <QFileInfo>

#include <freexl.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 LargestWorkbook = qint64(64) * 1024 * 1024; // bytes
constexpr int LettersOfColumns = 26;

struct CloseWorkbook {
    void operator()(const void* handle) const { freexl_close(handle); }
};
using Workbook = std::unique_ptr<const void, CloseWorkbook>;

Workbook openFirstSheet(const QString& path) {
    const void* handle = nullptr;
    const int opened = freexl_open(QFile::encodeName(path).constData(), &handle);
    Workbook workbook(handle); // there is one to close after some failures too
    if (opened != FREEXL_OK || freexl_select_active_worksheet(handle, 0) != FREEXL_OK)
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

QStringList readRow(const void* handle, unsigned row, unsigned columns) {
    QStringList cells;
    for (unsigned column = 0; column < columns; ++column) {
        FreeXL_CellValue cell{};
        const bool isRead = freexl_get_cell_value(handle, row, static_cast<unsigned short>(column),
                                                  &cell) == FREEXL_OK;
        cells += isRead ? cellText(cell) : QString();
    }
    return cells;
}

} // namespace

std::optional<Spreadsheet> Spreadsheet::read(const QString& path) {
    if (QFileInfo(path).size() > LargestWorkbook)
        return std::nullopt;
    const Workbook workbook = openFirstSheet(path);
    unsigned rows = 0;
    unsigned short columns = 0;
    if (!workbook || freexl_worksheet_dimensions(workbook.get(), &rows, &columns) != FREEXL_OK)
        return std::nullopt;
    Spreadsheet sheet;
    sheet.m_columnCount = std::min<int>(columns, LargestColumn);
    for (unsigned row = 0; row < std::min<unsigned>(rows, LargestRow); ++row)
        sheet.m_rows += readRow(workbook.get(), row, static_cast<unsigned>(sheet.m_columnCount));
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
