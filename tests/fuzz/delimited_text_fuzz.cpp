// Text files with a table: whatever the bytes, the cells that are read come out of their packing as
// they went in.

#include "office/delimited_text.h"
#include "office/sheet_cells.h"

#include <cstdlib>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    SheetCells cells;
    try {
        if (!readDelimitedText(QByteArrayView(data, static_cast<qsizetype>(size)), cells))
            return 0;
    } catch (const std::length_error&) {
        return 0;
    }
    const auto rows = SheetCells::unpacked(cells.packed());
    if (!rows)
        std::abort();
    return 0;
}
