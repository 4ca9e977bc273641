#include "opened_year.h"

#include "core/session.h"

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
