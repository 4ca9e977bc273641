#pragma once

#include "organiser/address_book.h"

#include <QAbstractItemModel>

#include <array>

/// The contacts of an address book below the letters from A to Z.
class ContactTreeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    void setEntries(const QList<ContactEntry>& entries);
    /// The contact at a place of the tree; null for a letter.
    const ContactEntry* entry(const QModelIndex& index) const;
    /// The letter of a group; null for a contact.
    QChar letter(const QModelIndex& index) const;
    /// Where a contact stands; an invalid one where it is in no group.
    QModelIndex indexOf(const dao::Bookmark& place) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    static constexpr int letters = 26;
    std::array<QList<ContactEntry>, letters> m_groups;
};
