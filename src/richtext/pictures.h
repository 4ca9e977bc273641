#pragma once

#include <QByteArray>
#include <QImage>
#include <QSizeF>
#include <QString>

namespace richtext {

/// What an RTF group that begins with "{\pict" (or holds such a group: an object's shown result)
/// shows, where it is a PNG, a JPEG or a device independent bitmap; otherwise a null image.
QImage pictureOf(const QString& source);

/// The size that the picture asks for, in logical pixels (twips / 15); an empty one where it asks
/// for none.
QSizeF pictureSize(const QString& source);

/// The group of a picture, as PNG.
QString pictureGroup(const QImage& image);
/// The same of a picture file's bytes; those of a PNG or a JPEG stand in it as they are. `shown` is
/// the size to ask for, in logical pixels; a side that is not positive follows from the other, two
/// from the picture. Empty for bytes that are no picture.
QString pictureGroup(const QByteArray& file, QSizeF shown);
/// The group of a picture in the shorter of the two formats.
QString shortestPicture(const QImage& image, QSizeF shown);

} // namespace richtext
