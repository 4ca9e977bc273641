#include "classes/screens/register_delegate.h"

#include "classes/register_marking.h"

#include <QKeyEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

RegisterDelegate::RegisterDelegate(
    const KeyArray& keys, std::function<void(const QModelIndex& cell, const QString& text)> store,
    QObject* parent)
    : QStyledItemDelegate(parent), m_keys(keys), m_store(std::move(store)) {}

QWidget* RegisterDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                        const QModelIndex& index) const {
    if (!canFill(index.column()))
        return nullptr;
    auto* editor = new QLineEdit(parent);
    editor->setObjectName(u"MarkEditor"_s);
    editor->setAccessibleName(u"Mark"_s);
    editor->setFrame(false);
    editor->setTextMargins(0, 0, 0, 0);
    return editor;
}

void RegisterDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                    const QModelIndex& index) const {
    m_store(index, static_cast<QLineEdit*>(editor)->text());
}

void RegisterDelegate::initStyleOption(QStyleOptionViewItem* option,
                                       const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (canFill(index.column()))
        option->displayAlignment = Qt::AlignCenter;
}

bool RegisterDelegate::eventFilter(QObject* watched, QEvent* event) {
    auto* editor = qobject_cast<QLineEdit*>(watched);
    if (editor && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const QString typed = key->text();
        QString mark;
        if (!typed.isEmpty() && typed.at(0).isPrint()) {
            if (registerKey(m_keys, typed, mark) == KeyEffect::Mark)
                editor->insert(mark);
            else
                emit keyRefused();
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}
