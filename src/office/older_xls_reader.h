#pragma once

#include "office/sheet_cells.h"

/// Loads the library that reads workbooks older than BIFF5: before the child process that uses it.
/// False where it is not installed.
bool loadOlderXlsReader();

/// Reads such a workbook (.xls), which is a single sheet. Answers false for a file that is none.
bool readOlderXls(const QString& path, SheetCells& cells);
