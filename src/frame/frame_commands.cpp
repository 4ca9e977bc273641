#include "frame/frame_commands.h"

#include "calendar/timetable_settings.h"
#include "classes/class_settings.h"
#include "core/session.h"
#include "frame/internet_upgrade.h"
#include "frame/main_frame.h"
#include "frame/year_roads.h"
#include "incidents/security_warning.h"
#include "planning/planning_settings.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using enum FrameCommand;

const std::array commands{
    CommandEntry{.command = OpenDatabase,
                 .name = u"mnufileItem(0)",
                 .caption = u"Open a ORVA Database... "_s,
                 .icon = u"open",
                 .shortcut = u"Ctrl+O",
                 .needsDatabase = false},
    CommandEntry{.command = SetupDatabase,
                 .name = u"mnufileItem(1)",
                 .caption = u"Setup a New ORVA database..."_s,
                 .icon = u"new",
                 .needsDatabase = false},
    CommandEntry{.command = ReturnToWizard,
                 .name = u"mnufileItem(2)",
                 .caption = u"Return to the Startup Wizard..."_s,
                 .icon = u"wizard",
                 .needsDatabase = false},
    CommandEntry{.command = Exit,
                 .name = u"mnufileItem(8)",
                 .caption = u"E&xit"_s,
                 .icon = u"exit",
                 .shortcut = u"Ctrl+Q",
                 .needsDatabase = false},
    CommandEntry{.command = PlanningMenu,
                 .name = u"mnuSettingsItem(0)",
                 .caption = u"Planning Sheets..."_s,
                 .icon = u"planning"},
    CommandEntry{.command = DailyPlanning,
                 .name = u"mnuPlanning(0)",
                 .caption = u"&Daily Planning Sheets..."_s,
                 .icon = u"daily",
                 .window = ToolWindow::DailySheet,
                 .shortcut = u"Alt+1"},
    CommandEntry{.command = WeeklyPlanning,
                 .name = u"mnuPlanning(1)",
                 .caption = u"&Weekly Planning Sheets..."_s,
                 .icon = u"weekly",
                 .window = ToolWindow::WeeklySheet,
                 .shortcut = u"Alt+2"},
    CommandEntry{.command = Timetable,
                 .name = u"mnuSettingsItem(1)",
                 .caption = u"Personal Timetable..."_s,
                 .icon = u"timetable",
                 .window = ToolWindow::Timetable,
                 .shortcut = u"Alt+3"},
    CommandEntry{.command = Register,
                 .name = u"mnuSettingsItem(2)",
                 .caption = u"Register, Grades && Classes..."_s,
                 .icon = u"register",
                 .window = ToolWindow::Classes,
                 .shortcut = u"Alt+4"},
    CommandEntry{.command = CalendarOfEvents,
                 .name = u"mnuSettingsItem(3)",
                 .caption = u"Calendar of Events..."_s,
                 .icon = u"calendar",
                 .window = ToolWindow::CalendarOfEvents,
                 .shortcut = u"Alt+5"},
    CommandEntry{.command = ShowToolbar,
                 .name = u"mnuSettingsItem(5)",
                 .caption = u"Toolbar"_s,
                 .needsDatabase = false},
    CommandEntry{.command = GeneralSettings,
                 .name = u"mnuSettingsItem(7)",
                 .caption = u"General Settings..."_s,
                 .icon = u"settings",
                 .window = ToolWindow::Settings},
    CommandEntry{.command = PostitMenu,
                 .name = u"mnuPostit",
                 .caption = u"postit"_s,
                 .icon = u"postit",
                 .window = ToolWindow::Postits},
    CommandEntry{.command = PostitNew,
                 .name = u"mnuPostitNew",
                 .caption = u"Create a New Post-it"_s,
                 .icon = u"postit_new",
                 .window = ToolWindow::Postits},
    CommandEntry{.command = PostitShowAll,
                 .name = u"mnuPostitShowAll",
                 .caption = u"Show All Post-it's"_s,
                 .window = ToolWindow::Postits},
    CommandEntry{.command = PostitHideAll,
                 .name = u"mnuPostitHideAll",
                 .caption = u"Hide All Post-it's"_s,
                 .window = ToolWindow::Postits},
    CommandEntry{.command = PostitDeleteAll,
                 .name = u"mnuPostitDeleteAll",
                 .caption = u"Delete All Post-it's"_s,
                 .window = ToolWindow::Postits},
    CommandEntry{.command = PostitImport,
                 .name = u"mnuPostitImport",
                 .caption = u"Import Notes from Outlook"_s,
                 .window = ToolWindow::Postits},
    CommandEntry{.command = PostitExport,
                 .name = u"mnuPostitExport",
                 .caption = u"Export Post-it notes to Outlook"_s,
                 .window = ToolWindow::Postits},
    CommandEntry{.command = Schedule,
                 .name = u"Schedule",
                 .caption = u"Schedule Reminder"_s,
                 .icon = u"reminder",
                 .window = ToolWindow::Reminders,
                 .shortcut = u"Alt+6"},
    CommandEntry{.command = SeatingPlan,
                 .name = u"SeatingPlan",
                 .caption = u"Seating Plans"_s,
                 .icon = u"seating",
                 .window = ToolWindow::SeatingPlans,
                 .shortcut = u"Alt+7"},
    CommandEntry{.command = Incidents,
                 .name = u"Incidents",
                 .caption = u"Incident Report"_s,
                 .icon = u"incident",
                 .window = ToolWindow::Incidents,
                 .shortcut = u"Alt+8"},
    CommandEntry{.command = ToolsMenu,
                 .name = u"mnuTools",
                 .caption = u"Tools..."_s,
                 .icon = u"tools",
                 .window = ToolWindow::UserTools},
    CommandEntry{.command = ArchiveClass,
                 .name = u"ArchiveClass",
                 .caption = u"Archive Class..."_s,
                 .window = ToolWindow::Archive},
    CommandEntry{.command = ChangeWeekAlloc,
                 .name = u"ChangeWeekAlloc",
                 .caption = u"Change Week Allocations..."_s,
                 .window = ToolWindow::WeekChange,
                 .needsTwoWeeks = true},
    CommandEntry{.command = AddressBook,
                 .name = u"Contacts",
                 .caption = u"Address Book"_s,
                 .icon = u"contacts",
                 .window = ToolWindow::AddressBook,
                 .shortcut = u"Alt+9"},
    CommandEntry{.command = HelpAbout,
                 .name = u"mnHelpAbout",
                 .caption = u"&About ORVA"_s,
                 .icon = u"about",
                 .needsDatabase = false},
    CommandEntry{.command = HelpContents,
                 .name = u"mnuHelpContents",
                 .caption = u"Help Contents"_s,
                 .icon = u"help",
                 .window = ToolWindow::Help,
                 .needsDatabase = false},
    CommandEntry{.command = HelpSearch,
                 .name = u"mnuHelpSearch",
                 .caption = u"Search for help on..."_s,
                 .icon = u"help_search",
                 .window = ToolWindow::Help,
                 .needsDatabase = false},
    CommandEntry{.command = HelpUpgrade,
                 .name = u"mnuHelpUpgrade",
                 .caption = u"Check for Internet Upgrade"_s,
                 .icon = u"upgrade",
                 .needsDatabase = false},
};

