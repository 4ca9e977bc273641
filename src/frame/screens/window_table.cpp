#include "frame/screens/window_table.h"

#include "calendar/event_settings.h"
#include "calendar/screens/events_window.h"
#include "calendar/screens/timetable_window.h"
#include "calendar/timetable_settings.h"
#include "classes/class_settings.h"
#include "classes/screens/class_window.h"
#include "core/program_settings.h"
#include "core/session.h"
#include "incidents/incident_settings.h"
#include "incidents/screens/incident_window.h"
#include "organiser/address_book_settings.h"
#include "organiser/post_it_commands.h"
#include "organiser/post_it_rows.h"
#include "organiser/screens/address_book_window.h"
#include "organiser/screens/post_it_window.h"
#include "organiser/screens/reminders_window.h"
#include "planning/planning_settings.h"
#include "planning/screens/daily_sheet_window.h"
#include "planning/screens/history_window.h"
#include "planning/screens/search_window.h"
#include "planning/screens/weekly_sheet_window.h"
#include "planning/sheet_events.h"
#include "seating/screens/seating_plan_window.h"
#include "seating/seating_settings.h"
#include "settings/screens/settings_dialog.h"
#include "user_menu/screens/menu_editor.h"
#include "user_menu/screens/tools_popup.h"
#include "year/screens/archive_dialog.h"
#include "year/screens/change_weeks_wizard.h"
#include "year/screens/startup_wizard.h"

#include <QAction>
#include <QMenu>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

template<typename Window>
QWidget* make(Session& session, const WindowSubject&) {
    return new Window(session);
}

/// Gives a window a subject of the kinds that it shows; any other is none of its.
template<typename Window, typename... Subject>
auto shows(void (Window::*... show)(Subject)) {
    return [show...](QWidget& window, const WindowSubject& subject) {
        const auto offer = [&]<typename Kind>(void (Window::*way)(Kind)) {
            if (const auto* content = std::get_if<std::decay_t<Kind>>(&subject))
                (static_cast<Window&>(window).*way)(*content);
        };
        (offer(show), ...);
    };
}

/// The calendar of events stands below the planning sheets: the way to them is handed to it.
QWidget* makeEvents(Session& session, const WindowSubject&) {
    return new EventsWindow(session, [&session](QDate date, DayBlock block, const QString& rtf) {
        Add_to_Planning(session.CurrentDB, date, static_cast<SheetBox>(block), rtf);
        emit session.GetNotices().sheetsChanged();
    });
}

QWidget* makePostIt(Session& session, const WindowSubject& subject) {
    const auto* shown = std::get_if<PostItSubject>(&subject);
    return shown ? new PostItWindow(session, *shown->note) : nullptr;
}

void runPostItCommand(Session& session, FrameCommand command, const WindowSubject&) {
    switch (command) {
    case FrameCommand::PostitNew:
        return CreatePostIt(session);
    case FrameCommand::PostitShowAll:
        return ShowAllPostIts(session);
    case FrameCommand::PostitHideAll:
        return HideAllPostIts(session);
    case FrameCommand::PostitDeleteAll:
        return DeleteAllPostIts(session);
    case FrameCommand::PostitImport:
        return ImportPostIts(session);
    case FrameCommand::PostitExport:
        return ExportPostIts(session);
    default:
        return;
    }
}

void runWeekChange(Session& session, FrameCommand, const WindowSubject&) {
    showChangeWeeksWizard(session);
}

void runArchive(Session& session, FrameCommand, const WindowSubject& subject) {
    const auto* classCode = std::get_if<QString>(&subject);
    showArchiveDialog(session, classCode ? *classCode : QString());
}

/// Without notes there is none to show, to hide or to delete.
void fillPostItMenu(Session& session, QMenu& menu) {
    const bool hasNotes = countPostIts(session.CurrentDB) > 0;
    for (const FrameCommand command : {FrameCommand::PostitShowAll, FrameCommand::PostitHideAll,
                                       FrameCommand::PostitDeleteAll}) {
        for (QAction* action : menu.actions()) {
            if (action->objectName() == commandEntry(command).name)
                action->setEnabled(hasNotes);
        }
    }
}

} // namespace

