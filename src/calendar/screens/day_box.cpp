#include "calendar/screens/day_box.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QToolTip>
#include <QWheelEvent>
#include <QtMath>

using namespace Qt::StringLiterals;

namespace {

/// Where a key leads from one box to the next: -1 up, 1 down, 0 nowhere.
int stepOfKey(const QKeyEvent& event) {
    if (event.modifiers() & ~Qt::KeypadModifier)
        return 0;
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_PageUp:
        return -1;
    case Qt::Key_Down:
    case Qt::Key_PageDown:
        return 1;
    default:
        return 0;
    }
}

bool beginsLine(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Keys that do nothing to a text by themselves, or lead out of it.
bool isIdleKey(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_Menu:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
        return true;
    default:
        return false;
    }
}

} // namespace

DayBox::DayBox(int day, QWidget* parent) : RichTextBox(u"Day %1"_s.arg(day), parent) {
    setObjectName(u"T1(%1)"_s.arg(day - 1));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setGrown(false);
}

void DayBox::setNewTextFont(const FontRecord& font) {
    m_isBlank = m_isBlank && font == m_newTextFont;
    m_newTextFont = font;
}

/// Most days of most months are empty: what was, and was not touched, is left as it is.
void DayBox::show(const QString& text) {
    const bool isUntouched = m_isBlank && document()->isEmpty() && !document()->isModified() &&
                             !document()->isUndoAvailable();
    if (text.isEmpty() && isUntouched)
        return setTextCursor(QTextCursor(document()));
    setRtf(text);
    m_isBlank = applyDefaultFont(m_newTextFont);
}

void DayBox::setGrown(bool grown) {
    m_isGrown = grown;
    setVerticalScrollBarPolicy(grown ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    if (!grown)
        verticalScrollBar()->setValue(0);
}

bool DayBox::hasMoreLines() const {
    // The document itself counts its paragraphs only.
    return document()->blockCount() > 1 || document()->firstBlock().layout()->lineCount() > 1;
}

void DayBox::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const int step = stepOfKey(*event);
    if (m_isGrown && key == Qt::Key_Escape)
        return emit restoreWanted();
    if (!m_isGrown && step != 0)
        return emit stepWanted(step);
    RichTextBox::keyPressEvent(event);
    if (!m_isGrown && (beginsLine(key) || (!isIdleKey(key) && hasMoreLines())))
        emit growthWanted();
}

/// In the list a box that is left shows its first line.
void DayBox::focusOutEvent(QFocusEvent* event) {
    RichTextBox::focusOutEvent(event);
    if (!m_isGrown)
        verticalScrollBar()->setValue(0);
}

/// In the list the room below the first line stays free of the heads of a second one.
void DayBox::paintEvent(QPaintEvent* event) {
    RichTextBox::paintEvent(event);
    if (m_isGrown || verticalScrollBar()->value() > 0 || !hasMoreLines())
        return;
    const QTextLayout& first = *document()->firstBlock().layout();
    const QRectF line = first.lineAt(0).rect().translated(first.position());
    const QRect below = viewport()->rect().adjusted(0, qCeil(line.bottom()), 0, 0);
    QPainter(viewport()).fillRect(below, paper());
}

/// In the list the wheel scrolls the list.
void DayBox::wheelEvent(QWheelEvent* event) {
    if (m_isGrown)
        RichTextBox::wheelEvent(event);
    else
        event->ignore();
}

/// Who points at a box that shows one line of more sees them all.
bool DayBox::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip || m_isGrown || !hasMoreLines())
        return RichTextBox::viewportEvent(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       Qt::convertFromPlainText(plainText()), this);
    return true;
}
