#pragma once

#include "user_menu/user_menu.h"

#include <QAbstractItemModel>

#include <memory>

/// The tree of the menu editor: the root menu, the menus and shortcuts in it, at any depth. What is
/// not allowed is refused with the reason, and changes nothing. Captions of one menu differ,
/// without regard to case, each kind for itself: the settings could not keep them apart.
class UserMenuModel : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit UserMenuModel(const UserMenu& root);
    ~UserMenuModel() override;

    QModelIndex root() const { return index(0, 0); }
    bool isMenu(const QModelIndex& index) const;
    /// What a shortcut opens; empty for a menu.
    QString path(const QModelIndex& index) const;
    UserMenu menu() const; ///< as it stands now
    /// Whether it was changed since it was made or `setKept`.
    bool isChanged() const { return m_isChanged; }
    void setKept() { m_isChanged = false; }

    /// Whether something can be added below a node; refused where it is a shortcut.
    bool mayAddTo(const QModelIndex& parent);
    /// Add a menu or a shortcut to a menu. Answer where it stands; an invalid place where it was
    /// refused.
    QModelIndex addMenu(const QModelIndex& parent, const QString& caption);
    QModelIndex addShortcut(const QModelIndex& parent, const Shortcut& shortcut);
    bool rename(const QModelIndex& index, const QString& caption);
    /// Moves a node with all below it to the end of a menu. Answers where it stands then.
    QModelIndex move(const QModelIndex& from, const QModelIndex& to);
    /// Adds each line of a text to a menu: the path or address of a file that is there becomes a
    /// shortcut to it, any other line a menu. What has a caption that is taken gets a number.
    bool addLines(const QModelIndex& parent, const QString& text);
    void remove(const QModelIndex& index);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDropActions() const override {
        return Qt::MoveAction | Qt::CopyAction;
    }
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

signals:
    /// Something was refused; the texts are for the person.
    void refused(const QString& text, const QString& title);
    /// A node that was dragged stands in another place now.
    void moved(const QModelIndex& index);

private:
    struct Node;
    Node* node(const QModelIndex& index) const;
    QModelIndex indexOf(const Node& node) const;
    QModelIndex refuse(const QString& text, const QString& title);
    bool isTaken(const Node& parent, const Node& node, const QString& caption) const;
    bool mayBeCalled(const Node& parent, const Node& node, const QString& caption);
    QModelIndex add(const QModelIndex& parent, std::unique_ptr<Node> node);

    std::unique_ptr<Node> m_root; ///< above the root menu
    mutable QPersistentModelIndex m_dragged;
    bool m_isChanged = false;
};
