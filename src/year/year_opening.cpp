#include "year/year_opening.h"

#include "calendar/class_colours.h"
#include "classes/pupil_notes.h"
#include "planning/sheet_fields.h"
#include "planning/sheet_upgrades.h"
#include "store/engine/error.h"
#include "store/table_names.h"

using namespace Qt::StringLiterals;

namespace {

void readAdmin(Session& session) {
    const dao::Recordset admin = session.CurrentDB.OpenRecordset(AdminTable);
    session.AcademicYear = admin.Collect(u"Year").toText();
    session.PeriodsPerDay = static_cast<qint16>(admin.Collect(u"PeriodsPerDay").toInteger());
    session.TeacherName = admin.Collect(u"Teacher").toText();
    session.TTweekly = static_cast<qint16>(admin.Collect(u"TTweekly").toInteger());
    session.StartWeek = session.TTweekly == 1 ? admin.Collect(u"StartWeek").toText() : QString();
}

void countTerms(Session& session) {
    dao::Recordset terms = session.CurrentDB.OpenRecordset(TermDatesTable);
    terms.MoveLast();
    session.TermCount = static_cast<qint16>(dao::Value(terms.RecordCount() / 2.0).toInteger());
}

/// A day has as many periods as a sheet has room for, and one at least: windows are laid out by it.
void checkPeriods(const Session& session) {
    const dao::Recordset sheets = session.CurrentDB.OpenRecordset(PlanningTable);
    if (session.PeriodsPerDay < 1 || !sheets.HasField(classField(session.PeriodsPerDay)))
        throw dao::EngineError(
            dao::DamagedDatabase,
            u"The file says that a day has %1 periods."_s.arg(session.PeriodsPerDay));
}

/// What makes a file a year's: it has all these tables with these fields.
void readYear(Session& session) {
    readAdmin(session);
    checkPeriods(session);
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
}

} // namespace

YearOpening yearOpening() {
    return {.read = readYear, .bringUpToDate = bringUpToDate};
}
