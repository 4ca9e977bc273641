#include "organiser/contact_tree_model.h"

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
    if (!isMember(index))
        return nullptr;
    return &m_groups.at(static_cast<size_t>(groupOf(index))).at(index.row());
}

QChar ContactTreeModel::letter(const QModelIndex& index) const {
    return isGroup(index) ? QChar(static_cast<char16_t>(u'A' + index.row())) : QChar();
}

QModelIndex ContactTreeModel::indexOf(const dao::Bookmark& place) const {
    for (int group = 0; group < letters; ++group) {
        for (int row = 0; row < memberCount(group); ++row) {
            if (m_groups.at(static_cast<size_t>(group)).at(row).place == place)
                return memberIndex(group, row);
        }
    }
    return {};
}

int ContactTreeModel::memberCount(int group) const {
    return static_cast<int>(m_groups.at(static_cast<size_t>(group)).size());
}

QVariant ContactTreeModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    if (const ContactEntry* contact = entry(index))
        return contact->text();
    return QString(letter(index));
}
