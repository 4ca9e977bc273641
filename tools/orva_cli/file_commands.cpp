#include "file_commands.h"

#include "core/console_prompts.h"
#include "core/session.h"
#include "core/tab_separated.h"
#include "week_commands.h"
#include "year/backup.h"
#include "year/repair.h"

#include <algorithm>

using namespace Qt::StringLiterals;

ExitStatus checkYear(const Workplace& workplace, const Call& call) {
    Session& session = workplace.session;
    const dao::FileCheck check =
        session.Engine().CheckDatabase(call.file, dao::connectText(call.password));
    for (const dao::TableCheck& each : check.tables)
        printLine({each.table, QString::number(each.records),
                   each.fault.isEmpty() ? u"ok"_s : each.fault});
    if (!check.fault.isEmpty())
        throw RefusedCommand(check.fault);
    if (std::any_of(check.tables.begin(), check.tables.end(),
                    [](const dao::TableCheck& each) { return !each.fault.isEmpty(); }))
        throw RefusedCommand(u"Not all tables are whole."_s);
    session.OpenToRead(call.file, call.password);
    const bool isWhole = isWeekChangeWhole(workplace, call);
    session.CloseAllDatabases();
    return isWhole ? Done : Failed;
}

ExitStatus repairYear(const Workplace& workplace, const Call& call) {
    workplace.prompts.OfferPassword(call.password);
    const auto outcome = RepairDatabaseFile(backupContext(workplace.session), call.file);
    if (!outcome)
        return Failed;
    for (const dao::RepairedTable& each : outcome->report.tables)
        printLine({each.table, QString::number(each.saved), QString::number(each.inPart),
                   QString::number(each.lost) + (each.mayLackMore ? u"+"_s : QString()),
                   QString::number(each.standIns)});
    printLine({call.file});
    if (!outcome->kept.isEmpty())
        printLine({outcome->kept});
    return Done;
}

ExitStatus backUpYear(const Workplace& workplace, const Call& call) {
    Session& session = workplace.session;
    session.OpenToRead(call.file, call.password);
    requireYear(session.CurrentDB);
    session.CloseAllDatabases();
    const BackupContext context = backupContext(session);
    const bool compacts = call.has(u"compact"_s);
    const bool isDone = compacts ? BackupAndCompact(context, call.file, false, call.password)
                                 : BackupOnly(context, call.file, call.password);
    if (!isDone)
        return Failed;
    printLine({BackupNames(call.file, context.backupFolder()).backup(1)});
    if (compacts)
        printLine({call.file});
    return Done;
}
