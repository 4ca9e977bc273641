#pragma once

#include <QStringView>

/// How wide a text is in a spreadsheet, in digits of its usual font (Arial 10), by which columns
/// are measured; of several lines the widest. An estimate, since there may be no screen to measure
/// on, and the reader may have another font.
double textWidth(QStringView text, bool bold);
