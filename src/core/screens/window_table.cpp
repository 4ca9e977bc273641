#include "core/screens/window_table.h"

#include "calendar/screens/ttfrm.h"
#include "classes/class_settings.h"
#include "classes/screens/registerfrm.h"
#include "planning/screens/orva2frm.h"
#include "planning/screens/orvafrm.h"
#include "store/screens/startupwiz.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

WindowTable windowTable() {
    static const std::array windows{
        WindowEntry{.name = u"StartupWiz"_s,
                    .placementKey = {},
                    .make = [](Session& session) { return new StartupWiz(session); },
                    .needsDatabase = false},
        // Beside the main window, which opens it itself (help_viewer.h).
        WindowEntry{.name = u"HelpFrm"_s, .placementKey = {}, .make = {}, .needsDatabase = false},
        WindowEntry{
            .name = u"TTfrm"_s,
            .placementKey = setting::Timetable.toString(),
            .make = [](Session& session) { return new TTfrm(session); },
            .refresh = [](QWidget& window) { qobject_cast<TTfrm*>(&window)->showWeekAgain(); }},
        WindowEntry{
            .name = u"ORVAfrm"_s,
            .placementKey = setting::Planning.toString(),
            .make = [](Session& session) { return new ORVAfrm(session); },
            .showSubject =
                [](QWidget& window, const QVariant& subject) {
                    qobject_cast<ORVAfrm*>(&window)->ShowPlan(subject.toDate());
                },
            .refresh =
                [](QWidget& window) { qobject_cast<ORVAfrm*>(&window)->showClassesAgain(); }},
        WindowEntry{
            .name = u"ORVA2frm"_s,
            .placementKey = setting::Planning.toString(),
            .make = [](Session& session) { return new ORVA2frm(session); },
            .refresh =
                [](QWidget& window) { qobject_cast<ORVA2frm*>(&window)->showClassesAgain(); }},
        WindowEntry{.name = u"RegisterFrm"_s,
                    .placementKey = setting::Register.toString(),
                    .make = [](Session& session) { return new RegisterFrm(session); },
                    .showSubject =
                        [](QWidget& window, const QVariant& subject) {
                            qobject_cast<RegisterFrm*>(&window)->AutoRegistration(
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
