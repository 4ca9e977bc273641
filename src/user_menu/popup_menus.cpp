#include "user_menu/popup_menus.h"

#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/shell.h"
#include "core/shell_services.h"
#include "core/tool_windows.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int pathsBefore = 1000;

void addShortcuts(const UserMenu& menu, std::vector<PopupItem>& items, QStringList& paths) {
    for (const Shortcut& shortcut : menu.shortcuts) {
        if (paths.size() > MostShortcuts)
            return;
        items.push_back({shortcut.caption, static_cast<int>(paths.size()) + pathsBefore});
        paths += shortcut.path;
    }
}

void addMenus(const UserMenu& menu, std::vector<PopupItem>& items, QStringList& paths) {
    for (const UserMenu& child : menu.menus) {
        PopupItem& item = items.emplace_back();
        item.caption = child.caption;
        addShortcuts(child, item.below, paths);
        addMenus(child, item.below, paths);
    }
}

void standBy(Session& session) {
    if (!session.GetWindows().writeAll())
        return;
    const QString reason = session.GetSeams().shell.SetSystemPowerState(true, false);
    if (!reason.isEmpty())
        session.GetSeams().prompts.msg_Box(reason, OkButton | WarningIcon, u"System Standby"_s);
}

} // namespace

UserPopups BuildUserMenus(const Settings& settings) {
    const UserMenu root = readUserMenu(settings);
    UserPopups popups;
    popups.ShortcutPaths += QString();
    addMenus(root, popups.items, popups.ShortcutPaths);
    addShortcuts(root, popups.items, popups.ShortcutPaths);
    return popups;
}

void RunToolsCommand(Session& session, const UserPopups& popups, int number) {
    const Seams& seams = session.GetSeams();
    if (number >= FirstShortcutItem && number <= LastShortcutItem) {
        const QString path = popups.ShortcutPaths.value(number - pathsBefore);
        if (!path.isEmpty())
            OpenShortcut(path, session.GetSettings(), seams.shell, seams.prompts);
        return;
    }
    switch (number) {
    case MenuEditorItem:
        return session.GetWindows().open(ToolWindow::UserTools);
    case BatteryStatusItem:
        seams.prompts.msg_Box(BatteryStatusText(seams.shell.GetSystemPowerStatus()),
                              OkButton | InformationIcon, u"Battery Status:"_s);
        return;
    case StandbyItem:
        return standBy(session);
    default:
        return;
    }
}
