#include "classes/screens/grade_editor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTextBlock>

namespace {

bool isReturn(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

} // namespace

GradeEditor::GradeEditor(dao::DataType type, int size, QWidget* parent)
    : QPlainTextEdit(parent), m_type(type), m_size(size) {
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(1);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    if (type != dao::DataType::Text)
        return;
    connect(document(), &QTextDocument::contentsChange, this,
            [this](int place, int, int added) { m_endOfAdded = place + added; });
    connect(this, &QPlainTextEdit::textChanged, this, &GradeEditor::cutToSize);
}

/// What is too much goes from the end of what came last, be it typed, pasted or composed.
void GradeEditor::cutToSize() {
    const QString text = toPlainText();
    if (text.size() <= m_size)
        return;
    const int end = qMin(m_endOfAdded, static_cast<int>(text.size()));
    int start = qMax(0, end - static_cast<int>(text.size() - m_size));
    if (start > 0 && text[start].isLowSurrogate())
        --start; // both halves of a character or none
    QTextCursor tooMuch(document());
    tooMuch.joinPreviousEditBlock();
    tooMuch.setPosition(start);
    tooMuch.setPosition(end, QTextCursor::KeepAnchor);
    tooMuch.removeSelectedText();
    tooMuch.endEditBlock();
    QApplication::beep();
}

bool GradeEditor::isNewLine(const QKeyEvent& key) const {
    return isReturn(key) &&
           (m_type == dao::DataType::Memo ||
            (m_type == dao::DataType::Text && key.modifiers() & Qt::ShiftModifier));
}

bool GradeEditor::leadsOut(const QKeyEvent& key) const {
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    const QTextBlock line = textCursor().block();
    switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return !isNewLine(key);
    case Qt::Key_Up:
        return modifiers == Qt::NoModifier && !line.previous().isValid();
    case Qt::Key_Down:
        return modifiers == Qt::NoModifier && !line.next().isValid();
    default:
        return false;
    }
}

void GradeEditor::keyPressEvent(QKeyEvent* event) {
    if (isNewLine(*event))
        insertPlainText(QStringLiteral("\n")); // the toolkit's own would be another character
    else if (event->key() == Qt::Key_Y && event->modifiers() == Qt::ControlModifier)
        redo();
    else
        QPlainTextEdit::keyPressEvent(event);
}
