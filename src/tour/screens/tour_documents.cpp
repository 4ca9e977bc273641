#include "tour/screens/tour_documents.h"

#include "calendar/timetable_document.h"
#include "core/clock.h"
#include "core/session.h"
#include "incidents/report_document.h"
#include "office/libre_office.h"
#include "planning/cover_sheets.h"
#include "planning/plan_document.h"
#include "planning/quick_plan.h"
#include "planning/weekly_plan.h"
#include "seating/plan_picture_document.h"

#include <QDir>

#include <functional>

using namespace Qt::StringLiterals;

void visitDocuments(Session& session, const QString& folder) {
    const QString documents = folder + u"/documents/"_s;
    QDir().mkpath(documents);
    const QDate today = session.GetSeams().clock.today();
    const DatePeriod month{today.addDays(-28), today};
    const QString plan = folder + u"/SeatingPlanFrm.png"_s;
    QStringList classes;
    for (const ClassColour& each : session.ClassColours)
        classes += each.code;
    const struct {
        QString name;
        std::function<void(const DocumentPlace&)> create;
    } recipes[] = {
        {u"cover"_s,
         [&](const DocumentPlace& place) {
             // the class that has pupils is the last one's
             CreateCoverSheets(session, place, coverLessons(session, today).last(1));
         }},
        {u"quick"_s, [&](const DocumentPlace& place) { CreateQuickPlan(session, place, today); }},
        {u"weekly"_s,
         [&](const DocumentPlace& place) { CreateWeeklyPlan(session, place, month, classes); }},
        {u"timetable"_s,
         [&](const DocumentPlace& place) {
             CreateTimetableDocument(session, place, TimetableWeeks::Both);
         }},
        {u"seating"_s,
         [&](const DocumentPlace& place) {
             CreatePlanDocument(session.GetSeams(), place, classes.value(0), plan);
         }},
        {u"incident"_s,
         [&](const DocumentPlace& place) {
             if (const auto report = readReportTexts(session, 3))
                 CreateWordDoc(session, place, *report);
         }},
        {u"plan"_s,
         [&](const DocumentPlace& place) { CreateShortTermPlan(session, place, today, 1); }},
    };
    QStringList made;
    for (const auto& recipe : recipes) {
        DocumentPlace place = documentPlace(session);
        place.appPath = documents; // with templates of its own
        place.target = documents + u"Word_"_s + recipe.name + u".rtf"_s;
        recipe.create(place);
        made += place.target;
    }
    ConvertByLibreOffice(made, u"png"_s, folder);
}
