#include "classes/pupil_sheet_model.h"

#include <algorithm>

PupilSheetModel::PupilSheetModel(QObject* parent) : QAbstractTableModel(parent) {}

void PupilSheetModel::setSheet(PupilSheet sheet) {
    beginResetModel();
    m_sheet.Close();
    m_sheet = std::move(sheet);
    endResetModel();
}

void PupilSheetModel::write(int row, const QList<CellChange>& changes) {
    record({{row, changes}}, [&] { m_sheet.write(row, changes); });
}

void PupilSheetModel::write(const QList<RowChange>& changes) {
    record(changes, [&] { m_sheet.write(changes); });
}

/// Notes what stands in the cells before and after; what has not changed is no part of the step.
void PupilSheetModel::record(const QList<RowChange>& changes, const std::function<void()>& write) {
    CellHistory::Step all;
    for (const RowChange& change : changes) {
        for (const CellChange& cell : change.cells)
            all.append({m_sheet.pupil(change.row),
                        m_sheet.columns()[cell.column],
                        m_sheet.value(change.row, cell.column),
                        {}});
    }
    write();
    CellHistory::Step step;
    auto edit = all.begin();
    for (const RowChange& change : changes) {
        for (const CellChange& cell : change.cells) {
            edit->after = m_sheet.value(change.row, cell.column);
            if (!(edit->after == edit->before))
                step += *edit;
            ++edit;
        }
    }
    if (!step.isEmpty())
        m_history.add(step);
    tellChanged(changes);
}

void PupilSheetModel::tellChanged(const QList<RowChange>& changes) {
    for (const RowChange& change : changes) {
        for (const CellChange& cell : change.cells)
            emit dataChanged(index(change.row, cell.column), index(change.row, cell.column));
    }
}

QModelIndex PupilSheetModel::apply(const CellHistory::Step& step, dao::Value PupilEdit::*side) {
    QList<RowChange> changes;
    for (const PupilEdit& edit : step) {
        const int row = m_sheet.rowOf(edit.pupil);
        const int column = m_sheet.columnOf(edit.field);
        if (row < 0 || column < 0)
            return {};
        changes.append({row, {{column, edit.*side}}});
    }
    if (changes.isEmpty())
        return {};
    m_sheet.write(changes);
    tellChanged(changes);
    return index(changes.first().row, changes.first().cells.first().column);
}

QModelIndex PupilSheetModel::undo() {
    const QModelIndex place = apply(m_history.toUndo(), &PupilEdit::before);
    if (place.isValid())
        m_history.undone();
    return place;
}

QModelIndex PupilSheetModel::redo() {
    const QModelIndex place = apply(m_history.toRedo(), &PupilEdit::after);
    if (place.isValid())
        m_history.redone();
    return place;
}

int PupilSheetModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_sheet.rowCount();
}

int PupilSheetModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_sheet.columnCount();
}

QVariant PupilSheetModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    return m_sheet.text(index.row(), index.column());
}

QVariant PupilSheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    return m_sheet.columns().value(section);
}

Qt::ItemFlags PupilSheetModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const bool isLocked = index.column() == PupilSheet::SurnameColumn ||
                          index.column() == PupilSheet::FirstnameColumn ||
                          index.column() == PupilSheet::IdColumn;
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return isLocked ? flags : flags | Qt::ItemIsEditable;
}
