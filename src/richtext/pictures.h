#pragma once

#include <QImage>
#include <QString>

namespace richtext {

/// What an RTF group that begins with "{\pict" (or holds such a group: an object's shown result)
/// shows, where it is a PNG, a JPEG or a device independent bitmap; otherwise a null image.
QImage pictureOf(const QString& source);

/// The size that the picture asks for, in logical pixels (twips / 15); an empty one where it asks
/// for none.
QSizeF pictureSize(const QString& source);

} // namespace richtext
