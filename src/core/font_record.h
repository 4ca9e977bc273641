#pragma once

#include <QString>

/// A font as the settings keep it and the font dialog answers it: size in points, colour with red
/// in the low byte. The values given here are those of a font that was never set.
struct FontRecord {
    QString name = QStringLiteral("MS Sans Serif");
    bool bold = false;
    bool italic = false;
    bool underline = false;
    qint32 size = 8;
    qint32 colour = 0;

    bool operator==(const FontRecord&) const = default;
};
