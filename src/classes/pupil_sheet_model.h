#pragma once

#include "classes/pupil_sheet.h"

#include <QAbstractTableModel>

/// A PupilSheet as item views read it. It writes nothing by itself: a view's editor hands what was
/// typed to the rules of its view, and these write through `write` or `fill`.
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
    void fill(const QList<int>& rows, int column, const dao::Value& value);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// A column's head is its field's name; a row's is empty.
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    /// Names and `ID` are locked, everything else can be edited.
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    PupilSheet m_sheet;
};
