#pragma once

#include "office/sheet_cells.h"

#include <QByteArray>

/// Reads the first table that shows of a spreadsheet (.ods), given the file's bytes. Answers false
/// for what is none, is damaged or is encrypted. REQUIRES loadZipReader.
///
/// The XML is read here: the filters of the library that unpacks it do not count the cells that a
/// merged one covers, so that what stands behind them would go into wrong columns.
bool readOds(const QByteArray& archive, SheetCells& cells);
