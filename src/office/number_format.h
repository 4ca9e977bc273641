#pragma once

#include "office/sheet_cells.h"

#include <QHash>
#include <QStringView>

#include <optional>

/// How the cells of a workbook are to be read, by their number formats: the same in .xls and .xlsx.

/// What a format makes of a number; none where that stays one. `id` is that of the format, `code`
/// its text, empty for one of those that every workbook has by their ids alone.
std::optional<CellKind> momentOfFormat(int id, QStringView code);

/// The formats of a workbook and of its cells.
struct NumberFormats {
    QHash<int, QString> codes; ///< of the formats, by id
    QList<int> cells;          ///< the format's id for each style of cells
    bool from1904 = false;     ///< where the days of a date count from

    /// Puts a number into a cell of that style.
    void put(SheetCells& sheet, int row, int column, double number, qsizetype style) const;
};
