#pragma once

#include "core/engine_failure.h"
#include "core/seams.h"
#include "office/sheet_writer.h"

#include <functional>

class Progress;
namespace dao {
class Value;
}

/// What the writers of class data (class_exports.h) have in common: their frame, and the steps of a
/// sheet that holds one table. Each step is told to the progress window.

/// A file name with the extension of a workbook: one that does not end in ".xls" or ".xlsx" gets
/// ".xls".
QString workbookName(const QString& name, Qt::CaseSensitivity sensitivity);

/// Where a writer leaves its file, and whom it tells of what it does.
struct ExportTarget {
    QString file;
    Seams seams;
};

/// Runs a writer: shows the progress window, lets `fill` fill a workbook, and saves that. A failure
/// is told in the box, texts that were cut are told by their cells. Answers whether the file is
/// there; else nothing is, or what stood there before.
bool runExport(const ExportTarget& target, const FailureBox& failure,
               const std::function<void(Workbook&, Progress&)>& fill);

/// A table to be written, with `row` for its titles and one more for each of its records; it begins
/// in the first column.
struct ExportTable {
    int row = 0;
    QStringList titles;
    int records = 0;
    std::function<CellContent(int record, int column)> content;

    CellArea area() const; ///< with the titles
};

/// "Exporting Column Headers"
void writeTitles(Sheet& sheet, const ExportTable& table, Progress& progress);
/// "Populating Cell information."
void writeRecords(Sheet& sheet, const ExportTable& table, Progress& progress);
/// The common look of a table: lines around and inside, the titles, in its first row, bold on a
/// colour.
void formatTable(Sheet& sheet, const CellArea& area);
/// "Creating Borders"
void createBorders(Sheet& sheet, const ExportTable& table, Progress& progress);
/// "Adjusting Column Widths."
void adjustWidths(Sheet& sheet, const ExportTable& table, Progress& progress);

/// How far a loop has come, 0 to 100.
int percentOf(qsizetype position, qsizetype end);

/// What a cell of a sheet holds for a field's value: numbers stay numbers, texts stay texts.
CellContent contentOf(const dao::Value& value);
/// The same for a mark that the teacher has given: a text that is a number as people write it, with
/// the decimal point of the person's own language or a full stop, becomes one, so that it can be
/// reckoned with. "007" and "1e5" stay what they are.
CellContent contentOfMark(const dao::Value& value);
