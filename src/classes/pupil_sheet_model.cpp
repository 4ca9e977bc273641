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
    m_sheet.write(row, changes);
    for (const CellChange& change : changes)
        emit dataChanged(index(row, change.column), index(row, change.column));
}

void PupilSheetModel::fill(const QList<int>& rows, int column, const dao::Value& value) {
    m_sheet.fill(rows, column, value);
    if (m_sheet.rowCount() > 0)
        emit dataChanged(index(0, column), index(m_sheet.rowCount() - 1, column));
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
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
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
