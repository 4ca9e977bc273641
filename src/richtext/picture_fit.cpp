#include "richtext/picture_fit.h"

#include "richtext/objects.h"
#include "richtext/pictures.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace richtext {

namespace {

constexpr double step = 0.8;
constexpr double leastSide = 16; ///< logical pixels of the longer side

struct PlacedPicture {
    int position;
    QString source;
    QTextCharFormat format;
};

QList<PlacedPicture> picturesOf(const QTextDocument& document) {
    QList<PlacedPicture> pictures;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const QTextCharFormat format = fragment.charFormat();
            for (int i = 0; format.objectType() == PictureType && i < fragment.length(); ++i)
                pictures += {fragment.position() + i, format.stringProperty(ObjectSource), format};
        }
    }
    return pictures;
}

/// The picture in at most `most` characters: with no more pixels than it is shown with, then ever
/// smaller.
QString smallerPicture(const QString& source, qsizetype most) {
    if (source.size() <= most)
        return source;
    const QImage image = pictureOf(source);
    if (image.isNull())
        return {};
    QSizeF shown = pictureSize(source);
    if (shown.isEmpty())
        shown = image.size();
    for (; std::max(shown.width(), shown.height()) >= leastSide; shown *= step) {
        const QSize pixels = shown.toSize().boundedTo(image.size()).expandedTo(QSize(1, 1));
        const QString group = shortestPicture(
            image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), shown);
        if (group.size() <= most)
            return group;
    }
    return {};
}

} // namespace

QString withSmallerPictures(const QString& rtf, qsizetype excess) {
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    readDocument(rtf, document);
    const QList<PlacedPicture> pictures = picturesOf(document);
    qsizetype present = 0;
    for (const PlacedPicture& picture : pictures)
        present += picture.source.size();
    if (present <= excess)
        return {};
    const double share = static_cast<double>(present - excess) / static_cast<double>(present);
    QTextCursor cursor(&document);
    for (const PlacedPicture& picture : pictures) {
        const auto most =
            static_cast<qsizetype>(static_cast<double>(picture.source.size()) * share);
        const QString smaller = smallerPicture(picture.source, most);
        if (smaller.isEmpty())
            return {};
        QTextCharFormat format = picture.format;
        format.setProperty(ObjectSource, smaller);
        cursor.setPosition(picture.position);
        cursor.setPosition(picture.position + 1, QTextCursor::KeepAnchor);
        cursor.setCharFormat(format);
    }
    return writeDocument(document);
}

} // namespace richtext