/// A line of a menu or a place on the toolbar; none is a separator.
using Places = std::vector<std::optional<FrameCommand>>;

constexpr std::nullopt_t separator = std::nullopt;

/// Without what has nothing behind it, and without the separators that then part nothing.
std::vector<MenuItem> present(const Places& places, const WindowTest& has) {
    std::vector<MenuItem> items;
    bool isSeparated = false;
    for (const std::optional<FrameCommand>& place : places) {
        if (!place) {
            isSeparated = !items.empty();
        } else if (commandExists(*place, has)) {
            if (std::exchange(isSeparated, false))
                items.push_back({true, {}});
            items.push_back({false, *place});
        }
    }
    return items;
}

Places popupPlaces(FrameCommand popup) {
    if (popup == PlanningMenu)
        return {DailyPlanning, WeeklyPlanning};
    if (popup == PostitMenu)
        return {PostitNew,       PostitShowAll, PostitHideAll,
                PostitDeleteAll, PostitImport,  PostitExport};
    if (popup == ToolsMenu)
        return {ArchiveClass, separator, ChangeWeekAlloc};
    return {};
}

struct ToolbarPlace {
    FrameCommand command;
    QStringView tip;
    bool isSeparated; ///< from the one before
};

constexpr std::array toolbar{
    ToolbarPlace{OpenDatabase, u"Open Existing Database.", false},
    ToolbarPlace{ReturnToWizard, u"Startup Wizard.", false},
    ToolbarPlace{PlanningMenu, u"Planning Sheets...", true},
    ToolbarPlace{Timetable, u"Personal Timetable.", false},
    ToolbarPlace{Register, u"Register, Grades & Classes.", false},
    ToolbarPlace{CalendarOfEvents, u"Calendar of Events.", false},
    ToolbarPlace{PostitMenu, u"Post-it Notes", true},
    ToolbarPlace{Schedule, u"Schedule Reminder", false},
    ToolbarPlace{SeatingPlan, u"Seating Plans", false},
    ToolbarPlace{Incidents, u"Incident Report", false},
    ToolbarPlace{ToolsMenu, u"Tools...", true},
    ToolbarPlace{AddressBook, u"Address Book", true},
};

} // namespace

