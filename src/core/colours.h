#pragma once

#include <QColor>

/// A colour as the files and settings keep it: 32 bits, red in the low byte.
inline QColor colourOf(qint32 stored) {
    return QColor(stored & 0xff, (stored >> 8) & 0xff, (stored >> 16) & 0xff);
}

inline qint32 storedColour(const QColor& colour) {
    return colour.red() | (colour.green() << 8) | (colour.blue() << 16);
}
