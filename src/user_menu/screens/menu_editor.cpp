#include "user_menu/screens/menu_editor.h"

#include "controls/icons.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"

#include <QAction>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QIdentityProxyModel>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize editorSize(560, 420);

/// The pictures of the tree, which its rule knows nothing of.
class PicturedMenu : public QIdentityProxyModel {
public:
    PicturedMenu(UserMenuModel& model, QObject* parent)
        : QIdentityProxyModel(parent), m_menu(model) {
        setSourceModel(&model);
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DecorationRole)
            return QIdentityProxyModel::data(index, role);
        return m_menu.isMenu(mapToSource(index)) ? icon(u"open"_s) : icon(u"link_open"_s);
    }

private:
    UserMenuModel& m_menu;
};

/// Hands on all that is dropped, on an item or beside them all, so that what can't be taken is
/// told.
class MenuTree : public QTreeView {
public:
    explicit MenuTree(UserMenuModel& model) {
        m_pictured = new PicturedMenu(model, this);
        m_menu = &model;
        setModel(m_pictured);
    }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override {
        QTreeView::dragEnterEvent(event);
        event->accept();
    }
    void dragMoveEvent(QDragMoveEvent* event) override {
        QTreeView::dragMoveEvent(event); // shows the place, and goes on at the edges
        event->accept();
    }
    void dropEvent(QDropEvent* event) override {
        const QModelIndex place = m_pictured->mapToSource(indexAt(event->position().toPoint()));
        m_menu->dropMimeData(event->mimeData(), event->dropAction(), -1, -1,
                             place.isValid() ? place : m_menu->root());
        stopAutoScroll();
        setState(NoState);
        viewport()->update();
        event->setDropAction(Qt::CopyAction); // nothing is to be taken from where it came from
        event->accept();
    }

private:
    PicturedMenu* m_pictured;
    UserMenuModel* m_menu;
};

UserMenu menuToEdit(Settings& settings) {
    moveOlderShortcuts(settings);
    return readUserMenu(settings);
}

} // namespace

MenuEditor::MenuEditor(Session& session)
    : m_session(session)
    , m_model(menuToEdit(session.GetSettings()))
    , m_tree(new MenuTree(m_model))
    , m_caption(new QLineEdit)
    , m_going(*this, [this] { return mayGo(); }) {
    setObjectName(u"mnuEditor"_s);
    setWindowTitle(u" Users Menu Editor"_s);
    resize(editorSize);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(makeTree(), 1);
    layout->addWidget(makeButtons());
    makeMenu();
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MenuEditor::showCurrent);
    // The text is shown when the drag that was refused is over.
    connect(
        &m_model, &UserMenuModel::refused, this,
        [this](const QString& text, const QString& title) {
            m_session.GetSeams().prompts.msg_Box(text, OkButton | WarningIcon, title);
        },
        Qt::QueuedConnection);
    connect(&m_model, &UserMenuModel::moved, this, &MenuEditor::select);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    m_tree->expand(m_tree->model()->index(0, 0));
    select(m_model.root());
    m_tree->setFocus();
}

QWidget* MenuEditor::makeTree() {
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    m_tree->setObjectName(u"TV1"_s);
    m_tree->setAccessibleName(u"Menus and shortcuts"_s);
    m_tree->setHeaderHidden(true);
    m_tree->setSelectionMode(QAbstractItemView::SingleSelection);
    m_tree->setDragDropMode(QAbstractItemView::DragDrop);
    m_tree->setDefaultDropAction(Qt::MoveAction);
    m_tree->setEditTriggers(QAbstractItemView::EditKeyPressed);
    m_tree->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* hint = new QLabel(u"Click and Drag menu items however you wish."_s);
    hint->setWordWrap(true);
    layout->addWidget(m_tree, 1);
    layout->addWidget(hint);
    return part;
}

QPushButton* MenuEditor::makeButton(const QString& name, const QString& caption, const QString& tip,
                                    void (MenuEditor::*act)()) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

QWidget* MenuEditor::makeButtons() {
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    layout->addWidget(makeButton(u"mnuBtn(0)"_s, u"Add &Menu..."_s,
                                 u"Add a Sub Menu to the current menu"_s, &MenuEditor::addMenu));
    layout->addWidget(makeButton(u"mnuBtn(1)"_s, u"Add &Link..."_s,
                                 u"Add an item (File link) to the current menu."_s,
                                 &MenuEditor::addLink));
    layout->addWidget(makeButton(u"mnuFile"_s, u"Add F&ile..."_s,
                                 u"Choose a file and add it to the current menu"_s,
                                 &MenuEditor::addFile));
    QPushButton* deletes =
        makeButton(u"mnuBtn(2)"_s, u"&Delete"_s,
                   u"Delete the current menu and all it's sub menus"_s, &MenuEditor::remove);
    layout->addWidget(deletes);
    layout->addSpacing(12);

    auto* label = new QLabel(u"&Name:"_s);
    label->setBuddy(m_caption);
    m_caption->setObjectName(u"Text1"_s);
    m_caption->setAccessibleName(u"Name of the menu item"_s);
    m_caption->setToolTip(u"type the name of the menu item and click change"_s);
    QPushButton* changes = makeButton(u"cmdChange"_s, u"&Change"_s,
                                      u"Give the current item this name"_s, &MenuEditor::change);
    connect(m_caption, &QLineEdit::returnPressed, this, &MenuEditor::change);
    layout->addWidget(label);
    layout->addWidget(m_caption);
    layout->addWidget(changes);
    layout->addStretch(1);

    layout->addWidget(
        makeButton(u"mnuSave"_s, u"&Save"_s,
                   u"Saves changes to the menu and creates the new menu in the program."_s,
                   &MenuEditor::save));
    auto* cancel = new QPushButton(u"Close"_s);
    cancel->setObjectName(u"mnuClose"_s);
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
    layout->addWidget(cancel);
    m_forNode = {changes};
    return part;
}

