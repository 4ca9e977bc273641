#include "user_menu/user_menu_model.h"

#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString NodeFormat = u"application/x-orva-menu-node"_s;
const QString TextFormat = u"text/plain"_s;
const QString InvalidEntry = u"Invalid Entry"_s;
const QString InvalidMove = u"Invalid Move"_s;

/// The file that a line of a text names; empty where it names none that is there.
QString fileOfLine(const QString& line) {
    const QUrl url(line);
    const QString path = url.isLocalFile() ? url.toLocalFile() : line;
    return path.startsWith(u'/') && QFileInfo::exists(path) ? path : QString();
}

} // namespace

struct UserMenuModel::Node {
    QString caption;
    QString path = {}; ///< empty for a menu
    Node* above = nullptr;
    std::vector<std::unique_ptr<Node>> below = {};

    bool isMenu() const { return path.isEmpty(); }
    bool isWithin(const Node& other) const {
        return this == &other || (above && above->isWithin(other));
    }
    Node& add(std::unique_ptr<Node> node) {
        node->above = this;
        return *below.emplace_back(std::move(node));
    }
    std::unique_ptr<Node> take(int row) {
        std::unique_ptr<Node> taken = std::move(below.at(static_cast<size_t>(row)));
        below.erase(below.begin() + row);
        return taken;
    }
    int row() const {
        const auto isThis = [this](const std::unique_ptr<Node>& each) {
            return each.get() == this;
        };
        const auto place = std::find_if(above->below.begin(), above->below.end(), isThis);
        return static_cast<int>(place - above->below.begin());
    }
    void fill(const UserMenu& menu) {
        for (const UserMenu& child : menu.menus)
            add(std::make_unique<Node>(Node{child.caption})).fill(child);
        for (const Shortcut& shortcut : menu.shortcuts)
            add(std::make_unique<Node>(Node{shortcut.caption, shortcut.path}));
    }
    UserMenu menu() const {
        UserMenu menu{.caption = caption};
        for (const std::unique_ptr<Node>& each : below) {
            if (each->isMenu())
                menu.menus.push_back(each->menu());
            else
                menu.shortcuts += Shortcut{each->caption, each->path};
        }
        return menu;
    }
    int shortcuts() const {
        int count = isMenu() ? 0 : 1;
        for (const std::unique_ptr<Node>& each : below)
            count += each->shortcuts();
        return count;
    }
};

UserMenuModel::UserMenuModel(const UserMenu& root) : m_root(std::make_unique<Node>()) {
    m_root->add(std::make_unique<Node>(Node{root.caption})).fill(root);
}

UserMenuModel::~UserMenuModel() = default;

UserMenuModel::Node* UserMenuModel::node(const QModelIndex& index) const {
    return index.isValid() ? static_cast<Node*>(index.internalPointer()) : m_root.get();
}

QModelIndex UserMenuModel::indexOf(const Node& node) const {
    return &node == m_root.get() ? QModelIndex() : createIndex(node.row(), 0, &node);
}

bool UserMenuModel::isMenu(const QModelIndex& index) const {
    return node(index)->isMenu();
}

QString UserMenuModel::path(const QModelIndex& index) const {
    return node(index)->path;
}

UserMenu UserMenuModel::menu() const {
    return m_root->below.front()->menu();
}

QModelIndex UserMenuModel::refuse(const QString& text, const QString& title) {
    emit refused(text, title);
    return {};
}

bool UserMenuModel::isTaken(const Node& parent, const Node& node, const QString& caption) const {
    return std::any_of(parent.below.begin(), parent.below.end(), [&](const auto& each) {
        return each.get() != &node && each->isMenu() == node.isMenu() &&
               each->caption.compare(caption, Qt::CaseInsensitive) == 0;
    });
}

bool UserMenuModel::mayBeCalled(const Node& parent, const Node& node, const QString& caption) {
    if (caption.isEmpty())
        refuse(u"A menu item needs a name."_s, InvalidEntry);
    else if (isTaken(parent, node, caption))
        refuse(u"There is already an item called \"%1\" in this menu."_s.arg(caption),
               InvalidEntry);
    else
        return true;
    return false;
}

bool UserMenuModel::mayAddTo(const QModelIndex& parent) {
    if (!isMenu(parent))
        refuse(u"You can't add a Menu Item to another Menu Item."_s, InvalidEntry);
    return isMenu(parent);
}

QModelIndex UserMenuModel::add(const QModelIndex& parent, std::unique_ptr<Node> added) {
    Node* menu = node(parent);
    if (!mayAddTo(parent) || !mayBeCalled(*menu, *added, added->caption))
        return {};
    if (!added->isMenu() && m_root->shortcuts() - 1 >= MostShortcuts)
        return refuse(
            u"The menu holds %1 shortcuts, which is as many as it can."_s.arg(MostShortcuts),
            InvalidEntry);
    const int row = static_cast<int>(menu->below.size());
    beginInsertRows(parent, row, row);
    const Node& node = menu->add(std::move(added));
    endInsertRows();
    m_isChanged = true;
    return indexOf(node);
}

