#include "seat_commands.h"

#include "opened_year.h"

#include "core/console_prompts.h"
#include "core/session.h"
#include "core/tab_separated.h"
#include "seating/plan_making.h"
#include "seating/plan_tables.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize UsualCanvas(9000, 6000);

/// Reads `WxH`; raises UsageError.
QSize canvasOf(const Call& call) {
    if (!call.has(u"canvas"_s))
        return UsualCanvas;
    static const QRegularExpression form(u"^([0-9]{1,6})x([0-9]{1,6})$"_s);
    const QRegularExpressionMatch match = form.match(call.options[u"canvas"_s]);
    if (!match.hasMatch())
        throw UsageError(u"A canvas is written as width and height in twips, such as 9000x6000."_s,
                         call.command);
    return {match.captured(1).toInt(), match.captured(2).toInt()};
}

void printDesks(const Desks& desks) {
    for (const Desk& desk : desks)
        printLine({QString::number(desk.id), QString::number(desk.place.left()),
                   QString::number(desk.place.top()), QString::number(desk.place.width()),
                   QString::number(desk.place.height()), desk.caption});
}

bool make(const Workplace& workplace, const PlanName& plan, const Classroom& room) {
    const dao::Database& year = workplace.session.CurrentDB;
    ConsolePrompts& prompts = workplace.prompts;
    if (!plan.room.isEmpty())
        return isRoomCode(plan.room, prompts) && GenerateNewPlan(year, plan, room, prompts);
    if (planTables(year, plan) == PlanTables::None)
        return GenerateNewPlan(year, plan, room, prompts);
    return askRegenerate(prompts) && RegenerateTable(year, plan.classCode, room, prompts);
}

} // namespace

ExitStatus makeSeatingPlan(const Workplace& workplace, const Call& call) {
    const Classroom room{.canvas = canvasOf(call)};
    const PlanName plan{openClass(workplace, call), call.options[u"room"_s]};
    const bool isMade = make(workplace, plan, room);
    Desks desks;
    if (isMade)
        readPlan(workplace.session.CurrentDB, plan, desks);
    workplace.session.CloseAllDatabases();
    printDesks(desks);
    return isMade ? Done : Failed;
}

ExitStatus copySeatingPlan(const Workplace& workplace, const Call& call) {
    const PlanName plan{openClass(workplace, call), {}};
    const dao::Database& year = workplace.session.CurrentDB;
    ensureDefaultPlan(year, plan.classCode, {.canvas = UsualCanvas}, workplace.prompts);
    Desks desks;
    bool isCopied = false;
    if (planTables(year, plan) == PlanTables::Both) {
        readPlan(year, plan, desks);
        isCopied = CopyLayout(year, call.arguments.constLast(), desks, workplace.prompts);
    }
    if (isCopied)
        savePlan(year, plan, desks);
    workplace.session.CloseAllDatabases();
    if (isCopied)
        printDesks(desks);
    return isCopied ? Done : Failed;
}
