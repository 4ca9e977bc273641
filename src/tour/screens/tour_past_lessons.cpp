#include "tour/screens/tour_past_lessons.h"

#include "core/clock.h"
#include "core/session.h"
#include "frame/screens/main_window.h"
#include "planning/screens/history_window.h"
#include "planning/screens/search_window.h"
#include "tour/screens/tour_pictures.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/// Looks for a text and waits for the first hit.
void findFirst(SearchWindow& box, const QString& text) {
    box.findChild<QComboBox*>(u"Combo1"_s)->setEditText(text);
    box.findChild<QPushButton*>(u"ButtonEx1(0)"_s)->click();
    while (box.isLooking())
        QApplication::processEvents();
}

} // namespace

void visitPastLessons(Session& session, MainWindow& frame, TourPictures& pictures) {
    // The sixth period of today is one of the class whose last weeks are filled.
    constexpr int period = 6;
    const QDate today = session.GetSeams().clock.today();
    frame.open(ToolWindow::DailySheet, SheetText{.date = today, .period = period});
    frame.open(ToolWindow::History);
    if (auto* viewer = frame.findChild<HistoryWindow*>())
        pictures.save(*viewer, u"CPlanFrm"_s);
    frame.open(ToolWindow::Search);
    if (auto* box = frame.findChild<SearchWindow*>()) {
        findFirst(*box, u"domino"_s);
        pictures.save(*box, u"SearchFrm"_s);
    }
    frame.CloseOpenForms();
}
