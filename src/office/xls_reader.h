#pragma once

#include "office/sheet_cells.h"

#include <QByteArray>

/// Reads the first sheet that shows of a workbook (.xls, BIFF5 or BIFF8), given the file's bytes.
/// Answers false for what is none, breaks off or is encrypted; what does not hang together is left
/// out. Of a formula the result is read, of an error nothing.
///
/// The records are read here: the library for older workbooks passes the formulas over, takes a
/// truth value for a number, and opens no workbook with a text that goes on over more than two
/// records.
bool readXls(const QByteArray& file, SheetCells& cells);

/// Whether such a workbook can be read only with a password.
bool isXlsEncrypted(const QByteArray& file);
