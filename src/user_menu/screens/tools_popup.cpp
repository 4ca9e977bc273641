#include "user_menu/screens/tools_popup.h"

#include "core/session.h"
#include "core/shell_services.h"
#include "user_menu/popup_menus.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

/// What a menu shows of a caption that is the person's own.
QString plainCaption(QString caption) {
    return caption.replace(u'&', u"&&"_s);
}

QAction* addItem(Session& session, QMenu& menu, const std::shared_ptr<UserPopups>& popups,
                 const QString& caption, int number) {
    QAction* action = menu.addAction(caption);
    QObject::connect(action, &QAction::triggered, &menu,
                     [&session, popups, number] { RunToolsCommand(session, *popups, number); });
    return action;
}

void addItems(Session& session, QMenu& menu, const std::shared_ptr<UserPopups>& popups,
              const std::vector<PopupItem>& items) {
    for (const PopupItem& item : items) {
        if (item.number == NoToolsItem)
            addItems(session, *menu.addMenu(plainCaption(item.caption)), popups, item.below);
        else
            addItem(session, menu, popups, plainCaption(item.caption), item.number);
    }
}

/// The popup's own part goes, and with it what was chosen in it; the main window's commands stay.
void takeAwayTools(QMenu& popup) {
    for (QAction* action : popup.actions()) {
        if (action->parent() != &popup)
            continue;
        popup.removeAction(action);
        action->deleteLater();
    }
    for (QMenu* below : popup.findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
        popup.removeAction(below->menuAction());
        below->deleteLater(); // from the event loop: an item of it may just have been chosen
    }
}

} // namespace

void fillToolsPopup(Session& session, QMenu& popup) {
    takeAwayTools(popup);
    const auto popups = std::make_shared<UserPopups>(BuildUserMenus(session.GetSettings()));
    QAction* firstCommand = popup.actions().value(0);

    auto* shortcuts = new QMenu(u"Shortcuts"_s, &popup);
    shortcuts->setObjectName(u"mnuShortcuts"_s);
    addItem(session, *shortcuts, popups, u"Menu Editor..."_s, MenuEditorItem);
    shortcuts->addSeparator();
    addItems(session, *shortcuts, popups, popups->items);
    popup.insertMenu(firstCommand, shortcuts);
    popup.insertSeparator(firstCommand);

    if (firstCommand)
        popup.addSeparator();
    addItem(session, popup, popups, u"Batery Status..."_s, BatteryStatusItem);
    addItem(session, popup, popups, u"System Standby"_s, StandbyItem);
}

void fillOlderShortcuts(Session& session, QMenu& menu) {
    menu.clear();
    const QList<Shortcut> shortcuts = readOlderShortcuts(session.GetSettings());
    for (const Shortcut& shortcut : shortcuts)
        menu.addAction(plainCaption(shortcut.caption), &menu, [&session, path = shortcut.path] {
            const Seams& seams = session.GetSeams();
            OpenShortcut(path, session.GetSettings(), seams.shell, seams.prompts);
        });
    menu.menuAction()->setVisible(!shortcuts.isEmpty());
}
