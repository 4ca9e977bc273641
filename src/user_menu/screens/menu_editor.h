#pragma once

#include "controls/window_going.h"
#include "user_menu/user_menu_model.h"

#include <QWidget>

class QLineEdit;
class QPushButton;
class QTreeView;
class Session;

/// The editor of the person's own menu. Menus and shortcuts are added, renamed, deleted, and moved
/// with the mouse or by cutting and pasting. Nothing is kept before it is saved; who closes it with
/// changes is asked.
class MenuEditor : public QWidget {
    Q_OBJECT

public:
    explicit MenuEditor(Session& session);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* makeTree();
    QWidget* makeButtons();
    QPushButton* makeButton(const QString& name, const QString& caption, const QString& tip,
                            void (MenuEditor::*act)());
    void makeMenu();
    QModelIndex current() const;
    void select(const QModelIndex& index);
    void showCurrent();
    void addMenu();
    void addLink();
    void addFile();
    void change();
    void remove();
    void cut();
    void paste();
    bool keep();
    void save();
    bool mayGo();

    Session& m_session;
    UserMenuModel m_model;
    QTreeView* m_tree;
    QLineEdit* m_caption;
    QList<QPushButton*> m_forNode; ///< what the root does not take
    QAction* m_cutAction = nullptr;
    QAction* m_pasteAction = nullptr;
    QAction* m_renameAction = nullptr;
    QPersistentModelIndex m_cut; ///< what a paste moves
    bool m_deletesSilently = false;
    AskBeforeGoing m_going;
};
