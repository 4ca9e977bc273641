#pragma once

#include <QByteArray>

class Workbook;

/// The bytes of a workbook as a genuine .xls file: BIFF8 records in a compound file. Raises 3190
/// for a sheet of more rows or columns than that holds (65,536 and 256), 3251 where the library of
/// compound files is not installed.
QByteArray xlsContent(const Workbook& workbook);
