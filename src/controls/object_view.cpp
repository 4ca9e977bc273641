#include "controls/object_view.h"

#include "controls/icons.h"
#include "richtext/objects.h"
#include "richtext/pictures.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSize = 18;
constexpr int gap = 4;
constexpr qsizetype longestName = 40;

QString nameShown(const richtext::EmbeddedObject& object) {
    const QString name = object.name.isEmpty() ? object.className : object.name;
    const QString shown = name.isEmpty() ? u"Object"_s : name.simplified();
    return shown.size() <= longestName ? shown : shown.left(longestName - 1) + QChar(0x2026);
}

} // namespace

ObjectView::ObjectView(QTextEdit& box) : QObject(&box), m_box(box) {}

void ObjectView::registerWith(QAbstractTextDocumentLayout& layout) {
    layout.registerHandler(richtext::EmbeddedObjectType, this);
    layout.registerHandler(richtext::PictureType, this);
}

ObjectView::Face ObjectView::objectFace(const QString& source) const {
    const richtext::EmbeddedObject object = richtext::objectOf(source);
    const bool isEquation = object.className == u"Equation";
    Face face{source, isEquation ? u"equation"_s : u"package"_s, nameShown(object), {}, {}};
    const QFontMetricsF metrics(m_box.document()->defaultFont());
    face.size = QSizeF(iconSize + metrics.horizontalAdvance(face.name) + 3 * gap,
                       std::max<qreal>(iconSize, metrics.height()) + gap);
    return face;
}

ObjectView::Face ObjectView::pictureFace(const QString& source) const {
    Face face{source, {}, {}, richtext::pictureOf(source), richtext::pictureSize(source)};
    if (face.picture.isNull()) {
        face = objectFace(source);
        face.icon = u"picture"_s;
        face.name = u"Picture"_s;
    } else if (face.size.isEmpty()) {
        face.size = face.picture.size();
    }
    return face;
}

const ObjectView::Face& ObjectView::faceOf(const QTextFormat& format) {
    const QString source = format.stringProperty(richtext::ObjectSource);
    if (const Face* known = m_faces.object(source.constData()))
        return *known;
    auto* face = new Face(format.objectType() == richtext::PictureType ? pictureFace(source)
                                                                       : objectFace(source));
    m_faces.insert(source.constData(), face);
    return *face;
}

QSizeF ObjectView::intrinsicSize(QTextDocument* document, int, const QTextFormat& format) {
    const QSizeF size = faceOf(format).size;
    const qreal room = document->textWidth() - 2 * document->documentMargin();
    return room > 0 && size.width() > room ? size * (room / size.width()) : size;
}

void ObjectView::drawObject(QPainter* painter, const QRectF& rect, QTextDocument*, int,
                            const QTextFormat& format) {
    const Face& face = faceOf(format);
    if (!face.picture.isNull()) {
        painter->drawImage(rect, face.picture);
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QPalette palette = m_box.palette();
    painter->setPen(palette.color(QPalette::Disabled, QPalette::Text));
    painter->setBrush(palette.color(QPalette::Base));
    painter->drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    const QRectF iconRect(rect.left() + gap, rect.center().y() - iconSize / 2.0, iconSize,
                          iconSize);
    paintIcon(*painter, iconRect.toRect(), face.icon, palette.color(QPalette::Text));
    painter->setFont(m_box.document()->defaultFont());
    painter->setPen(palette.color(QPalette::Text));
    painter->drawText(rect.adjusted(iconSize + 2 * gap, 0, 0, 0), Qt::AlignVCenter, face.name);
    painter->restore();
}
