// The first sheet of a workbook: whatever the bytes of its container and of its records.

#include "office/sheet_cells.h"
#include "office/xls_reader.h"

#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    SheetCells cells;
    try {
        readXls(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)),
                cells);
    } catch (const std::length_error&) {
        return 0;
    }
    return 0;
}
