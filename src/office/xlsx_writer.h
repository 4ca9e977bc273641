#pragma once

#include <QByteArray>

class Workbook;

/// The bytes of a workbook as an .xlsx file. The library writes temporary files: they lie in memory
/// where the system has a place for that, in a folder that only the person can read, and are gone
/// when this returns or the program ends, however it ends. Raises 3251 where the library is not
/// installed, 3182 where there is no room for the temporary files, 3043 where it fails.
QByteArray xlsxContent(const Workbook& workbook);
