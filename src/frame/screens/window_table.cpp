#include "frame/screens/window_table.h"

#include "calendar/screens/timetable_window.h"
#include "calendar/timetable_settings.h"
#include "classes/class_settings.h"
#include "classes/screens/class_window.h"
#include "planning/planning_settings.h"
#include "planning/screens/daily_sheet_window.h"
#include "planning/screens/weekly_sheet_window.h"
#include "year/screens/startup_wizard.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

WindowTable windowTable() {
    static const std::array windows{
        WindowEntry{.name = u"StartupWiz"_s,
                    .placementKey = {},
                    .make = [](Session& session) { return new StartupWizard(session); },
                    .needsDatabase = false},
        // Beside the main window, which opens it itself (help_viewer.h).
        WindowEntry{.name = u"HelpFrm"_s, .placementKey = {}, .make = {}, .needsDatabase = false},
        WindowEntry{
            .name = u"TTfrm"_s,
            .placementKey = setting::Timetable.toString(),
            .make = [](Session& session) { return new TimetableWindow(session); },
            .refresh =
                [](QWidget& window) { qobject_cast<TimetableWindow*>(&window)->showWeekAgain(); }},
        WindowEntry{.name = u"ORVAfrm"_s,
                    .placementKey = setting::Planning.toString(),
                    .make = [](Session& session) { return new DailySheetWindow(session); },
                    .showSubject =
                        [](QWidget& window, const QVariant& subject) {
                            qobject_cast<DailySheetWindow*>(&window)->ShowPlan(subject.toDate());
                        },
                    .refresh =
                        [](QWidget& window) {
                            qobject_cast<DailySheetWindow*>(&window)->showClassesAgain();
                        }},
        WindowEntry{.name = u"ORVA2frm"_s,
                    .placementKey = setting::Planning.toString(),
                    .make = [](Session& session) { return new WeeklySheetWindow(session); },
                    .refresh =
                        [](QWidget& window) {
                            qobject_cast<WeeklySheetWindow*>(&window)->showClassesAgain();
                        }},
        WindowEntry{.name = u"RegisterFrm"_s,
                    .placementKey = setting::Register.toString(),
                    .make = [](Session& session) { return new ClassWindow(session); },
                    .showSubject =
                        [](QWidget& window, const QVariant& subject) {
                            qobject_cast<ClassWindow*>(&window)->AutoRegistration(
                                subject.toString());
                        }},
    };
    return windows;
}

const WindowEntry* findWindow(WindowTable windows, QStringView name) {
    const auto found =
        std::find_if(windows.begin(), windows.end(),
                     [name](const WindowEntry& entry) { return entry.name == name; });
    return found == windows.end() ? nullptr : &*found;
}