WindowTable windowTable() {
    static const std::array windows{
        WindowEntry{.window = ToolWindow::StartupWizard,
                    .name = u"StartupWiz"_s,
                    .needsDatabase = false,
                    .make = make<StartupWizard>,
                    .show = shows(&StartupWizard::startSetup)},
        // The main window opens it by itself (help_viewer.h).
        WindowEntry{.window = ToolWindow::Help,
                    .name = u"HelpFrm"_s,
                    .kind = WindowKind::Floating,
                    .needsDatabase = false},
        WindowEntry{.window = ToolWindow::Classes,
                    .name = u"RegisterFrm"_s,
                    .placementKey = setting::Register.toString(),
                    .minimisedKey = setting::Register.toString(),
                    .openAtStart = setting::Open_Register,
                    .make = make<ClassWindow>,
                    .show = shows(&ClassWindow::AutoRegistration)},
        WindowEntry{.window = ToolWindow::Timetable,
                    .name = u"TTfrm"_s,
                    .placementKey = setting::Timetable.toString(),
                    .minimisedKey = setting::Timetable.toString(),
                    .openAtStart = setting::Open_Timetable,
                    .make = make<TimetableWindow>},
        WindowEntry{.window = ToolWindow::CalendarOfEvents,
                    .name = u"COEfrm"_s,
                    .placementKey = setting::COE.toString(),
                    .minimisedKey = setting::COE.toString(),
                    .openAtStart = setting::Open_COE,
                    .make = makeEvents,
                    .show = shows(&EventsWindow::SelectDate)},
        WindowEntry{.window = ToolWindow::WeeklySheet,
                    .name = u"ORVA2frm"_s,
                    .placementKey = setting::Planning.toString(),
                    .minimisedKey = setting::Planning.toString(),
                    .openAtStart = setting::Open_WeeklyPlan,
                    .insteadOf = ToolWindow::DailySheet,
                    .make = make<WeeklySheetWindow>},
        WindowEntry{.window = ToolWindow::DailySheet,
                    .name = u"ORVAfrm"_s,
                    .placementKey = setting::Planning.toString(),
                    .minimisedKey = setting::Planning.toString(),
                    .openAtStart = setting::Open_Planning,
                    .insteadOf = ToolWindow::WeeklySheet,
                    .make = make<DailySheetWindow>,
                    .show = shows(&DailySheetWindow::ShowPlan, &DailySheetWindow::showText)},
        WindowEntry{.window = ToolWindow::AddressBook,
                    .name = u"ContactsFrm"_s,
                    .placementKey = setting::AddressBook.toString(),
                    .minimisedKey = setting::AddressBook.toString(),
                    .needsDatabase = false,
                    .make = make<AddressBookWindow>},
        WindowEntry{.window = ToolWindow::Settings,
                    .name = u"SettingsFrm"_s,
                    .kind = WindowKind::Floating,
                    .make = make<SettingsDialog>,
                    .show = shows(&SettingsDialog::showPage)},
        WindowEntry{.window = ToolWindow::Postits,
                    .name = u"PostitFrm"_s,
                    .kind = WindowKind::FloatingMany,
                    .make = makePostIt,
                    .run = runPostItCommand,
                    .fill = fillPostItMenu},
        WindowEntry{.window = ToolWindow::Reminders,
                    .name = u"Schedulefrm"_s,
                    .make = make<RemindersWindow>,
                    .show = shows(&RemindersWindow::scheduleEvent)},
        WindowEntry{.window = ToolWindow::SeatingPlans,
                    .name = u"SeatingPlanFrm"_s,
                    .placementKey = setting::SeatingPlan.toString(),
                    .minimisedKey = setting::SeatingPlan.toString(),
                    .make = make<SeatingPlanWindow>},
        WindowEntry{.window = ToolWindow::Incidents,
                    .name = u"IncidentFrm"_s,
                    .placementKey = setting::Incidents.toString(),
                    .minimisedKey = setting::Incidents.toString(),
                    .make = make<IncidentWindow>},
        WindowEntry{.window = ToolWindow::UserTools,
                    .name = u"mnuEditor"_s,
                    .kind = WindowKind::Floating,
                    .needsDatabase = false,
                    .make = make<MenuEditor>,
                    .fill = fillToolsPopup},
        WindowEntry{.window = ToolWindow::WeekChange,
                    .name = u"ChangeWeekFrm"_s,
                    .kind = WindowKind::Floating,
                    .run = runWeekChange},
        WindowEntry{.window = ToolWindow::Archive,
                    .name = u"Archivefrm"_s,
                    .kind = WindowKind::Floating,
                    .run = runArchive},
        WindowEntry{.window = ToolWindow::Search,
                    .name = u"SearchFrm"_s,
                    .kind = WindowKind::Floating,
                    .make = make<SearchWindow>},
        WindowEntry{
            .window = ToolWindow::History,
            .name = u"CPlanFrm"_s,
            .kind = WindowKind::Floating,
            .placementKey = setting::History.toString(),
            .make = make<HistoryWindow>,
            .show = [](QWidget& window,
                       const WindowSubject&) { static_cast<HistoryWindow&>(window).showAsked(); }},
    };
    return windows;
}

const WindowEntry* findWindow(WindowTable windows, ToolWindow window) {
    const auto found =
        std::find_if(windows.begin(), windows.end(),
                     [window](const WindowEntry& entry) { return entry.window == window; });
    return found == windows.end() ? nullptr : &*found;
}
