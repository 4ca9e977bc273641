#include "search_commands.h"

#include "core/session.h"
#include "core/tab_separated.h"
#include "planning/class_history.h"
#include "planning/lesson_search.h"
#include "richtext/plain_text.h"

using namespace Qt::StringLiterals;

ExitStatus findInYear(const Workplace& workplace, const Call& call) {
    const LessonQuery query{.text = call.arguments.constFirst(),
                            .box = call.has(u"homework"_s) ? SheetBox::Homework : SheetBox::Lesson,
                            .matchesCase = call.has(u"match-case"_s)};
    if (query.text.isEmpty())
        throw UsageError(u"There is no text to look for."_s, call.command);
    Session& session = workplace.session;
    session.OpenToRead(call.file, call.password);
    LessonSearch search(session, query);
    for (auto state = LessonSearch::State::Looking; state != LessonSearch::State::Ended;
         state = search.lookOn()) {
        if (state != LessonSearch::State::Found)
            continue;
        const LessonHit& hit = search.hit();
        printLine({hit.planDate, QString::number(hit.period), QString::number(hit.position + 1)});
    }
    session.CloseAllDatabases();
    return Done;
}

ExitStatus printHistory(const Workplace& workplace, const Call& call) {
    Session& session = workplace.session;
    session.OpenToRead(call.file, call.password);
    for (const HistoryEntry& entry : LoadClassHistory(session, call.arguments.constFirst()))
        printLine({entry.planDate, richtext::plainText(entry.lesson),
                   richtext::plainText(entry.homework)});
    session.CloseAllDatabases();
    return Done;
}
