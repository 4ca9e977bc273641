#pragma once

#include "classes/cell_history.h"
#include "classes/pupil_sheet.h"

#include <QAbstractTableModel>

#include <functional>

/// A PupilSheet as item views read it. It writes nothing by itself: a view's editor hands what was
/// typed to the rules of its view, and these write through `write`. What they write can be undone,
/// whichever records are shown in between, until the history is cleared.
class PupilSheetModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit PupilSheetModel(QObject* parent = nullptr);

    /// Shows another sheet; the one before is closed.
    void setSheet(PupilSheet sheet);
    const PupilSheet& sheet() const { return m_sheet; }

    /// As PupilSheet's operations of these names; the views follow a change.
    void select(int row) { m_sheet.select(row); }
    void write(int row, const QList<CellChange>& changes);
    void write(const QList<RowChange>& changes);

    /// Takes the last step back, or does the one undone last again; all of it or nothing. Answers
    /// its first cell. With no step there is, or with a pupil in it who is not among the records,
    /// nothing is done and no cell answered. Raises what the engine raises.
    QModelIndex undo();
    QModelIndex redo();
    CellHistory& history() { return m_history; }
    const CellHistory& history() const { return m_history; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// A column's head is its field's name, which its tool tip tells in full; a row's is empty.
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    /// Names and `ID` are locked, everything else can be edited.
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void record(const QList<RowChange>& changes, const std::function<void()>& write);
    QModelIndex apply(const CellHistory::Step& step, dao::Value PupilEdit::*side);
    void tellChanged(const QList<RowChange>& changes);

    PupilSheet m_sheet;
    CellHistory m_history;
};
