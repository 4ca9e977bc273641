#include "archive_commands.h"

#include "opened_year.h"

#include "core/session.h"
#include "year/class_archive.h"
#include "year/wizard_rules.h"

#include <QFileInfo>

ExitStatus archiveClassOf(const Workplace& workplace, const Call& call) {
    const QFileInfo target(call.arguments.constLast());
    openYear(workplace, call);
    const bool isMade = ArchiveClass(workplace.session, call.arguments.constFirst(),
                                     targetFile(target.absolutePath() + u'/', target.fileName()));
    workplace.session.CloseAllDatabases();
    return isMade ? Done : Failed;
}