/// The keys work in the tree alone: in the box for the name they are those of its text.
void MenuEditor::makeMenu() {
    const auto addAction = [this](const QString& caption, const QKeySequence& key,
                                  void (MenuEditor::*act)()) {
        auto* action = new QAction(caption, m_tree);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, act);
        m_tree->addAction(action);
        return action;
    };
    m_cutAction = addAction(u"Cu&t"_s, QKeySequence::Cut, &MenuEditor::cut);
    m_pasteAction = addAction(u"&Paste into this menu"_s, QKeySequence::Paste, &MenuEditor::paste);
    addAction(u"D&elete"_s, QKeySequence::Delete, &MenuEditor::remove);
    m_renameAction = new QAction(u"&Rename"_s, m_tree); // F2 is the tree's own
    connect(m_renameAction, &QAction::triggered, m_tree,
            [this] { m_tree->edit(m_tree->currentIndex()); });
    m_tree->addAction(m_renameAction);
}

QModelIndex MenuEditor::current() const {
    return static_cast<QIdentityProxyModel*>(m_tree->model())->mapToSource(m_tree->currentIndex());
}

void MenuEditor::select(const QModelIndex& index) {
    if (!index.isValid())
        return;
    const QModelIndex shown =
        static_cast<QIdentityProxyModel*>(m_tree->model())->mapFromSource(index);
    m_tree->expand(shown.parent());
    m_tree->setCurrentIndex(shown);
    showCurrent();
}

void MenuEditor::showCurrent() {
    const QModelIndex index = current();
    const bool isRoot = !index.isValid() || index == m_model.root();
    m_caption->setText(index.data(Qt::DisplayRole).toString());
    m_caption->setEnabled(!isRoot);
    for (QPushButton* button : std::as_const(m_forNode))
        button->setEnabled(!isRoot);
    m_cutAction->setEnabled(!isRoot);
    m_renameAction->setEnabled(!isRoot);
    m_pasteAction->setEnabled(m_cut.isValid());
}

void MenuEditor::addMenu() {
    const QModelIndex parent = current();
    if (!m_model.mayAddTo(parent))
        return;
    const QString caption = m_session.GetSeams().prompts.input_box(
        u"Please enter a caption for the new sub menu:"_s, OkCancelButtons, u"Create Sub Menu"_s,
        u"New Menu"_s);
    if (!caption.isEmpty())
        select(m_model.addMenu(parent, caption));
}

void MenuEditor::addLink() {
    const QModelIndex parent = current();
    if (!m_model.mayAddTo(parent))
        return;
    const std::optional<LinkAnswer> link = m_session.GetSeams().prompts.File_Link(
        u"Create a File Link"_s, u"Enter the information"_s, {}, {});
    if (link)
        select(m_model.addShortcut(parent, {link->name, link->path}));
}

void MenuEditor::addFile() {
    const QModelIndex parent = current();
    if (!m_model.mayAddTo(parent))
        return;
    const QString path = m_session.GetSeams().prompts.OpenFileDialog(
        u" Choose a file to create a shortcut for :"_s, {{u"All File types(*.*)"_s, u"*.*"_s}}, {},
        FileMustExist | PathMustExist | ExplorerStyle, false);
    if (!path.isEmpty())
        select(m_model.addShortcut(parent, {QFileInfo(path).completeBaseName(), path}));
}

void MenuEditor::change() {
    m_model.rename(current(), m_caption->text());
}

void MenuEditor::remove() {
    const QModelIndex index = current();
    Prompts& prompts = m_session.GetSeams().prompts;
    if (!index.isValid() || index == m_model.root()) {
        prompts.msg_Box(u"You can't delete the Root Menu"_s, OkButton | WarningIcon,
                        u"Can't delete"_s);
        return;
    }
    if (!m_deletesSilently) {
        BoxLook look;
        look.checkBox = u"Don't show this again:"_s;
        const BoxAnswer answer = prompts.msg_Box(
            u"Are you sure you want to delete this menu and any submenus it contains?"_s,
            YesNoButtons | QuestionIcon | SecondButtonDefault, u"Delete Menu"_s, look);
        if (answer != AnswerYes)
            return;
        m_deletesSilently = answer.ticked;
    }
    m_model.remove(index);
}

void MenuEditor::cut() {
    m_cut = current();
    showCurrent();
}

void MenuEditor::paste() {
    if (m_cut.isValid())
        select(m_model.move(m_cut, current()));
}

bool MenuEditor::keep() {
    if (saveUserMenu(m_session.GetSettings(), m_model.menu())) {
        m_model.setKept();
        return true;
    }
    m_session.GetSeams().prompts.msg_Box(
        u"The menu could not be written to the settings file. Make sure that there is room on the "
        "disk, then save again."_s,
        OkButton | WarningIcon, u"Users Menu Editor"_s);
    return false;
}

void MenuEditor::save() {
    if (keep())
        close();
}

bool MenuEditor::mayGo() {
    if (!m_model.isChanged())
        return true;
    const BoxAnswer answer = m_session.GetSeams().prompts.msg_Box(
        u"The menu has been changed. Do you want to save the changes?"_s,
        YesNoCancelButtons | QuestionIcon, u"Users Menu Editor"_s);
    if (answer == AnswerYes)
        return keep();
    if (answer == AnswerNo)
        m_model.setKept();
    return answer == AnswerNo;
}

void MenuEditor::closeEvent(QCloseEvent* event) {
    event->setAccepted(m_going.mayGo());
}
