#include "year/year_opening.h"

#include "calendar/class_colours.h"
#include "classes/pupil_notes.h"
#include "organiser/post_it_rows.h"
#include "planning/sheet_fields.h"
#include "planning/sheet_upgrades.h"
#include "store/engine/error.h"
#include "store/table_names.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LongestYear = 9;
constexpr qsizetype LongestTeacher = 30;

/// A day has as many periods as a sheet has room for, and one at least: windows are laid out by it.
void checkPeriods(const dao::Database& year, qint64 periods) {
    const dao::Recordset sheets = year.OpenRecordset(PlanningTable);
    if (periods < 1 || periods > dao::MaximumFields ||
        !sheets.HasField(classField(static_cast<int>(periods))))
        throw dao::EngineError(dao::NotADatabase,
                               u"The file says that a day has %1 periods."_s.arg(periods));
}

void checkTimetables(qint64 twoWeekly) {
    if (twoWeekly != 0 && twoWeekly != 1)
        throw dao::EngineError(
            dao::NotADatabase,
            u"The file does not say whether it has one timetable or two, but %1."_s.arg(twoWeekly));
}

/// What stands in the year's own record is checked before anything goes by it: another program, or
/// damage, may have left anything there.
void readAdmin(Session& session) {
    const dao::Recordset admin = session.CurrentDB.OpenRecordset(AdminTable);
    const qint64 periods = admin.Collect(u"PeriodsPerDay").toInteger();
    const qint64 twoWeekly = admin.Collect(u"TTweekly").toInteger();
    session.AcademicYear = admin.Collect(u"Year").toText().left(LongestYear);
    session.TeacherName = admin.Collect(u"Teacher").toText().left(LongestTeacher);
    checkPeriods(session.CurrentDB, periods);
    checkTimetables(twoWeekly);
    session.PeriodsPerDay = static_cast<qint16>(periods);
    session.TTweekly = static_cast<qint16>(twoWeekly);
    session.StartWeek = twoWeekly == 1 ? admin.Collect(u"StartWeek").toText().left(1) : QString();
}

void countTerms(Session& session) {
    dao::Recordset terms = session.CurrentDB.OpenRecordset(TermDatesTable);
    terms.MoveLast();
    session.TermCount = static_cast<qint16>(dao::Value(terms.RecordCount() / 2.0).toInteger());
}

/// What makes a file a year's: it has all these tables with these fields.
void readYear(Session& session) {
    readAdmin(session);
    countTerms(session);
    session.CurrentDB.OpenRecordset(CalendarTable);
    LoadClassColours(session);
    session.CurrentDB.OpenRecordset(ExtraTTinfoTable);
}

/// Older files lack what later ones have; each step does nothing to a file that has it.
void bringUpToDate(Session& session) {
    AddWeekField(session.CurrentDB);
    AddABWeekField(session.CurrentDB, session.TTweekly, session.StartWeek);
    AddLessonNotesTable(session.CurrentDB);
    CheckPostItTable(session.CurrentDB);
}

} // namespace

YearOpening yearOpening() {
    return {.read = readYear, .bringUpToDate = bringUpToDate};
}