std::span<const CommandEntry> commandTable() {
    return commands;
}

const CommandEntry& commandEntry(FrameCommand command) {
    return *std::find_if(commands.begin(), commands.end(),
                         [command](const CommandEntry& entry) { return entry.command == command; });
}

bool commandExists(FrameCommand command, const WindowTest& has) {
    const Places places = popupPlaces(command);
    if (!present(places, has).empty())
        return true;
    const std::optional<ToolWindow> window = commandEntry(command).window;
    return window ? has(*window) : places.empty();
}

bool isCommandAllowed(const CommandEntry& entry, bool input, const Session& session) {
    if (entry.needsTwoWeeks && session.TTweekly != 1)
        return false;
    return input || !entry.needsDatabase;
}

std::vector<MenuEntry> frameMenus(const WindowTest& has) {
    return {
        {u"mnuFile", u"&File"_s,
         present({OpenDatabase, SetupDatabase, ReturnToWizard, separator, Exit}, has)},
        {u"mnuSettings", u"&View"_s,
         present({PlanningMenu, Timetable, Register, CalendarOfEvents, separator, ShowToolbar,
                  separator, GeneralSettings},
                 has)},
        {u"mnuHelp", u"&Help"_s, present({HelpAbout, HelpContents, HelpSearch, HelpUpgrade}, has)},
    };
}

MenuEntry popupMenu(FrameCommand popup, const WindowTest& has) {
    const CommandEntry& entry = commandEntry(popup);
    const QStringView name = popup == PlanningMenu ? QStringView(u"mnuPlanning") : entry.name;
    return {name, entry.caption, present(popupPlaces(popup), has)};
}

bool isPopup(FrameCommand command) {
    return command == PlanningMenu || command == PostitMenu || command == ToolsMenu;
}

ToolbarLayout toolbarLayout(const WindowTest& has) {
    ToolbarLayout result;
    bool isSeparated = false;
    for (const ToolbarPlace& place : toolbar) {
        isSeparated = isSeparated || place.isSeparated;
        if (!commandExists(place.command, has))
            continue;
        if (std::exchange(isSeparated, false) && !result.buttons.empty())
            result.layout += u'|';
        result.layout += u'B';
        result.buttons.push_back({place.command, place.tip.toString()});
    }
    return result;
}

void RunCommand(Session& session, MainFrame& frame, FrameCommand command) {
    switch (command) {
    case OpenDatabase:
        return OpenDatabaseCommand(session, frame);
    case SetupDatabase:
        return SetupDatabaseCommand(session, frame);
    case ReturnToWizard:
        return ReturnToWizardCommand(session, frame);
    case ArchiveClass:
        return ArchiveClassCommand(session, frame);
    case ChangeWeekAlloc:
        return ChangeWeeksCommand(session, frame);
    case Exit:
        return frame.Unload();
    case HelpAbout:
        return frame.Help_Menu(HelpItem::About);
    case HelpContents:
        return frame.Help_Menu(HelpItem::Contents);
    case HelpSearch:
        return frame.Help_Menu(HelpItem::Search);
    case HelpUpgrade:
        return GetUpgradeInfo(session);
    case Incidents:
        if (!MayShowIncidents(session.GetSettings(), session.GetSeams().prompts))
            return;
        break;
    default:
        break;
    }
    const std::optional<ToolWindow> window = commandEntry(command).window;
    if (window && !isPopup(command))
        frame.run(*window, command, {});
}
