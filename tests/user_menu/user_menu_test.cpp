// The person's own menu: its tree, the popups made of it, and what their items do.

#include "core/settings.h"
#include "support/year_session.h"
#include "user_menu/popup_menus.h"
#include "user_menu/user_menu_model.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>

namespace {

class UserMenuTest : public YearSession {
protected:
    UserMenu kept() { return readUserMenu(settings); }
};

UserMenu menuOf(const QString& caption, std::vector<UserMenu> menus,
                const QList<Shortcut>& shortcuts = {}) {
    return {caption, std::move(menus), shortcuts};
}

UserMenu fourLevels() {
    return menuOf(
        u"Root Menu"_s,
        {menuOf(u"A"_s,
                {menuOf(u"B"_s, {menuOf(u"C"_s, {menuOf(u"D"_s, {}, {{u"deep"_s, u"/d"_s}})})})},
                {{u"in A"_s, u"/a"_s}}),
         menuOf(u"E"_s, {})},
        {{u"at root"_s, u"/r"_s}});
}

QStringList linesOf(const std::vector<PopupItem>& items) {
    QStringList lines;
    for (const PopupItem& item : items) {
        lines += u"%1 %2"_s.arg(item.caption).arg(item.number);
        lines += linesOf(item.below);
    }
    return lines;
}

} // namespace

TEST_F(UserMenuTest, ATreeIsKeptAsItIsAndPopupsNumberItsShortcuts) {
    EXPECT_EQ(BuildUserMenus(settings).ShortcutPaths, QStringList{QString()});
    saveUserMenu(settings, fourLevels());
    EXPECT_EQ(kept(), fourLevels());
    const UserPopups popups = BuildUserMenus(settings);
    EXPECT_EQ(linesOf(popups.items),
              (QStringList{u"A 0"_s, u"in A 1001"_s, u"B 0"_s, u"C 0"_s, u"D 0"_s, u"deep 1002"_s,
                           u"E 0"_s, u"at root 1003"_s}));
    EXPECT_EQ(popups.ShortcutPaths, (QStringList{{}, u"/a"_s, u"/d"_s, u"/r"_s}));
    saveUserMenu(settings, menuOf(u"Root Menu"_s, {}, {{u"a\\b"_s, u"/x"_s}}));
    EXPECT_EQ(kept(), menuOf(u"Root Menu"_s, {menuOf(u"a"_s, {}, {{u"b"_s, u"/x"_s}})}));
}

TEST_F(UserMenuTest, NumbersEndBeforeThoseOfTheTools) {
    UserMenu many = menuOf(u"Root Menu"_s, {});
    for (int i = 0; i < MostShortcuts + 5; ++i)
        many.shortcuts += Shortcut{u"s%1"_s.arg(i), u"/s"_s};
    saveUserMenu(settings, many);
    const UserPopups popups = BuildUserMenus(settings);
    EXPECT_EQ(popups.items.back().number, LastShortcutItem);
    UserMenuModel model(kept());
    EXPECT_FALSE(model.addShortcut(model.root(), {u"more"_s, u"/m"_s}).isValid());
}

TEST_F(UserMenuTest, TheOlderListMovesToTheRootOnce) {
    for (const auto& [key, caption] : {std::pair(u"1"_s, u"Maths\0"_s), {u"2"_s, u"Notes"_s}}) {
        const QString path = setting::keyOf(QString(u"Planning\\UserApps\\"_s + key));
        settings.CreateRegistryKey(path);
        settings.WriteRegistryValue(path, u"FileCaption", caption);
        settings.WriteRegistryValue(path, u"FilePath", u"/files/"_s + key);
    }
    const QList<Shortcut> older{{u"Maths"_s, u"/files/1"_s}, {u"Notes"_s, u"/files/2"_s}};
    EXPECT_EQ(readOlderShortcuts(settings), older);
    moveOlderShortcuts(settings);
    EXPECT_EQ(kept().shortcuts, older);
    EXPECT_TRUE(readOlderShortcuts(settings).isEmpty());
}

TEST_F(UserMenuTest, TheEditorRefusesWhatTheTreeCannotHold) {
    UserMenuModel model(fourLevels());
    const QAbstractItemModelTester tester(&model);
    QStringList refusals;
    QObject::connect(&model, &UserMenuModel::refused, &model,
                     [&](const QString&, const QString& title) { refusals += title; });
    const QModelIndex root = model.root();
    const QPersistentModelIndex a = model.index(0, 0, root);
    const QPersistentModelIndex b = model.index(0, 0, a);
    const QPersistentModelIndex e = model.index(1, 0, root);
    const QPersistentModelIndex shortcut = model.index(2, 0, root);

    EXPECT_FALSE(model.move(a, b).isValid());
    EXPECT_FALSE(model.move(a, a).isValid());
    EXPECT_FALSE(model.move(root, e).isValid());
    EXPECT_FALSE(model.move(b, shortcut).isValid());
    EXPECT_FALSE(model.addMenu(shortcut, u"x"_s).isValid());
    EXPECT_FALSE(model.addMenu(root, u"a"_s).isValid()) << "it is there in another case";
    EXPECT_FALSE(model.rename(root, u"x"_s));
    EXPECT_FALSE(model.rename(e, u" "_s));
    EXPECT_EQ(refusals, (QStringList{u"Invalid Move"_s, u"Invalid Move"_s, u"Invalid Move"_s,
                                     u"Invalid Move"_s, u"Invalid Entry"_s, u"Invalid Entry"_s,
                                     u"Can't rename"_s, u"Invalid Entry"_s}));
    EXPECT_EQ(model.menu(), fourLevels());
    EXPECT_FALSE(model.isChanged());

    EXPECT_EQ(model.move(b, e).parent(), QModelIndex(e));
    EXPECT_EQ(model.menu().menus.at(1).menus.at(0).caption, u"B"_s);
    model.remove(a);
    EXPECT_EQ(model.rowCount(root), 2);
    EXPECT_TRUE(model.isChanged());
}

