#include "year/week_change.h"

#include "core/dates.h"
#include "core/engine_failure.h"
#include "core/progress.h"
#include "core/session.h"
#include "year/backup.h"
#include "year/long_register.h"
#include "year/week_choice.h"
#include "year/week_swap.h"
#include "year/year_away.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView boxTitle = u"Change week allocations";
constexpr FailureBox swapFailure{
    boxTitle, u"The week allocations could not be changed:\n\n%1\n\nThe planning sheets and the "
              "registers are as they were."};
constexpr FailureBox columnsFailure{
    boxTitle, u"The new register fields have not been added:\n\n%1\n\nThe planning sheets have "
              "been changed. When this database is opened again you can have the fields added."};

QString progressTitle() {
    return u"Changing Week Allocations :"_s;
}

/// The copy to which the teacher can return. The year is open again afterwards, or the teacher
/// knows why not.
bool backUp(Session& session) {
    const YearAway year(session);
    session.CloseAllDatabases();
    const bool isKept = BackupOnly(backupContext(session), year.path(), year.password());
    return year.reopen(session) && isKept;
}

/// Gives the room of the deleted fields back. Where that fails it is told and the change goes on.
bool compactAndReopen(Session& session) {
    const YearAway year(session);
    const Seams& seams = session.GetSeams();
    seams.progress.UpdateProgress(0, u"CLOSING DATABASE"_s);
    session.CloseAllDatabases();
    seams.progress.UpdateProgress(0, u"Compacting Database"_s);
    BackupAndCompact(backupContext(session), year.path(), true, year.password());
    seams.progress.UpdateProgress(0, u"Reopening Database"_s);
    if (session.OpenDatabaseFile(year.path(), year.password()) == OpenDone)
        return true;
    seams.prompts.PlainBox(u"Error: Unable to reopen the database after compacting!\n\n"
                           "The new register fields have not been added."_s,
                           OkButton | CriticalIcon, u"Unable to Reopen database"_s);
    return false;
}

/// The second half. Answers whether it is done.
bool addColumns(Session& session, QList<LongRegister>& tooLong) {
    const Seams& seams = session.GetSeams();
    return tryTelling(seams.prompts, columnsFailure, [&] {
        tooLong = addLessonColumns(session.CurrentDB, session.PeriodsPerDay, seams.progress);
    });
}

WeekChange change(Session& session, short week, QList<LongRegister>& tooLong) {
    const Seams& seams = session.GetSeams();
    const ProgressWindow window(seams.progress, progressTitle());
    if (!tryTelling(seams.prompts, swapFailure, [&] {
            swapWeeks(session.CurrentDB, session.PeriodsPerDay, week, seams.progress);
        }))
        return WeeksUnchanged;
    return compactAndReopen(session) && addColumns(session, tooLong) ? WeeksChanged
                                                                     : WeeksHalfChanged;
}

void warnOf(Prompts& prompts, const QList<LongRegister>& tooLong) {
    for (const LongRegister& each : tooLong)
        warnOfLongRegister(prompts, each.classCode, each.lessons);
}

/// The first sheet from a week on, as the wizard names a week.
QString firstSheetText(const dao::Database& database, short week) {
    const dao::Recordset sheets = openSheetsFrom(database, week, u"PlanDate"_s);
    return sheets.EOF_() ? QString::number(week)
                         : weekStartText(sheetDate(sheets.Collect(0).toText()), QLocale());
}

bool asksToFinish(Session& session, short week) {
    const BoxAnswer answer = session.GetSeams().prompts.msg_Box(
        u"A change of the week allocations from week %1 onwards was interrupted.\n\nThe planning "
        "sheets have been changed, but the registers of your classes have no fields for the "
        "lessons from that week on.\n\nDo you wish to add these fields now?"_s.arg(
            firstSheetText(session.CurrentDB, week)),
        YesNoButtons | QuestionIcon, weekChangeTitle());
    return answer == AnswerYes;
}

} // namespace

WeekChange ReallocateWeeks(Session& session, short week) {
    Prompts& prompts = session.GetSeams().prompts;
    QString fault;
    if (!tryTelling(prompts, swapFailure, [&] { fault = faultOfWeekChange(session, week); }))
        return WeeksUnchanged;
    if (!fault.isEmpty()) {
        prompts.PlainBox(fault, OkButton | WarningIcon, weekChangeTitle());
        return WeeksUnchanged;
    }
    if (!backUp(session))
        return WeeksUnchanged;
    QList<LongRegister> tooLong;
    const WeekChange result = change(session, week, tooLong);
    warnOf(prompts, tooLong);
    return result;
}

QString faultOfWeekChange(const Session& session, short week) {
    if (session.TTweekly != 1)
        return u"This database has only one timetable, so there are no weeks A and B to change."_s;
    if (openSheetsFrom(session.CurrentDB, week, u"ID"_s).EOF_())
        return u"There are no planning sheets from this week on."_s;
    return {};
}

bool OfferToFinishWeekChange(Session& session) {
    if (!session.CurrentDB.isOpen())
        return true;
    const Seams& seams = session.GetSeams();
    QList<LongRegister> tooLong;
    bool isDone = false;
    const bool isRead = tryTelling(seams.prompts, columnsFailure, [&] {
        const std::optional<short> week = unfinishedWeekChange(session.CurrentDB);
        isDone = !week;
        if (isDone || !asksToFinish(session, *week))
            return;
        const ProgressWindow window(seams.progress, progressTitle());
        isDone = addColumns(session, tooLong);
    });
    warnOf(seams.prompts, tooLong);
    return isRead && isDone;
}

QString weekChangeTitle() {
    return boxTitle.toString();
}
