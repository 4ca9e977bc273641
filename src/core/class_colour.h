#pragma once

#include <QString>

/// A class's colour where none was set; red in the low byte.
inline constexpr qint32 WhiteClassColour = 0xFFFFFF;

/// A class as lists and timetables show it.
struct ClassColour {
    QString code;
    qint32 colour; ///< red in the low byte

    bool operator==(const ClassColour&) const = default;
};
