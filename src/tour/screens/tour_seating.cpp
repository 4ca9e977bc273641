#include "tour/screens/tour_seating.h"

#include "core/session.h"
#include "frame/screens/main_window.h"
#include "seating/plan_tables.h"
#include "seating/screens/desk_canvas.h"
#include "seating/screens/seating_plan_window.h"
#include "tour/screens/tour_pictures.h"

#include <QComboBox>
#include <QTabWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// The class with the most pupils.
QString fullestClass(const dao::Database& year) {
    QString fullest;
    qsizetype most = -1;
    for (const QString& classCode : GetClassLists(year)) {
        const qsizetype count = pupilsToSeat(year, classCode).size();
        if (count > most) {
            most = count;
            fullest = classCode;
        }
    }
    return fullest;
}

} // namespace

void visitSeating(Session& session, MainWindow& frame, TourPictures& pictures) {
    frame.open(ToolWindow::SeatingPlans);
    if (auto* window = frame.findChild<SeatingPlanWindow*>()) {
        auto* classes = window->findChild<QComboBox*>(u"Sel1"_s);
        emit classes->textActivated(fullestClass(session.CurrentDB));
        window->findChild<QToolButton*>(u"Toolbar2(0)"_s)->click();
        window->findChild<QTabWidget*>(u"Tab1"_s)->setCurrentIndex(1);
        window->findChild<DeskCanvas*>()->select(1);
        pictures.save(frame, u"SeatingPlanFrm"_s);
    }
    frame.CloseOpenForms();
}
