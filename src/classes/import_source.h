#pragma once

#include "core/engine_failure.h"
#include "office/spreadsheet.h"
#include "store/engine/engine.h"

#include <functional>
#include <optional>

class Session;

/// Where class lists and grades come from: spreadsheets and other years.

/// What an import takes of a spreadsheet.
struct SheetSource {
    QString file;
    SpreadsheetChoice choice;
};

/// The first sheet of a file, with the columns and the first row that the person has chosen.
class ImportSheet {
public:
    ImportSheet(Spreadsheet sheet, const SpreadsheetChoice& choice);

    const Spreadsheet& sheet() const { return m_sheet; }
    int firstRow() const { return m_firstRow; } ///< from 0, as all rows and columns here
    /// A column that was chosen, by its place among those asked for; -1 for None.
    int column(int index) const { return m_columns.value(index, -1); }
    QString cell(int row, int index) const { return m_sheet.cell(row, column(index)); }
    /// Behind the last row of a list that begins at `row`, at first at the row that was chosen: it
    /// ends where the column of surnames, the first one chosen, is empty.
    int endOfList(int row) const;
    int endOfList() const { return endOfList(m_firstRow); }

private:
    Spreadsheet m_sheet;
    int m_firstRow;
    QList<int> m_columns;
};

/// How the places are told of what was cut.
inline const QString SheetRows = QStringLiteral("These are the rows");

/// Does the work of an import, which may fail in a file or for lack of memory: a foreign file may
/// claim to hold more than there is. A failure is told in that box. Answers whether it was done.
bool tryImporting(Prompts& prompts, const FailureBox& failure, const std::function<void()>& work);

/// The columns from A to that one.
QStringList columnsUpTo(QStringView last);

/// Whether a file's name ends as that of a spreadsheet, or a text file, does; or as a year's.
bool isSheetFile(const QString& file);
bool isYearFile(const QString& file);

/// Asks for the file; empty when it was cancelled. `first` is the filter that stands first; the
/// other kinds of spreadsheets follow.
QString askImportFile(Session& session, const QString& title, const FileFilter& first);
inline FileFilter sheetFilter() {
    return {QStringLiteral("Excel Worksheet (*.xls)"), QStringLiteral("*.xls")};
}

/// Reads the sheet. None where it can't be opened, which is told.
std::optional<ImportSheet> openImportSheet(const SheetSource& source, Prompts& prompts);

/// The classes of another year, by its tables.
QStringList classesOf(const dao::Database& source);
/// Asks for one of them; none when it was cancelled. A file without any is told.
std::optional<QString> askClassOf(const dao::Database& source, const QString& text,
                                  Prompts& prompts);
