#include "classes/screens/photo_view.h"

#include "classes/class_photos.h"

#include <QPainter>

using namespace Qt::StringLiterals;

PhotoView::PhotoView() {
    setObjectName(u"PicPhoto"_s);
    setAccessibleName(u"Photo"_s);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PhotoView::setPhoto(const QImage& photo) {
    m_photo = photo;
    m_isClear = false;
    setAccessibleDescription(photo.isNull() ? u"No Photo Available"_s : QString());
    update();
}

void PhotoView::clear() {
    setPhoto({});
    m_isClear = true;
    setAccessibleDescription({});
}

QSize PhotoView::sizeHint() const {
    constexpr int frame = 2;
    return StandardPhoto + QSize(2 * frame, 2 * frame);
}

void PhotoView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect inside = rect().adjusted(1, 1, -1, -1);
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (m_isClear)
        return;
    if (m_photo.isNull()) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(inside, Qt::AlignLeft | Qt::AlignTop, u"  No Photo\n  Available"_s);
    } else {
        QRect place(QPoint(), m_photo.size().scaled(inside.size(), Qt::KeepAspectRatio));
        place.moveCenter(inside.center());
        // In the screen's own pixels, so that none of the photo's detail is lost on the way.
        painter.drawImage(place, m_photo.scaled(place.size() * devicePixelRatio(),
                                                Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
}
