// What the main window's commands are called, where they stand and when they are there.

#include "core/toolbar_side.h"
#include "frame/frame_commands.h"
#include "incidents/incident_settings.h"
#include "incidents/security_warning.h"
#include "support/scripted_frame.h"
#include "support/year_session.h"

namespace {

bool none(ToolWindow) {
    return false;
}
WindowTest only(const QList<ToolWindow>& windows) {
    return [windows](ToolWindow window) { return windows.contains(window); };
}

/// A line a menu: its caption and its items.
QStringList written(const std::vector<MenuEntry>& menus) {
    QStringList lines;
    for (const MenuEntry& menu : menus) {
        QStringList line{menu.caption};
        for (const MenuItem& item : menu.items)
            line += item.isSeparator ? u"-"_s : commandEntry(item.command).caption;
        lines += line.join(u'|');
    }
    return lines;
}

QString tips(const ToolbarLayout& layout) {
    QStringList result;
    for (const ToolbarButton& button : layout.buttons)
        result += button.tip;
    return result.join(u'|');
}

class CommandTest : public YearSession {
protected:
    ScriptedFrame frame;
};

} // namespace

TEST(FrameCommands, WhatHasNoWindowIsNowhere) {
    const struct {
        WindowTest has;
        QString layout;
        QString tips;
        QString view;
    } cases[] = {
        {none, u"BB"_s, u"Open Existing Database.|Startup Wizard."_s, u"&View|Toolbar"_s},
        {only({ToolWindow::Timetable, ToolWindow::AddressBook}), u"BB|B|B"_s,
         u"Open Existing Database.|Startup Wizard.|Personal Timetable.|Address Book"_s,
         u"&View|Personal Timetable...|-|Toolbar"_s},
        {only({ToolWindow::WeeklySheet, ToolWindow::Settings}), u"BB|B"_s,
         u"Open Existing Database.|Startup Wizard.|Planning Sheets..."_s,
         u"&View|Planning Sheets...|-|Toolbar|-|General Settings..."_s},
    };
    for (const auto& [has, layout, wantedTips, view] : cases) {
        EXPECT_EQ(toolbarLayout(has).layout, layout);
        EXPECT_EQ(tips(toolbarLayout(has)), wantedTips);
        EXPECT_EQ(written(frameMenus(has))[1], view);
    }
    EXPECT_EQ(written({popupMenu(FrameCommand::PlanningMenu, only({ToolWindow::WeeklySheet}))}),
              QStringList(u"Planning Sheets...|&Weekly Planning Sheets..."_s));
}

TEST(FrameCommands, KeysAndNamesAreEachGivenOnce) {
    QStringList keys;
    QStringList names;
    for (const CommandEntry& entry : commandTable()) {
        EXPECT_EQ(&commandEntry(entry.command), &entry);
        EXPECT_FALSE(names.contains(entry.name.toString())) << entry.name.toString().toStdString();
        EXPECT_FALSE(keys.contains(entry.shortcut.toString()))
            << entry.shortcut.toString().toStdString();
        names += entry.name.toString();
        if (!entry.shortcut.isEmpty())
            keys += entry.shortcut.toString();
    }
}

TEST(FrameCommands, APopupStandsBesideItsButton) {
    const QRect button(100, 200, 40, 30);
    const struct {
        ToolbarSide side;
        QSize popup;
        QPoint place;
    } cases[] = {
        {ToolbarSide::Left, {120, 60}, {140, 185}}, {ToolbarSide::Right, {120, 60}, {-20, 185}},
        {ToolbarSide::Top, {120, 60}, {60, 230}},   {ToolbarSide::Bottom, {120, 60}, {60, 140}},
        {ToolbarSide::Left, {40, 30}, {140, 200}},  {ToolbarSide::Top, {20, 10}, {110, 230}},
    };
    for (const auto& [side, popup, place] : cases)
        EXPECT_EQ(popupPlace(side, button, popup), place) << static_cast<int>(side);
}

TEST_F(CommandTest, TheIncidentReportsWarn) {
    const struct {
        BoxAnswer answer;
        bool opens;
        bool asksAgain;
    } cases[] = {
        {{AnswerNo, false}, false, true},
        {{AnswerYes, false}, true, true},
        {{AnswerNo, true}, false, true}, // a no is no leave for later
        {{AnswerYes, true}, true, false},
    };
    for (const auto& [answer, opens, asksAgain] : cases) {
        settings.DeleteRegistryKey(setting::keyOf(setting::Incidents));
        frame.windows.clear();
        seams.prompts.expect(PromptKind::Message, u"Security warning"_s, answer);
        RunCommand(session, frame, FrameCommand::Incidents);
        EXPECT_EQ(frame.windows.contains(ToolWindow::Incidents), opens);
        EXPECT_EQ(seams.prompts.last().look.checkBox, u"Do not show this dialog again:"_s);
        if (asksAgain)
            seams.prompts.expect(PromptKind::Message, u"Security warning"_s, AnswerYes);
        RunCommand(session, frame, FrameCommand::Incidents);
        EXPECT_EQ(frame.windows.size(), opens ? 2 : 1);
    }
}

TEST_F(CommandTest, EachCommandGoesItsWay) {
    const struct {
        FrameCommand command;
        QStringList log;
        QList<ToolWindow> windows;
    } cases[] = {
        {FrameCommand::ReturnToWizard, {u"close forms"_s, u"disable"_s, u"wizard"_s}, {}},
        {FrameCommand::SetupDatabase, {u"close forms"_s, u"disable"_s, u"wizard setup"_s}, {}},
        {FrameCommand::Exit, {u"unload"_s}, {}},
        {FrameCommand::HelpContents, {u"help 1"_s}, {}},
        {FrameCommand::HelpSearch, {u"help 2"_s}, {}},
        {FrameCommand::WeeklyPlanning, {}, {ToolWindow::WeeklySheet}},
        {FrameCommand::PostitHideAll, {}, {ToolWindow::Postits}},
        {FrameCommand::PlanningMenu, {}, {}},
        {FrameCommand::ToolsMenu, {}, {}},
        {FrameCommand::ShowToolbar, {}, {}},
    };
    for (const auto& [command, log, windows] : cases) {
        frame.log.clear();
        frame.windows.clear();
        RunCommand(session, frame, command);
        EXPECT_EQ(frame.log, log) << static_cast<int>(command);
        EXPECT_TRUE(std::ranges::equal(frame.windows, windows)) << static_cast<int>(command);
    }
}
