#include "controls/pasted_rtf.h"

#include "richtext/pictures.h"

#include <QMimeData>

using namespace Qt::StringLiterals;

namespace {

/// RTF is bytes, each of which is one character of the text that the rules work on.
QByteArray rtfIn(const QMimeData& source) {
    for (const QString& type : {RtfType, u"application/rtf"_s, u"text/richtext"_s}) {
        if (source.hasFormat(type))
            return source.data(type);
    }
    return {};
}

QImage pictureIn(const QMimeData& source) {
    return source.hasImage() ? qvariant_cast<QImage>(source.imageData()) : QImage();
}

} // namespace

QString pastedRtf(const QMimeData& source, richtext::HtmlGround ground) {
    const QByteArray rtf = rtfIn(source);
    if (rtf.startsWith("{\\rtf"))
        return QString::fromLatin1(rtf);
    if (source.hasHtml()) {
        ground.picture = pictureIn(source);
        return richtext::rtfOfHtml(source.html(), ground);
    }
    if (source.hasText())
        return {};
    const QImage picture = pictureIn(source);
    return picture.isNull() ? QString() : u"{\\rtf1 "_s + richtext::pictureGroup(picture) + u'}';
}

bool canBePasted(const QMimeData& source) {
    return !rtfIn(source).isEmpty() || source.hasHtml() || source.hasText() || source.hasImage();
}
