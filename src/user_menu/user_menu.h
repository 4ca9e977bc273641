#pragma once

#include <QList>
#include <QString>

#include <vector>

class Settings;

/// A program or file in the person's own menu.
struct Shortcut {
    QString caption;
    QString path;

    bool operator==(const Shortcut&) const = default;
};

/// A menu of shortcuts, arranged by the person, with the menus below it.
struct UserMenu {
    QString caption;
    std::vector<UserMenu> menus = {};
    QList<Shortcut> shortcuts = {};

    bool operator==(const UserMenu&) const = default;
};

inline constexpr QStringView RootMenuCaption = u"Root Menu";
/// So many shortcuts have a number of their own in the popups (popup_menus.h).
inline constexpr int MostShortcuts = 999;

/// The menu kept in the settings: below the key `UserApps\Root Menu` a menu is a key, a shortcut a
/// text value of it. Empty where nothing was kept.
UserMenu readUserMenu(const Settings& settings);

/// Keeps a menu in place of the one before, whole or not at all. Answers false where it could not
/// be written: then it is there until the program ends, and written with the next setting that can
/// be. A backslash in a caption parts it: what stands before it becomes a menu of its own. Equal
/// captions in one menu are the caller's to avoid: the last shortcut stays, menus become one.
bool saveUserMenu(Settings& settings, const UserMenu& root);

/// Moves the shortcuts of the older, flat list to the end of the menu, if there are any.
void moveOlderShortcuts(Settings& settings);

/// The older, flat list, in the key `Planning\UserApps`; empty where there is none.
QList<Shortcut> readOlderShortcuts(Settings& settings);
