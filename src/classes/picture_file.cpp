#include "classes/picture_file.h"

#include <QFileInfo>
#include <QImageReader>

using namespace Qt::StringLiterals;

namespace {

PictureFile unreadable() {
    return {{}, u"This file can't be read as a picture. The photo stays as it was."_s};
}

PictureFile tooLarge() {
    return {{}, u"This picture is too large to be read. The photo stays as it was."_s};
}

/// What the toolkit allows a picture in memory; it keeps four bytes a pixel.
bool exceedsMemory(qint64 pixels) {
    constexpr qint64 megabyte = 1 << 20;
    return QImageReader::allocationLimit() > 0 &&
           pixels * 4 > QImageReader::allocationLimit() * megabyte;
}

/// A picture on its side is turned after it is read, so both sides have to be long enough.
QSize smallerSize(QSize size, QSize enough) {
    const int longest = qMax(enough.width(), enough.height());
    const QSize smaller = size.scaled(longest, longest, Qt::KeepAspectRatioByExpanding);
    return smaller.width() < size.width() ? smaller : QSize();
}

} // namespace

PictureFile readPictureFile(const QString& path, QSize enough) {
    if (!QFileInfo(path).isFile())
        return unreadable(); // a pipe or a device would never end
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    const qint64 pixels = size.isValid() ? qint64(size.width()) * size.height() : 0;
    if (pixels > MostPicturePixels)
        return tooLarge();
    if (pixels > 0 && enough.isValid())
        reader.setScaledSize(smallerSize(size, enough));
    QImage picture = reader.read();
    if (picture.isNull())
        return exceedsMemory(pixels) ? tooLarge() : unreadable();
    picture.setDevicePixelRatio(1); // of a file named NAME@2x too: its pixels count
    return {picture, {}};
}
