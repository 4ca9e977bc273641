#pragma once

#include "classes/pupil_sheet_model.h"

#include <QTableView>

#include <functional>
#include <optional>

/// The grid of the class window's views: a row a pupil, level with the list of names beside it,
/// which shows what is hidden here. What a key or an edit does is the view's.
class PupilGrid : public QTableView {
    Q_OBJECT

public:
    explicit PupilGrid(PupilSheetModel& model);
    using QTableView::edit;

    /// Takes over what stands in an open editor, before the records go.
    void takeOverEditor();
    /// Hides the names and `ID`.
    void hideNames();
    /// Lets the view see a key before the grid does; true where it has been dealt with.
    void onKey(std::function<bool(QKeyEvent& event)> handle) { m_handleKey = std::move(handle); }
    /// The height of all rows, in pixels; not less than the text needs.
    void setRowHeight(int pixels);
    /// Makes a column the leftmost in view; a hidden one, or one before the first, leaves the
    /// first.
    void setLeftColumn(int column);
    /// Selects a column as a whole, as a press on its head does; the current pupil stays. Shift
    /// extends the selection from the one picked before, Ctrl adds or takes away.
    void pickColumn(int column, Qt::KeyboardModifiers modifiers = {});
    /// The columns that are selected as a whole, from left to right.
    QList<int> selectedColumns() const;
    /// Takes over the head's presses from the base, which makes another pupil the current one. A
    /// right press picks the column and asks for the menu. To be called for a head that is set.
    void watchHead();

signals:
    void menuWanted(QPoint place); ///< in global coordinates

protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void updateGeometries() override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    void selectPicked(int currentColumn);

    std::function<bool(QKeyEvent& event)> m_handleKey;
    QList<int> m_picked; ///< columns
    int m_anchor = -1;   ///< the column that Shift extends from
    bool m_isPicking = false;
    std::optional<int> m_leftColumn; ///< to be the leftmost as soon as there is a layout
};

/// The height of a row that shows text in a widget's font, in pixels.
int textRowHeight(const QWidget& widget);