QModelIndex UserMenuModel::addMenu(const QModelIndex& parent, const QString& caption) {
    return add(parent, std::make_unique<Node>(Node{caption.trimmed()}));
}

QModelIndex UserMenuModel::addShortcut(const QModelIndex& parent, const Shortcut& shortcut) {
    return add(parent, std::make_unique<Node>(Node{shortcut.caption.trimmed(), shortcut.path}));
}

bool UserMenuModel::rename(const QModelIndex& index, const QString& caption) {
    Node* renamed = node(index);
    if (!index.isValid() || index == root()) {
        refuse(u"You can't rename the Root Menu"_s, u"Can't rename"_s);
        return false;
    }
    if (!mayBeCalled(*renamed->above, *renamed, caption.trimmed()))
        return false;
    m_isChanged = m_isChanged || renamed->caption != caption.trimmed();
    renamed->caption = caption.trimmed();
    emit dataChanged(index, index);
    return true;
}

QModelIndex UserMenuModel::move(const QModelIndex& from, const QModelIndex& to) {
    Node* moved = node(from);
    Node* menu = node(to);
    if (!from.isValid() || !to.isValid() || moved->above == menu)
        return from;
    if (menu->isWithin(*moved))
        return refuse(u"You can't move a menu onto a submenu of itself"_s, InvalidMove);
    if (!menu->isMenu())
        return refuse(u"You can't add sub items to a 'Menu Item'"_s, InvalidMove);
    if (!mayBeCalled(*menu, *moved, moved->caption))
        return {};
    beginMoveRows(from.parent(), from.row(), from.row(), to, static_cast<int>(menu->below.size()));
    const Node& placed = menu->add(moved->above->take(from.row()));
    endMoveRows();
    m_isChanged = true;
    return indexOf(placed);
}

bool UserMenuModel::addLines(const QModelIndex& parent, const QString& text) {
    Node* menu = node(parent);
    if (!menu->isMenu()) {
        refuse(u"You can't add sub items to a 'Menu Item'"_s, InvalidMove);
        return false;
    }
    for (const QString& line : QString(text).remove(u'\r').split(u'\n', Qt::SkipEmptyParts)) {
        const QString words = line.trimmed();
        if (words.isEmpty())
            continue;
        const QString file = fileOfLine(words);
        auto added = std::make_unique<Node>(
            Node{file.isEmpty() ? words : QFileInfo(file).completeBaseName(), file});
        const QString wanted = added->caption;
        for (int number = 2; isTaken(*menu, *added, added->caption); ++number)
            added->caption = u"%1 (%2)"_s.arg(wanted).arg(number);
        if (!add(parent, std::move(added)).isValid())
            return false;
    }
    return true;
}

void UserMenuModel::remove(const QModelIndex& index) {
    if (!index.isValid() || index == root())
        return;
    beginRemoveRows(index.parent(), index.row(), index.row());
    const std::unique_ptr<Node> taken = node(index)->above->take(index.row());
    endRemoveRows();
    m_isChanged = true;
}

QModelIndex UserMenuModel::index(int row, int column, const QModelIndex& parent) const {
    const Node* above = node(parent);
    return column == 0 && row >= 0 && row < static_cast<int>(above->below.size())
               ? createIndex(row, 0, above->below.at(static_cast<size_t>(row)).get())
               : QModelIndex();
}

QModelIndex UserMenuModel::parent(const QModelIndex& child) const {
    return child.isValid() ? indexOf(*node(child)->above) : QModelIndex();
}

int UserMenuModel::rowCount(const QModelIndex& parent) const {
    return static_cast<int>(node(parent)->below.size());
}

int UserMenuModel::columnCount(const QModelIndex&) const {
    return 1;
}

QVariant UserMenuModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return node(index)->caption;
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole)
        return node(index)->isMenu() ? u"Menu"_s : node(index)->path;
    return {};
}

bool UserMenuModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    return role == Qt::EditRole && rename(index, value.toString());
}

Qt::ItemFlags UserMenuModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
    return index == root() ? usual : usual | Qt::ItemIsDragEnabled | Qt::ItemIsEditable;
}

QStringList UserMenuModel::mimeTypes() const {
    return {NodeFormat, TextFormat};
}

QMimeData* UserMenuModel::mimeData(const QModelIndexList& indexes) const {
    m_dragged = indexes.value(0);
    auto* data = new QMimeData;
    data->setData(NodeFormat, QByteArray());
    return data;
}

bool UserMenuModel::dropMimeData(const QMimeData* data, Qt::DropAction, int, int,
                                 const QModelIndex& parent) {
    if (data->hasFormat(NodeFormat)) {
        const QModelIndex place = move(m_dragged, parent);
        if (place.isValid())
            emit moved(place);
        return place.isValid();
    }
    if (!data->hasText()) {
        refuse(u"Data format not supported, sorry."_s, {});
        return false;
    }
    return addLines(parent, data->text());
}
