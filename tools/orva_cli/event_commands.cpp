#include "event_commands.h"

#include "opened_year.h"

#include "calendar/event_import.h"
#include "calendar/event_rows.h"
#include "core/console_prompts.h"
#include "core/session.h"
#include "core/tab_separated.h"

#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// Reads `yyyy-mm`; raises UsageError.
EventMonth monthOf(const Call& call) {
    static const QRegularExpression form(u"^([1-9][0-9]{3})-(0[1-9]|1[0-2])$"_s);
    const QRegularExpressionMatch match = form.match(call.arguments.constFirst());
    if (!match.hasMatch())
        throw UsageError(u"A month is written as yyyy-mm, such as 2026-09."_s, call.command);
    return {match.captured(1).toInt(), match.captured(2).toInt()};
}

} // namespace

ExitStatus printEvents(const Workplace& workplace, const Call& call) {
    const EventMonth month = monthOf(call);
    Session& session = workplace.session;
    session.OpenToRead(call.file, call.password);
    const QStringList texts = eventTexts(session.CurrentDB, month);
    session.CloseAllDatabases();
    for (qsizetype i = 0; i < texts.size(); ++i) {
        if (hasEventText(texts.at(i)))
            printLine({QString::number(i + 1), texts.at(i)});
    }
    return Done;
}

ExitStatus importEventsOf(const Workplace& workplace, const Call& call) {
    openYear(workplace, call);
    Session& session = workplace.session;
    workplace.prompts.OfferPassword(call.secondPassword);
    const bool isDone =
        confirmEventImport(workplace.prompts) &&
        importEvents(session, QFileInfo(call.arguments.constFirst()).absoluteFilePath());
    session.CloseAllDatabases();
    return isDone ? Done : Failed;
}
