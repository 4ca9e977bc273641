#include "tour/screens/tour_incidents.h"

#include "controls/rich_text_box.h"
#include "core/session.h"
#include "frame/screens/main_window.h"
#include "incidents/incident_rows.h"
#include "incidents/screens/incident_window.h"
#include "tour/screens/tour_pictures.h"

#include <QPushButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

void fillIncidents(const dao::Database& year) {
    Check_Incident_Tables(year);
    const NewIncident incidents[] = {
        {.surname = u"O'Brien"_s,
         .forename = u"Sam"_s,
         .tutor = u"Ms Hartley"_s,
         .date = QDate(2024, 9, 17),
         .event = u"Disruption of a lesson"_s},
        {.surname = u"Baker"_s,
         .forename = u"Tom"_s,
         .date = QDate(2024, 9, 24),
         .event = u"Accident"_s},
        {.surname = u"O'Brien"_s,
         .forename = u"Sam"_s,
         .tutor = u"Ms Hartley"_s,
         .date = QDate(2024, 10, 8),
         .event = u"Poor behaviour around school"_s},
    };
    for (const NewIncident& each : incidents)
        addIncident(year, each);
}

} // namespace

void visitIncidents(Session& session, MainWindow& frame, TourPictures& pictures) {
    fillIncidents(session.CurrentDB);
    frame.open(ToolWindow::Incidents);
    if (auto* window = frame.findChild<IncidentWindow*>()) {
        auto* tree = window->findChild<QTreeView*>(u"tv1"_s);
        tree->expandAll();
        tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(1, 0)));
        auto* report = window->findChild<RichTextBox*>(u"RT1(0)"_s);
        report->setSelectedText(
            u"Sam ran along the corridor by the library twice and did not stop when asked to."_s);
        pictures.save(frame, u"IncidentFrm"_s);
        window->findChild<QPushButton*>(u"cmdNew"_s)->click();
        window->findChild<QPushButton*>(u"cmdClasses"_s)->click();
        pictures.save(frame, u"IncidentFrm_new"_s);
        window->findChild<QPushButton*>(u"cmdCancel"_s)->click();
    }
    frame.CloseOpenForms();
}
