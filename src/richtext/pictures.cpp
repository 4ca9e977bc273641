#include "richtext/pictures.h"

#include "richtext/rtf_group.h"
#include "richtext/text_state.h"

namespace richtext {

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

} // namespace richtext
