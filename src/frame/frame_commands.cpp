#include "frame/frame_commands.h"

#include "calendar/timetable_settings.h"
#include "classes/class_settings.h"
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

constexpr bool NeedsDatabase = true;
constexpr bool NeedsNone = false;

/// The address book's key is not the one under which that window keeps itself ("AddressBook"), so
/// a minimised address book finds no place there and stays where it is. That is wanted.
const std::array commands{
    CommandEntry{OpenDatabase,
                 u"mnufileItem(0)",
                 u"Open a ORVA Database... "_s,
                 u"open",
                 {},
                 {},
                 u"Ctrl+O",
                 NeedsNone},
    CommandEntry{SetupDatabase,
                 u"mnufileItem(1)",
                 u"Setup a New ORVA database..."_s,
                 u"new",
                 {},
                 {},
                 {},
                 NeedsNone},
    CommandEntry{ReturnToWizard,
                 u"mnufileItem(2)",
                 u"Return to the Startup Wizard..."_s,
                 u"wizard",
                 {},
                 {},
                 {},
                 NeedsNone},
    CommandEntry{Exit, u"mnufileItem(8)", u"E&xit"_s, u"exit", {}, {}, u"Ctrl+Q", NeedsNone},
    CommandEntry{PlanningMenu,
                 u"mnuSettingsItem(0)",
                 u"Planning Sheets..."_s,
                 u"planning",
                 {},
                 {},
                 {},
                 NeedsDatabase},
    CommandEntry{DailyPlanning, u"mnuPlanning(0)", u"&Daily Planning Sheets..."_s, u"daily",
                 u"ORVAfrm", setting::Planning, u"Alt+1", NeedsDatabase},
    CommandEntry{WeeklyPlanning, u"mnuPlanning(1)", u"&Weekly Planning Sheets..."_s, u"weekly",
                 u"ORVA2frm", setting::Planning, u"Alt+2", NeedsDatabase},
    CommandEntry{Timetable, u"mnuSettingsItem(1)", u"Personal Timetable..."_s, u"timetable",
                 u"TTfrm", setting::Timetable, u"Alt+3", NeedsDatabase},
    CommandEntry{Register, u"mnuSettingsItem(2)", u"Register, Grades && Classes..."_s, u"register",
                 u"RegisterFrm", setting::Register, u"Alt+4", NeedsDatabase},
    CommandEntry{CalendarOfEvents, u"mnuSettingsItem(3)", u"Calendar of Events..."_s, u"calendar",
                 u"COEfrm", u"COE", u"Alt+5", NeedsDatabase},
    CommandEntry{ShowToolbar, u"mnuSettingsItem(5)", u"Toolbar"_s, {}, {}, {}, {}, NeedsNone},
    CommandEntry{GeneralSettings,
                 u"mnuSettingsItem(7)",
                 u"General Settings..."_s,
                 u"settings",
                 u"SettingsFrm",
                 {},
                 {},
                 NeedsDatabase},
    CommandEntry{PostitMenu, u"mnuPostit", u"postit"_s, u"postit", {}, {}, {}, NeedsDatabase},
    CommandEntry{PostitNew,
                 u"mnuPostitNew",
                 u"Create a New Post-it"_s,
                 u"postit_new",
                 u"PostitFrm",
                 {},
                 {},
                 NeedsDatabase},
    CommandEntry{PostitShowAll,
                 u"mnuPostitShowAll",
                 u"Show All Post-it's"_s,
                 {},
                 u"PostitFrm",
                 {},
                 {},
                 NeedsDatabase},
    CommandEntry{PostitHideAll,
                 u"mnuPostitHideAll",
                 u"Hide All Post-it's"_s,
                 {},
                 u"PostitFrm",
                 {},
                 {},
                 NeedsDatabase},
    CommandEntry{PostitDeleteAll,
                 u"mnuPostitDeleteAll",
                 u"Delete All Post-it's"_s,
                 {},
                 u"PostitFrm",
                 {},
                 {},
                 NeedsDatabase},
    CommandEntry{PostitImport,
                 u"mnuPostitImport",
                 u"Import Notes from Outlook"_s,
                 {},
                 u"PostitFrm",
                 {},
                 {},
                 NeedsDatabase},
    CommandEntry{PostitExport,
                 u"mnuPostitExport",
                 u"Export Post-it notes to Outlook"_s,
                 {},
                 u"PostitFrm",
                 {},
                 {},
                 NeedsDatabase},
    CommandEntry{Schedule,
                 u"Schedule",
                 u"Schedule Reminder"_s,
                 u"reminder",
                 u"Schedulefrm",
                 {},
                 u"Alt+6",
                 NeedsDatabase},
    CommandEntry{SeatingPlan, u"SeatingPlan", u"Seating Plans"_s, u"seating", u"SeatingPlanFrm",
                 u"SeatingPlan", u"Alt+7", NeedsDatabase},
    CommandEntry{Incidents,
                 u"Incidents",
                 u"Incident Report"_s,
                 u"incident",
                 u"IncidentFrm",
                 {},
                 u"Alt+8",
                 NeedsDatabase},
    CommandEntry{
        ToolsMenu, u"mnuTools", u"Tools..."_s, u"tools", u"mnuUserApps", {}, {}, NeedsDatabase},
    CommandEntry{AddressBook, u"Contacts", u"Address Book"_s, u"contacts", u"ContactsFrm",
                 u"Contacts", u"Alt+9", NeedsDatabase},
    CommandEntry{HelpAbout, u"mnHelpAbout", u"&About ORVA"_s, u"about", {}, {}, {}, NeedsNone},
    CommandEntry{HelpContents,
                 u"mnuHelpContents",
                 u"Help Contents"_s,
                 u"help",
                 u"HelpFrm",
                 {},
                 {},
                 NeedsNone},
    CommandEntry{HelpSearch,
                 u"mnuHelpSearch",
                 u"Search for help on..."_s,
                 u"help_search",
                 u"HelpFrm",
                 {},
                 {},
                 NeedsNone},
    CommandEntry{HelpUpgrade,
                 u"mnuHelpUpgrade",
                 u"Check for Internet Upgrade"_s,
                 u"upgrade",
                 {},
                 {},
                 {},
                 NeedsNone},
};

