#pragma once

#include "office/sheet_cells.h"

#include <QByteArray>

/// Puts the results of the formulas of a workbook's first sheet (.xls, BIFF5 or BIFF8) into the
/// cells, and its truth values: the library that reads all others passes the formulas over and
/// takes a truth value for a number. What does not hang together is left out; an error is no
/// result.
void readXlsFormulas(const QByteArray& file, SheetCells& cells);
