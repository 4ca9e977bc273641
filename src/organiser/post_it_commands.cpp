#include "organiser/post_it_commands.h"

#include "core/engine_failure.h"
#include "core/session.h"
#include "core/tool_windows.h"
#include "organiser/post_it_rows.h"

using namespace Qt::StringLiterals;

namespace {

constexpr FailureBox postItFailure{.title = u"Post-it Notes Error"};

bool mayDelete(Session& session, const QString& title, const QString& question) {
    return session.GetSeams().prompts.msg_Box(
               question, YesNoButtons | WarningIcon | SecondButtonDefault, title) == AnswerYes;
}

void showNote(Session& session, const PostIt& note) {
    session.GetWindows().open(ToolWindow::Postits,
                              PostItSubject{note.id, std::make_shared<const PostIt>(note)});
}

} // namespace

void CreatePostIt(Session& session) {
    PostIt note{.memo = newNoteText()};
    if (tryTelling(session.GetSeams().prompts, postItFailure,
                   [&] { note = addPostIt(session.CurrentDB, note); }))
        showNote(session, note);
}

void ShowAllPostIts(Session& session) {
    QList<PostIt> notes;
    tryTelling(session.GetSeams().prompts, postItFailure,
               [&] { notes = readPostIts(session.CurrentDB); });
    for (const PostIt& note : notes)
        showNote(session, note);
}

void HideAllPostIts(Session& session) {
    session.GetWindows().close(ToolWindow::Postits);
}

void DeleteAllPostIts(Session& session) {
    tryTelling(session.GetSeams().prompts, postItFailure, [&] {
        const QString question =
            u"Deleting ALL Post-its will permanently remove all %1 currently active post-it's.\n\n"
            "Are you sure you want to remove ALL Post-it notes?"_s.arg(
                countPostIts(session.CurrentDB));
        if (!mayDelete(session, u"Delete ALL Post-it's"_s, question))
            return;
        deleteAllPostIts(session.CurrentDB);
        emit session.GetNotices().postItsDeleted();
    });
}

bool DeletePostIt(Session& session, qint64 id) {
    bool isGone = false;
    tryTelling(session.GetSeams().prompts, postItFailure, [&] {
        if (!mayDelete(session, u"Delete Post-it"_s,
                       u"Deleting this Post-it note will remove it permanently!\n"
                       "Do you wish to continue?"_s))
            return;
        deletePostIt(session.CurrentDB, id);
        isGone = true;
    });
    return isGone;
}
