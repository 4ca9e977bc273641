#pragma once

#include "core/tool_windows.h"

#include <QString>

#include <functional>
#include <optional>
#include <span>
#include <vector>

class MainFrame;
class Session;

/// All that can be asked of the main window: by its menus, by its toolbar, and by the menus of tool
/// windows, which forward to it. What a command is called, where it stands and what it needs is
/// said once, in the tables behind the functions below.
enum class FrameCommand {
    OpenDatabase,
    SetupDatabase,
    ReturnToWizard,
    Exit,
    PlanningMenu, ///< a submenu of the view menu and a popup of the toolbar
    DailyPlanning,
    WeeklyPlanning,
    Timetable,
    Register,
    CalendarOfEvents,
    ShowToolbar, ///< a check item
    GeneralSettings,
    PostitMenu, ///< a popup of the toolbar
    PostitNew,
    PostitShowAll,
    PostitHideAll,
    PostitDeleteAll,
    PostitImport,
    PostitExport,
    Schedule,
    SeatingPlan,
    Incidents,
    ToolsMenu, ///< a popup of the toolbar; its window adds to it
    ArchiveClass,
    ChangeWeekAlloc,
    AddressBook,
    HelpAbout,
    HelpContents,
    HelpSearch,
    HelpUpgrade,
};

struct CommandEntry {
    FrameCommand command;
    QStringView name;                      ///< the system's name: "mnufileItem(0)"
    QString caption;                       ///< in menus
    QStringView icon = {};                 ///< resources/icons; empty for none
    std::optional<ToolWindow> window = {}; ///< without which there is no such command
    QStringView shortcut = {};             ///< portable text; empty for none
    bool needsDatabase = true;
    bool needsTwoWeeks = false; ///< a year with two timetables
};

std::span<const CommandEntry> commandTable();
const CommandEntry& commandEntry(FrameCommand command);

/// Whether the program has a window.
using WindowTest = std::function<bool(ToolWindow window)>;
/// Whether there is something behind a command: its window, or of a popup any of its items.
bool commandExists(FrameCommand command, const WindowTest& has);

/// Whether a command can be given. `input`: those that need a year can be.
bool isCommandAllowed(const CommandEntry& entry, bool input, const Session& session);

/// A place in a menu: a command, or a separator.
struct MenuItem {
    bool isSeparator;
    FrameCommand command;
};

struct MenuEntry {
    QStringView name; ///< "mnuFile"
    QString caption;
    std::vector<MenuItem> items;
};

/// The menus of the bar, in order, without what needs a window that the program does not have.
std::vector<MenuEntry> frameMenus(const WindowTest& has);
/// The menu behind `PlanningMenu`, `PostitMenu` or `ToolsMenu`.
MenuEntry popupMenu(FrameCommand popup, const WindowTest& has);
bool isPopup(FrameCommand command);

struct ToolbarButton {
    FrameCommand command;
    QString tip;
};

/// The buttons of `Toolbar1` that have something behind them, in order, and the text that lays them
/// out: B is a button, a bar a separator. With every window there it is "BB|BBBB|BBBB|B|B".
struct ToolbarLayout {
    QString layout;
    std::vector<ToolbarButton> buttons;
};
ToolbarLayout toolbarLayout(const WindowTest& has);

/// Does what a command says. A command that opens a window brings it to the front where it is
/// loaded. Nothing for popups and `ShowToolbar`, which are the main window's own.
void RunCommand(Session& session, MainFrame& frame, FrameCommand command);