TEST_F(UserMenuTest, DroppedLinesBecomeNodes) {
    UserMenuModel model(menuOf(u"Root Menu"_s, {menuOf(u"Plans"_s, {})}));
    const QString file = path(u"work sheet.pdf"_s);
    QFile(file).open(QIODevice::WriteOnly);
    QMimeData text;
    text.setText(u"Plans\r\n%1\n\n%2"_s.arg(QUrl::fromLocalFile(file).toString(), u"/no/such"_s));
    EXPECT_TRUE(model.dropMimeData(&text, Qt::CopyAction, -1, -1, model.root()));
    const UserMenu menu = model.menu();
    EXPECT_EQ(menu.shortcuts, (QList<Shortcut>{{u"work sheet"_s, file}}));
    ASSERT_EQ(menu.menus.size(), 3U);
    EXPECT_EQ(menu.menus.at(1).caption, u"Plans (2)"_s);
}

TEST_F(UserMenuTest, ItemsDoWhatTheySay) {
    const QString starter = path(u"a.desktop"_s);
    QFile(starter).open(QIODevice::WriteOnly);
    saveUserMenu(settings, menuOf(u"Root Menu"_s, {}, {{u"a"_s, starter}}));
    const UserPopups popups = BuildUserMenus(settings);
    RunToolsCommand(session, popups, NoToolsItem);
    RunToolsCommand(session, popups, LastShortcutItem);
    EXPECT_TRUE(seams.shell.runs.isEmpty());
    for (const PromptAnswer answer : {AnswerNo, AnswerYes}) {
        EXPECT_TRUE(seams.shell.runs.isEmpty());
        seams.prompts.expect(PromptKind::Message, u"Start a program"_s, answer);
        RunToolsCommand(session, popups, FirstShortcutItem);
    }
    ASSERT_EQ(seams.shell.runs.size(), 1);
    EXPECT_EQ(seams.shell.runs.first().file, starter);

    RunToolsCommand(session, popups, StandbyItem);
    EXPECT_EQ(seams.shell.sleeps, 1);
    seams.shell.noSleep = u"This computer can't sleep."_s;
    seams.prompts.expect(PromptKind::Message, u"System Standby"_s, AnswerOk);
    RunToolsCommand(session, popups, StandbyItem);
    seams.prompts.expect(PromptKind::Message, u"Battery Status:"_s, AnswerOk);
    RunToolsCommand(session, popups, BatteryStatusItem);
}

TEST(PowerStatusTest, BatteriesAreToldAsTheKernelHasThem) {
    const QTemporaryDir folder;
    const auto write = [&](const QString& supply, const QString& name, const QByteArray& text) {
        QDir(folder.path()).mkpath(supply);
        QFile file(folder.filePath(supply + u'/' + name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text + '\n');
    };
    EXPECT_EQ(powerStatus(readKernelPower(folder.filePath(u"none"_s))), PowerStatus());
    write(u"AC"_s, u"type"_s, "Mains");
    write(u"AC"_s, u"online"_s, "0");
    write(u"BAT0"_s, u"type"_s, "Battery");
    write(u"BAT0"_s, u"capacity"_s, "80");
    write(u"BAT1"_s, u"type"_s, "Battery");
    write(u"BAT1"_s, u"capacity"_s, "12");
    write(u"BAT1"_s, u"status"_s, "Discharging");
    write(u"mouse"_s, u"type"_s, "Battery");
    write(u"mouse"_s, u"scope"_s, "Device");
    write(u"mouse"_s, u"capacity"_s, "3");
    EXPECT_EQ(BatteryStatusText(powerStatus(readKernelPower(folder.path()))),
              u"AC power status: Offline\nStatus: Low( 12% remaining. )"_s);
    const struct {
        PowerStatus status;
        QString text;
    } texts[] = {
        {{1, 1, 90}, u"AC power status: OnLine\nStatus: High( 90% remaining. )"_s},
        {{2, 4, 2}, u"AC power status: Unknown\nStatus: Critical( 2% remaining. )"_s},
        {{1, 12, 50}, u"AC power status: OnLine\nStatus: Charging( 50% remaining. )"_s},
        {{1, 128, 0}, u"AC power status: OnLine\nNo system battery( 0% remaining. )"_s},
        {{1, 64, 7}, u"AC power status: OnLine\nUnknown Charge Status 64( 7% remaining. )"_s},
    };
    for (const auto& each : texts)
        EXPECT_EQ(BatteryStatusText(each.status), each.text);
}
