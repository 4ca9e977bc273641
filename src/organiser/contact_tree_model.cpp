#include "organiser/contact_tree_model.h"

namespace {

/// Of a letter. That of a contact is the number of its letter, from 1 on.
constexpr quintptr letterId = 0;

} // namespace

void ContactTreeModel::setEntries(const QList<ContactEntry>& entries) {
    beginResetModel();
    for (QList<ContactEntry>& group : m_groups)
        group.clear();
    for (const ContactEntry& entry : entries) {
        if (!entry.letter.isNull())
            m_groups.at(entry.letter.unicode() - u'A') += entry;
    }
    endResetModel();
}

const ContactEntry* ContactTreeModel::entry(const QModelIndex& index) const {
    if (!index.isValid() || index.internalId() == letterId)
        return nullptr;
    return &m_groups.at(index.internalId() - 1).at(index.row());
}

QChar ContactTreeModel::letter(const QModelIndex& index) const {
    return index.isValid() && index.internalId() == letterId
               ? QChar(static_cast<char16_t>(u'A' + index.row()))
               : QChar();
}

QModelIndex ContactTreeModel::indexOf(const dao::Bookmark& place) const {
    for (size_t group = 0; group < m_groups.size(); ++group) {
        for (int row = 0; row < m_groups.at(group).size(); ++row) {
            if (m_groups.at(group).at(row).place == place)
                return createIndex(row, 0, group + 1);
        }
    }
    return {};
}

QModelIndex ContactTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || row >= rowCount(parent) || column != 0)
        return {};
    return createIndex(row, column,
                       parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : letterId);
}

QModelIndex ContactTreeModel::parent(const QModelIndex& child) const {
    if (!child.isValid() || child.internalId() == letterId)
        return {};
    return createIndex(static_cast<int>(child.internalId()) - 1, 0, letterId);
}

int ContactTreeModel::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid())
        return letters;
    return parent.internalId() == letterId
               ? static_cast<int>(m_groups.at(static_cast<size_t>(parent.row())).size())
               : 0;
}

int ContactTreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

QVariant ContactTreeModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    if (const ContactEntry* contact = entry(index))
        return contact->text();
    return QString(letter(index));
}
