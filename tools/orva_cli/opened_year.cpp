#include "opened_year.h"

#include "core/session.h"
#include "seating/plan_tables.h"

using namespace Qt::StringLiterals;

void openYear(const Workplace& workplace, const Call& call) {
    Session& session = workplace.session;
    session.DatabasePath = call.file;
    const OpenResult result = session.OpenDatabaseFile(call.file, call.password);
    if (result == OpenCancelled)
        throw RefusedCommand(u"The year was not opened."_s);
    if (result != OpenDone)
        throw RefusedCommand(openFailure(session.LastOpenFault(), call.file).text);
}

QString openClass(const Workplace& workplace, const Call& call) {
    const QString classCode = call.arguments.constFirst();
    openYear(workplace, call);
    if (!GetClassLists(workplace.session.CurrentDB).contains(classCode)) {
        workplace.session.CloseAllDatabases();
        throw RefusedCommand(u"There is no class %1 in the year."_s.arg(classCode));
    }
    return classCode;
}
