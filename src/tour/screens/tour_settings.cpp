#include "tour/screens/tour_settings.h"

#include "core/session.h"
#include "frame/screens/main_window.h"
#include "incidents/incident_titles.h"
#include "settings/screens/settings_dialog.h"
#include "settings/settings_pages.h"
#include "tour/screens/tour_pictures.h"

#include <QLabel>

using namespace Qt::StringLiterals;

void visitSettings(Session& session, MainWindow& frame, TourPictures& pictures) {
    Settings& settings = session.GetSettings();
    Apply_Register(settings, {.keys = {u"L=Late"_s, u"H=No homework"_s, u"M=Music lesson"_s},
                              .previousDates = 3});
    addIncidentTitle(settings, u"Late to three lessons"_s);
    Apply_Planning(settings, {.font = {},
                              .subject = u"Mathematics"_s,
                              .ability = u"Set 4, levels 5 to 6"_s,
                              .unit = {},
                              .term = 0,
                              .times = {u"10 mins"_s, u"35 mins"_s, u"5 mins"_s}});
    frame.open(ToolWindow::Settings);
    if (auto* dialog = frame.findChild<SettingsDialog*>()) {
        // Nothing of the machine that the pictures are taken on.
        dialog->findChild<QLabel*>(u"LbDefault"_s)->clear();
        pictures.save(*dialog, u"SettingsFrm"_s);
        for (int page = ViewSettingsPage; page <= AddressSettingsPage; ++page) {
            if (page == FileLocationsPage)
                continue;
            dialog->showPage(page);
            pictures.save(*dialog, u"SettingsFrm_%1"_s.arg(page));
        }
    }
    frame.CloseOpenForms();
}
