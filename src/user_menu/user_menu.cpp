#include "user_menu/user_menu.h"

#include "core/settings.h"

using namespace Qt::StringLiterals;

namespace {

QString olderShortcutsKey() {
    return setting::keyOf(u"Planning\\UserApps");
}

QString rootKey() {
    return setting::keyOf(u"UserApps\\"_s.append(RootMenuCaption));
}

QString stringOf(const dao::Value& content) {
    QString text = content.toText();
    if (text.endsWith(QChar::Null))
        text.chop(1);
    return text;
}

void readMenu(const Settings& settings, const QString& key, const QStringList& keys,
              qsizetype& next, UserMenu& menu) {
    QList<SettingEntry> values;
    settings.EnumRegistryValues(key, values);
    for (const SettingEntry& value : values) {
        if (value.content.isText())
            menu.shortcuts += Shortcut{value.name, stringOf(value.content)};
    }
    while (next < keys.size() && keys.at(next).startsWith(key + u'\\')) {
        const QString& below = keys.at(next++);
        UserMenu& child = menu.menus.emplace_back();
        child.caption = below.sliced(below.lastIndexOf(u'\\') + 1);
        readMenu(settings, below, keys, next, child);
    }
}

void writeMenu(Settings& settings, const QString& key, const UserMenu& menu) {
    settings.CreateRegistryKey(key);
    for (const UserMenu& child : menu.menus)
        writeMenu(settings, key + u'\\' + child.caption, child);
    for (const Shortcut& shortcut : menu.shortcuts) {
        const QString whole = key + u'\\' + shortcut.caption;
        const qsizetype last = whole.lastIndexOf(u'\\');
        settings.CreateRegistryKey(whole.left(last));
        settings.WriteRegistryValue(whole.left(last), whole.sliced(last + 1), shortcut.path);
    }
}

} // namespace

UserMenu readUserMenu(const Settings& settings) {
    UserMenu root;
    root.caption = RootMenuCaption.toString();
    qsizetype next = 0;
    readMenu(settings, rootKey(), settings.CollectRegistrySubkeys(rootKey()), next, root);
    return root;
}

bool saveUserMenu(Settings& settings, const UserMenu& root) {
    {
        const Settings::Batch whole(settings);
        settings.DeleteRegistryKey(rootKey());
        writeMenu(settings, rootKey(), root);
    }
    return settings.FlushRegistryKey(rootKey()) == SettingFound;
}

void moveOlderShortcuts(Settings& settings) {
    const QList<Shortcut> older = readOlderShortcuts(settings);
    if (older.isEmpty())
        return;
    const Settings::Batch whole(settings);
    settings.CreateRegistryKey(rootKey());
    for (const Shortcut& shortcut : older)
        settings.WriteRegistryValue(rootKey(), shortcut.caption, shortcut.path);
    settings.DeleteRegistryKey(olderShortcutsKey());
}

QList<Shortcut> readOlderShortcuts(Settings& settings) {
    QList<Shortcut> shortcuts;
    if (settings.EnumRegistrySubkeys(olderShortcutsKey()) == u"Badkey"_s)
        return shortcuts;
    for (const QString& name : settings.RegistrySubkeys()) {
        const QString key = olderShortcutsKey() + u'\\' + name;
        Shortcut shortcut;
        QList<SettingEntry> values;
        settings.EnumRegistryValues(key, values);
        for (const SettingEntry& value : values) {
            if (value.name.compare(u"FileCaption", Qt::CaseInsensitive) == 0)
                shortcut.caption = stringOf(value.content);
            else if (value.name.compare(u"FilePath", Qt::CaseInsensitive) == 0)
                shortcut.path = stringOf(value.content);
        }
        if (!shortcut.caption.isEmpty() && !shortcut.path.isEmpty())
            shortcuts += shortcut;
    }
    return shortcuts;
}
