#pragma once

#include <QAbstractItemModel>

/// A tree of groups and what is in them, for a model that knows how many there are and what they
/// read.
class TwoLevelModel : public QAbstractItemModel {
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    static bool isGroup(const QModelIndex& index);
    static bool isMember(const QModelIndex& index);
    /// The number of a group, or of that of a member, from 0.
    static int groupOf(const QModelIndex& index);
    QModelIndex groupIndex(int group) const { return createIndex(group, 0, groupId); }
    QModelIndex memberIndex(int group, int member) const {
        return createIndex(member, 0, static_cast<quintptr>(group) + 1);
    }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;

protected:
    virtual int groupCount() const = 0;
    virtual int memberCount(int group) const = 0;

private:
    /// Of a group. That of a member is the number of its group, from 1 on.
    static constexpr quintptr groupId = 0;
};
