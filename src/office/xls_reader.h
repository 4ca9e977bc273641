#pragma once

#include "office/sheet_cells.h"

/// Loads the library that reads .xls: before the child process that uses it. False where it is not
/// installed.
bool loadXlsReader();

/// Reads the first sheet of a workbook (.xls). Answers false for a file that is none, or is
/// encrypted.
bool readXls(const QString& path, SheetCells& cells);