/// A line of a menu or a place on the toolbar; none is a separator.
using Places = std::vector<std::optional<FrameCommand>>;

constexpr std::nullopt_t separator = std::nullopt;

/// Without what has nothing behind it, and without the separators that then part nothing.
std::vector<MenuItem> present(const Places& places, const FormTest& hasForm) {
    std::vector<MenuItem> items;
    bool isSeparated = false;
    for (const std::optional<FrameCommand>& place : places) {
        if (!place) {
            isSeparated = !items.empty();
        } else if (commandExists(*place, hasForm)) {
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

QStringView commandPlacementKey(QStringView form) {
    const auto found =
        std::find_if(commands.begin(), commands.end(),
                     [form](const CommandEntry& entry) { return entry.form == form; });
    return found == commands.end() ? QStringView() : found->placementKey;
}

bool commandExists(FrameCommand command, const FormTest& hasForm) {
    const Places places = popupPlaces(command);
    if (!places.empty())
        return !present(places, hasForm).empty();
    const QStringView form = commandEntry(command).form;
    return form.isEmpty() || hasForm(form);
}

std::vector<MenuEntry> frameMenus(const FormTest& hasForm) {
    return {
        {u"mnuFile", u"&File"_s,
         present({OpenDatabase, SetupDatabase, ReturnToWizard, separator, Exit}, hasForm)},
        {u"mnuSettings", u"&View"_s,
         present({PlanningMenu, Timetable, Register, CalendarOfEvents, separator, ShowToolbar,
                  separator, GeneralSettings},
                 hasForm)},
        {u"mnuHelp", u"&Help"_s,
         present({HelpAbout, HelpContents, HelpSearch, HelpUpgrade}, hasForm)},
    };
}

MenuEntry popupMenu(FrameCommand popup, const FormTest& hasForm) {
    const CommandEntry& entry = commandEntry(popup);
    const QStringView name = popup == PlanningMenu ? QStringView(u"mnuPlanning") : entry.name;
    return {name, entry.caption, present(popupPlaces(popup), hasForm)};
}

bool isPopup(FrameCommand command) {
    return command == PlanningMenu || command == PostitMenu || command == ToolsMenu;
}

ToolbarLayout toolbarLayout(const FormTest& hasForm) {
    ToolbarLayout result;
    bool isSeparated = false;
    for (const ToolbarPlace& place : toolbar) {
        isSeparated = isSeparated || place.isSeparated;
        if (!commandExists(place.command, hasForm))
            continue;
        if (std::exchange(isSeparated, false) && !result.buttons.empty())
            result.layout += u'|';
        result.layout += u'B';
        result.buttons.push_back({place.command, place.tip.toString()});
    }
    return result;
}

void RunCommand(Session& session, FrameCommand command) {
    MainFrame& frame = *session.Frame();
    switch (command) {
    case OpenDatabase:
        return OpenDatabaseCommand(session);
    case SetupDatabase:
        return SetupDatabaseCommand(session);
    case ReturnToWizard:
        return ReturnToWizardCommand(session);
    case Exit:
        return ExitCommand(session);
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
    const QStringView form = commandEntry(command).form;
    if (!form.isEmpty() && !isPopup(command))
        frame.RunFormCommand(form.toString(), command);
}
