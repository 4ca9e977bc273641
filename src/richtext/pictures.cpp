#include "richtext/pictures.h"

#include "richtext/rtf_group.h"
#include "richtext/text_state.h"

#include <QBuffer>
#include <QImageReader>

#include <cmath>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

constexpr int jpegQuality = 80;

QByteArray fileOf(const QImage& image, const char* format, int quality = -1) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format, quality);
    return bytes;
}

/// `word` tells the format of the bytes.
QString groupOf(const QByteArray& bytes, QStringView word, QSize pixels, QSizeF shown) {
    const auto twips = [](double length) { return std::lround(length * twipsPerPixel); };
    return u"{\\pict\\%1\\picw%2\\pich%3\\picwgoal%4\\pichgoal%5\r\n"_s.arg(word)
               .arg(pixels.width())
               .arg(pixels.height())
               .arg(twips(shown.width()))
               .arg(twips(shown.height())) +
           hexLines(bytes) + u'}';
}

constexpr QStringView pngWord = u"pngblip";
constexpr QStringView jpegWord = u"jpegblip";

QSizeF wholeSize(QSizeF shown, QSizeF pixels) {
    if (shown.width() <= 0 && shown.height() <= 0)
        return pixels;
    if (shown.width() <= 0)
        shown.setWidth(pixels.width() * shown.height() / pixels.height());
    if (shown.height() <= 0)
        shown.setHeight(pixels.height() * shown.width() / pixels.width());
    return shown;
}

} // namespace

QImage pictureOf(const QString& source) {
    const GroupContent content = contentOf(source, Word::Picture);
    switch (content.kind) {
    case PngPicture:
        return QImage::fromData(content.bytes, "png");
    case JpegPicture:
        return QImage::fromData(content.bytes, "jpeg");
    case BitmapPicture:
        return QImage::fromData(content.bytes, "dib");
    default:
        return {};
    }
}

QSizeF pictureSize(const QString& source) {
    return contentOf(source, Word::Picture).size / twipsPerPixel;
}

QString pictureGroup(const QImage& image) {
    return groupOf(fileOf(image, "png"), pngWord, image.size(), image.size());
}

QString pictureGroup(const QByteArray& file, QSizeF shown) {
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QByteArray format = reader.format();
    const QImage image = reader.read();
    if (image.isNull())
        return {};
    const QSizeF size = wholeSize(shown, image.size());
    if (format == "jpeg")
        return groupOf(file, jpegWord, image.size(), size);
    return groupOf(format == "png" ? file : fileOf(image, "png"), pngWord, image.size(), size);
}

QString shortestPicture(const QImage& image, QSizeF shown) {
    const QByteArray png = fileOf(image, "png");
    const QByteArray jpeg =
        image.hasAlphaChannel() ? QByteArray() : fileOf(image, "jpeg", jpegQuality);
    const bool isJpeg = !jpeg.isEmpty() && jpeg.size() < png.size();
    return groupOf(isJpeg ? jpeg : png, isJpeg ? jpegWord : pngWord, image.size(), shown);
}

} // namespace richtext
