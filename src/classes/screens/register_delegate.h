#pragma once

#include "classes/register_keys.h"

#include <QStyledItemDelegate>

#include <functional>

/// Paints the marks of a register, and lets one be edited in its cell: only keys that mark are
/// taken, as capitals.
class RegisterDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `store` is given what was edited, when its cell is left.
    RegisterDelegate(const KeyArray& keys,
                     std::function<void(const QModelIndex& cell, const QString& text)> store,
                     QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

signals:
    void keyRefused(); ///< a key was typed into the editor that marks nothing

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const KeyArray& m_keys;
    std::function<void(const QModelIndex& cell, const QString& text)> m_store;
};
