#include "document_commands.h"

#include "opened_year.h"

#include "calendar/timetable_document.h"
#include "classes/class_export_commands.h"
#include "core/console_prompts.h"
#include "core/session.h"
#include "incidents/report_document.h"
#include "planning/cover_sheets.h"
#include "planning/plan_document.h"
#include "planning/quick_plan.h"
#include "planning/short_term_plan.h"
#include "planning/weekly_plan.h"
#include "seating/plan_picture_document.h"

#include <QFileInfo>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// Reads `yyyy-mm-dd`; raises UsageError.
QDate dateOf(const Call& call, qsizetype argument) {
    const QDate date = QDate::fromString(call.arguments[argument], Qt::ISODate);
    if (!date.isValid())
        throw UsageError(u"A date is written as yyyy-mm-dd, such as 2026-09-07."_s, call.command);
    return date;
}

int numberOf(const Call& call, qsizetype argument, const QString& what) {
    bool isNumber = false;
    const int number = call.arguments[argument].toInt(&isNumber);
    if (!isNumber || number < 1)
        throw UsageError(what + u" is written as a number from 1 on."_s, call.command);
    return number;
}

/// Makes a document of the year.
ExitStatus make(const Workplace& workplace, const Call& call,
                const std::function<bool(const DocumentPlace&)>& create) {
    Session& session = workplace.session;
    DocumentPlace place = documentPlace(session);
    place.target = QFileInfo(call.arguments.constLast()).absoluteFilePath();
    if (!mayOverwrite(place.target, workplace.prompts))
        return Failed;
    openYear(workplace, call);
    const bool isMade = create(place);
    session.CloseAllDatabases();
    return isMade ? Done : Failed;
}

} // namespace

ExitStatus documentCover(const Workplace& workplace, const Call& call) {
    const QDate date = dateOf(call, 0);
    return make(workplace, call, [&](const DocumentPlace& place) {
        return ExportCoverSheets(workplace.session, place, date);
    });
}

ExitStatus documentQuick(const Workplace& workplace, const Call& call) {
    const QDate date = dateOf(call, 0);
    return make(workplace, call, [&](const DocumentPlace& place) {
        return CreateQuickPlan(workplace.session, place, date);
    });
}

ExitStatus documentWeekly(const Workplace& workplace, const Call& call) {
    const DatePeriod days{dateOf(call, 0), dateOf(call, 1)};
    if (days.first > days.last)
        throw UsageError(u"The first day comes before the last."_s, call.command);
    const QStringList classes = call.arguments[2].split(u',', Qt::SkipEmptyParts);
    return make(workplace, call, [&](const DocumentPlace& place) {
        return CreateWeeklyPlan(workplace.session, place, days, classes);
    });
}

ExitStatus documentTimetable(const Workplace& workplace, const Call& call) {
    const qsizetype weeks = QStringList{u"1"_s, u"2"_s, u"both"_s}.indexOf(call.arguments[0]);
    if (weeks < 0)
        throw UsageError(u"The weeks are 1, 2 or both."_s, call.command);
    return make(workplace, call, [&](const DocumentPlace& place) {
        return CreateTimetableDocument(workplace.session, place,
                                       static_cast<TimetableWeeks>(weeks));
    });
}

ExitStatus documentSeating(const Workplace& workplace, const Call& call) {
    return make(workplace, call, [&](const DocumentPlace& place) {
        return CreatePlanDocument(workplace.session.GetSeams(), place, call.arguments[0],
                                  QFileInfo(call.arguments[1]).absoluteFilePath());
    });
}

ExitStatus documentIncident(const Workplace& workplace, const Call& call) {
    const int report = numberOf(call, 0, u"A report"_s);
    return make(workplace, call, [&](const DocumentPlace& place) {
        const std::optional<ReportTexts> texts = readReportTexts(workplace.session, report);
        if (!texts)
            throw RefusedCommand(u"There is no report %1 in the year."_s.arg(report));
        return CreateWordDoc(workplace.session, place, *texts);
    });
}

ExitStatus documentPlan(const Workplace& workplace, const Call& call) {
    const QDate date = dateOf(call, 0);
    const int period = numberOf(call, 1, u"A period"_s);
    return make(workplace, call, [&](const DocumentPlace& place) {
        if (!ShortTermPlan::takes(period) || period > workplace.session.PeriodsPerDay)
            throw RefusedCommand(u"The year has no period %1 that can be planned."_s.arg(period));
        return CreateShortTermPlan(workplace.session, place, date, period);
    });
}
