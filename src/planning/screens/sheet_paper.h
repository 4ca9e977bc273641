#pragma once

#include <QColor>

/// What a planning sheet's boxes are painted with: white with a sheet, grey without one.
inline QColor sheetPaper(bool hasSheet) {
    return hasSheet ? QColor(0xFF, 0xFF, 0xFF) : QColor(0xC0, 0xC0, 0xC0);
}
