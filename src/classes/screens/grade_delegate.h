#pragma once

#include "classes/screens/grade_editor.h"

#include <QPointer>
#include <QStyledItemDelegate>

#include <functional>

/// Edits a cell of the grades in its place.
class GradeDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// Stores what was typed; false where it can't be.
    using Store = std::function<bool(const QModelIndex& cell, const QString& text)>;
    GradeDelegate(Store store, QObject* parent);

    /// The open cell: its editor, null while none is open, where it is, and whether what stands in
    /// it could not be stored.
    GradeEditor* editor() const { return m_editor; }
    QModelIndex cell() const { return m_cell; }
    bool isRefused() const { return m_isRefused; }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;

signals:
    void keyLeadsOut(QKeyEvent& key); ///< of the open cell

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Store m_store;
    // The view's calls that open and store a cell are const.
    mutable QPointer<GradeEditor> m_editor;
    mutable QPersistentModelIndex m_cell;
    mutable bool m_isRefused = false;
};
