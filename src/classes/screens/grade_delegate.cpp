#include "classes/screens/grade_delegate.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

using namespace Qt::StringLiterals;

GradeDelegate::GradeDelegate(
    std::function<void(const QModelIndex& cell, const QString& text)> store, QObject* parent)
    : QStyledItemDelegate(parent), m_store(std::move(store)) {}

QWidget* GradeDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const {
    auto* editor = new QPlainTextEdit(parent);
    editor->setObjectName(u"GradeEditor"_s);
    editor->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    editor->setFrameShape(QFrame::NoFrame);
    editor->document()->setDocumentMargin(1);
    editor->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    editor->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    editor->setLineWrapMode(QPlainTextEdit::NoWrap);
    return editor;
}

void GradeDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* box = static_cast<QPlainTextEdit*>(editor);
    box->setPlainText(index.data(Qt::EditRole).toString());
    box->selectAll();
}

void GradeDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                 const QModelIndex& index) const {
    m_store(index, static_cast<QPlainTextEdit*>(editor)->toPlainText());
}

bool GradeDelegate::eventFilter(QObject* watched, QEvent* event) {
    auto* editor = qobject_cast<QPlainTextEdit*>(watched);
    if (editor && event->type() == QEvent::KeyPress &&
        leavesCell(*editor, *static_cast<QKeyEvent*>(event)))
        return true;
    return QStyledItemDelegate::eventFilter(watched, event);
}

/// Leaves the cell by a key that leads out of it. The arrows go on to the grid, which moves.
bool GradeDelegate::leavesCell(QPlainTextEdit& editor, QKeyEvent& key) {
    const QTextBlock line = editor.textCursor().block();
    const bool isPlain = key.modifiers() == Qt::NoModifier;
    const bool isUp = isPlain && key.key() == Qt::Key_Up && !line.previous().isValid();
    const bool isDown = isPlain && key.key() == Qt::Key_Down && !line.next().isValid();
    const bool isTab = key.key() == Qt::Key_Tab;
    if (!isUp && !isDown && !isTab && key.key() != Qt::Key_Backtab)
        return false;
    QObject* grid = editor.parent()->parent(); // of the viewport
    emit commitData(&editor);
    emit closeEditor(&editor, isUp || isDown ? NoHint : isTab ? EditNextItem : EditPreviousItem);
    if (isUp || isDown)
        QCoreApplication::sendEvent(grid, &key);
    return true;
}
