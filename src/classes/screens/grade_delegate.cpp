#include "classes/screens/grade_delegate.h"

#include <QPlainTextEdit>

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
