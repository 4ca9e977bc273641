#include "classes/screens/photo_box.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

using namespace Qt::StringLiterals;

PhotoBox::PhotoBox() : m_menu(new QMenu(this)) {
    setToolTip(u"Right Click for options."_s);
    setFocusPolicy(Qt::StrongFocus);
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

void PhotoBox::paintEvent(QPaintEvent* event) {
    PhotoView::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
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
        PhotoView::keyPressEvent(event);
}

void PhotoBox::focusInEvent(QFocusEvent* event) {
    PhotoView::focusInEvent(event);
    update();
}

void PhotoBox::focusOutEvent(QFocusEvent* event) {
    PhotoView::focusOutEvent(event);
    update();
}
