#include "core/two_level_model.h"

bool TwoLevelModel::isGroup(const QModelIndex& index) {
    return index.isValid() && index.internalId() == groupId;
}

bool TwoLevelModel::isMember(const QModelIndex& index) {
    return index.isValid() && index.internalId() != groupId;
}

int TwoLevelModel::groupOf(const QModelIndex& index) {
    return isGroup(index) ? index.row() : static_cast<int>(index.internalId()) - 1;
}

QModelIndex TwoLevelModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || row >= rowCount(parent) || column != 0)
        return {};
    return parent.isValid() ? memberIndex(parent.row(), row) : groupIndex(row);
}

QModelIndex TwoLevelModel::parent(const QModelIndex& child) const {
    return isMember(child) ? groupIndex(groupOf(child)) : QModelIndex();
}

int TwoLevelModel::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid())
        return groupCount();
    return isGroup(parent) ? memberCount(parent.row()) : 0;
}

int TwoLevelModel::columnCount(const QModelIndex&) const {
    return 1;
}
