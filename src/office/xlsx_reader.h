#pragma once

#include "office/sheet_cells.h"

#include <QByteArray>

/// Reads the first sheet that shows of a workbook (.xlsx), given the file's bytes. Answers false
/// for what is none, or is damaged. REQUIRES loadZipReader.
///
/// The XML is read here: the filters of the library that unpacks it lose the texts that stand in
/// the cells themselves, dates in ISO's form and the workbook's own first day.
bool readXlsx(const QByteArray& archive, SheetCells& cells);
