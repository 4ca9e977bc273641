#include "seating/screens/desk_box.h"

#include "controls/colours.h"

#include <QFocusEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

/// Each line of a caption as far as there is room for it, in the middle of the desk. A caption of
/// one line is broken where it needs to be.
void paintCaption(QPainter& painter, const QRect& room, const QString& caption) {
    const QStringList lines = QString(caption).remove(u'\r').split(u'\n');
    if (lines.size() == 1)
        return painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap, caption);
    QStringList shown;
    for (const QString& line : lines)
        shown += painter.fontMetrics().elidedText(line, Qt::ElideRight, room.width());
    painter.drawText(room, Qt::AlignCenter, shown.join(u'\n'));
}

} // namespace

DeskBox::DeskBox(QWidget* canvas) : QWidget(canvas) {
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
    setFont(look.font);
    update();
}

void DeskBox::setMarked(bool marked) {
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
    painter.fillRect(rect(), ground);
    painter.setPen(textColourOn(ground));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (hasFocus() && !m_isPlain) {
        painter.setPen(QPen(textColourOn(ground), 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(2, 2, -3, -3));
    }
    painter.setPen(text);
    paintCaption(painter, rect().adjusted(2, 2, -2, -2), m_desk.caption);
}

void DeskBox::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    emit entered();
}

void DeskBox::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}
