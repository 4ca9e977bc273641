#include "classes/screens/photo_box.h"

#include "classes/class_photos.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

using namespace Qt::StringLiterals;

PhotoBox::PhotoBox() : m_menu(new QMenu(this)) {
    setObjectName(u"PicPhoto"_s);
    setAccessibleName(u"Photo"_s);
    setToolTip(u"Right Click for options."_s);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    const auto add = [this](const QString& caption, void (PhotoBox::*wanted)()) {
        connect(m_menu->addAction(caption), &QAction::triggered, this, wanted);
    };
    add(u"Capture Image"_s, &PhotoBox::captureWanted);
    add(u"Load from file..."_s, &PhotoBox::fileWanted);
    add(u"Load Class from Picture files..."_s, &PhotoBox::filesWanted);
    add(u"Load Class from a  Picture Strip..."_s, &PhotoBox::stripWanted);
    add(u"Remove Picture"_s, &PhotoBox::removeWanted);
    add(u"Remove ALL pictures"_s, &PhotoBox::removeAllWanted);
}

void PhotoBox::setPhoto(const QImage& photo) {
    m_photo = photo;
    setAccessibleDescription(photo.isNull() ? u"No Photo Available"_s : QString());
    update();
}

QSize PhotoBox::sizeHint() const {
    constexpr int frame = 2;
    return StandardPhoto + QSize(2 * frame, 2 * frame);
}

void PhotoBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect inside = rect().adjusted(1, 1, -1, -1);
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
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
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void PhotoBox::contextMenuEvent(QContextMenuEvent* event) {
    m_menu->popup(event->globalPos());
}

void PhotoBox::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit fileWanted();
}

void PhotoBox::keyPressEvent(QKeyEvent* event) {
    const bool withCtrl = event->modifiers() == Qt::ControlModifier;
    if (event->key() == Qt::Key_Z && withCtrl)
        emit stripWanted();
    else if (event->key() == Qt::Key_D && withCtrl)
        emit removeAllWanted();
    else if (event->key() == Qt::Key_Delete)
        emit removeWanted();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit fileWanted();
    else
        QWidget::keyPressEvent(event);
}

void PhotoBox::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void PhotoBox::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}
