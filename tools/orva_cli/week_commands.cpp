#include "week_commands.h"

#include "opened_year.h"

#include "core/console_prompts.h"
#include "core/session.h"
#include "year/week_change.h"
#include "year/week_choice.h"
#include "year/week_swap.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

short readWeek(const Call& call) {
    bool isNumber = false;
    const int week = call.arguments.constFirst().toInt(&isNumber);
    if (!isNumber || week < 1 || week > std::numeric_limits<short>::max())
        throw UsageError(u"WEEK is the number of a teaching week, from 1."_s, call.command);
    return static_cast<short>(week);
}

bool agreesToClear(const Workplace& workplace, short week) {
    return workplace.prompts.PlainBox(
               weekChangeSummary(workplace.session.CurrentDB, week) +
                   u"\n\nAll plans from this week on will be cleared. Do you wish to continue?"_s,
               YesNoButtons | QuestionIcon, weekChangeTitle()) == AnswerYes;
}

} // namespace

ExitStatus changeWeeks(const Workplace& workplace, const Call& call) {
    Session& session = workplace.session;
    const short week = readWeek(call);
    openYear(workplace, call);
    if (!OfferToFinishWeekChange(session))
        return Failed;
    const QString fault = faultOfWeekChange(session, week);
    if (!fault.isEmpty())
        throw RefusedCommand(fault);
    const bool isDone =
        agreesToClear(workplace, week) && ReallocateWeeks(session, week) == WeeksChanged;
    session.CloseAllDatabases();
    return isDone ? Done : Failed;
}

bool isWeekChangeWhole(const Workplace& workplace, const Call& call) {
    Session& session = workplace.session;
    if (!unfinishedWeekChange(session.CurrentDB))
        return true;
    if (call.consents) {
        session.CloseAllDatabases();
        openYear(workplace, call);
    }
    return OfferToFinishWeekChange(session);
}
