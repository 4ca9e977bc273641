#pragma once

#include "core/two_level_model.h"
#include "organiser/address_book.h"

#include <array>

/// The contacts of an address book below the letters from A to Z.
class ContactTreeModel : public TwoLevelModel {
    Q_OBJECT

public:
    using TwoLevelModel::TwoLevelModel;

    void setEntries(const QList<ContactEntry>& entries);
    /// The contact at a place of the tree; null for a letter.
    const ContactEntry* entry(const QModelIndex& index) const;
    /// The letter of a group; null for a contact.
    QChar letter(const QModelIndex& index) const;
    /// Where a contact stands; an invalid one where it is in no group.
    QModelIndex indexOf(const dao::Bookmark& place) const;

    QVariant data(const QModelIndex& index, int role) const override;

protected:
    int groupCount() const override { return letters; }
    int memberCount(int group) const override;

private:
    static constexpr int letters = 26;
    std::array<QList<ContactEntry>, letters> m_groups;
};
