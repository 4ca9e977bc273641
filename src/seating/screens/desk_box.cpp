#include "seating/screens/desk_box.h"

#include "controls/colours.h"

#include <QFocusEvent>
#include <QPainter>
#include <QTextOption>

using namespace Qt::StringLiterals;

namespace {

/// In the middle of the desk; a word that is too long for it is broken.
QTextOption captionOption() {
    QTextOption option(Qt::AlignCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

} // namespace

DeskBox::DeskBox(QWidget* canvas) : QLabel(canvas) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus);
}

void DeskBox::setDesk(const Desk& desk, const QString& spoken) {
    m_desk = desk;
    if (accessibleName() != spoken)
        setAccessibleName(spoken);
    update();
}

void DeskBox::setLook(const DeskLook& look) {
    m_look = look;
    // Kerning would cost a third of the painting. Scripts that can't do without shaping keep it.
    m_look.font.setStyleStrategy(QFont::PreferNoShaping);
    setFont(m_look.font);
    update();
}

void DeskBox::setMarked(bool marked) {
    if (m_isMarked == marked)
        return;
    m_isMarked = marked;
    update();
}

void DeskBox::setPlain(bool plain) {
    m_isPlain = plain;
    update();
}

void DeskBox::paintEvent(QPaintEvent*) {
    const bool isMarked = m_isMarked && !m_isPlain;
    const QColor ground = isMarked              ? palette().color(QPalette::Highlight)
                          : m_desk.isTeachers() ? m_look.teachers
                                                : m_look.desks;
    const QColor text = isMarked ? textColourOn(ground, palette().color(QPalette::HighlightedText))
                                 : textColourOn(ground, m_look.text);
    QPainter painter(this);
    // Two fills are quicker than a frame drawn by a pen.
    painter.fillRect(rect(), textColourOn(ground));
    painter.fillRect(rect().adjusted(1, 1, -1, -1), ground);
    if (hasFocus() && !m_isPlain) {
        painter.setPen(QPen(textColourOn(ground), 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(2, 2, -3, -3));
    }
    painter.setPen(text);
    painter.drawText(QRectF(rect().adjusted(1, 1, -1, -1)), QString(m_desk.caption).remove(u'\r'),
                     captionOption());
}

void DeskBox::focusInEvent(QFocusEvent* event) {
    QLabel::focusInEvent(event);
    emit entered();
}

void DeskBox::focusOutEvent(QFocusEvent* event) {
    QLabel::focusOutEvent(event);
    update();
}
