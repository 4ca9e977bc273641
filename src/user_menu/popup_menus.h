#pragma once

#include "user_menu/user_menu.h"

#include <QStringList>

#include <variant>

class Session;

/// The numbers of what can be chosen in the popups of the toolbar's tools button, beside the main
/// window's own commands.
enum ToolsItem {
    NoToolsItem = 0, ///< the popup was dismissed
    MenuEditorItem = 1000,
    FirstShortcutItem = 1001,
    LastShortcutItem = 1999,
    BatteryStatusItem = 2003,
    StandbyItem = 2004,
};

/// A line of the shortcuts popup: a shortcut by its number, or a menu without one.
struct PopupItem {
    QString caption;
    int number = NoToolsItem;
    std::vector<PopupItem> below = {};
};

/// The shortcuts popup behind "Menu Editor..." and its separator, and what its items open.
struct UserPopups {
    std::vector<PopupItem> items;
    QStringList ShortcutPaths; ///< by their number less 1000; the first is none
};

/// Builds the popups from the settings. Within a menu its shortcuts come before the menus below it,
/// in the first one behind them. They are numbered in that order; those beyond the last number are
/// left out.
UserPopups BuildUserMenus(const Settings& settings);

/// Does what an item stands for. Standby comes after everything typed is on disk; why the computer
/// does not sleep is told.
void RunToolsCommand(Session& session, const UserPopups& popups, int number);
