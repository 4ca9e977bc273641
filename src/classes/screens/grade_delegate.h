#pragma once

#include <QStyledItemDelegate>

#include <functional>

class QPlainTextEdit;

/// Edits a cell of the grades in its place. Return is a line break in a text, so the cell is left
/// by Tab, which edits the next one, by Up from its first line and Down from its last, by a click
/// elsewhere, or given up by Escape.
class GradeDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `store` is given what was edited, when its cell is left.
    GradeDelegate(std::function<void(const QModelIndex& cell, const QString& text)> store,
                  QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool leavesCell(QPlainTextEdit& editor, QKeyEvent& key);

    std::function<void(const QModelIndex& cell, const QString& text)> m_store;
};
