#include "organiser/post_it_commands.h"

#include "core/engine_failure.h"
#include "core/progress.h"
#include "core/session.h"
#include "core/tool_windows.h"
#include "organiser/post_it_rows.h"
#include "richtext/plain_text.h"
#include "richtext/rtf_parser.h"

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

/// Where imported notes stand: a little beside one another, in twips.
PostIt importedNote(const QString& text, qsizetype number) {
    constexpr int firstPlace = 1000;
    constexpr int step = 3;
    const int place = firstPlace + static_cast<int>(number) * step;
    return {.memo = text, .top = place, .left = place};
}

MailItems<QString> readMailNotes(const Seams& seams) {
    const ProgressWindow window(seams.progress, u"Import from Outlook"_s);
    seams.progress.UpdateProgress(0, u"Reading the notes"_s);
    return seams.mail.Outlook_ReadNotes();
}

/// People read a note in their mail client: it is given without the source of its formatting.
QString textForPeople(const PostIt& note) {
    QString text = richtext::isRichText(note.memo) ? richtext::plainText(note.memo) : note.memo;
    return text.remove(u'\r').remove(QChar::ObjectReplacementCharacter);
}

/// Answers why not all could be exported; empty where they are.
QString exportNotes(const Seams& seams, const QList<PostIt>& notes) {
    constexpr int whole = 100;
    const ProgressWindow window(seams.progress, u"Export to Outlook"_s);
    for (qsizetype i = 0; i < notes.size(); ++i) {
        seams.progress.UpdateProgress(static_cast<int>(i * whole / notes.size()),
                                      u"Exporting note %1 of %2"_s.arg(i + 1).arg(notes.size()));
        const QString fault = seams.mail.Outlook_AddNote(textForPeople(notes[i]));
        if (!fault.isEmpty())
            return u"%1\n\n%2 of %3 notes have been exported."_s.arg(fault).arg(i).arg(
                notes.size());
    }
    return {};
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

void ImportPostIts(Session& session) {
    const Seams& seams = session.GetSeams();
    const MailItems<QString> read = readMailNotes(seams);
    const bool hasNone =
        read.items.isEmpty() || (read.items.size() == 1 && read.items.constFirst().isEmpty());
    if (hasNone) {
        seams.prompts.msg_Box(
            nothingFoundText(u"Sorry but ORVA cannot find any notes in Outlook for importing!"_s,
                             read.fault),
            OkButton | WarningIcon, u"No notes found"_s);
        return;
    }
    QList<PostIt> notes;
    const bool isDone = tryTelling(seams.prompts, postItFailure, [&] {
        dao::Transaction whole(session.CurrentDB);
        for (qsizetype i = 0; i < read.items.size(); ++i)
            notes += addPostIt(session.CurrentDB, importedNote(read.items[i], i));
        whole.commit();
    });
    for (const PostIt& note : std::as_const(notes)) {
        if (isDone)
            showNote(session, note);
    }
}

void ExportPostIts(Session& session) {
    const Seams& seams = session.GetSeams();
    if (!session.GetWindows().writeAll())
        return;
    QList<PostIt> notes;
    if (!tryTelling(seams.prompts, postItFailure, [&] { notes = readPostIts(session.CurrentDB); }))
        return;
    if (notes.isEmpty()) {
        seams.prompts.msg_Box(u"There are no ORVA post-it notes to export to Outlook"_s,
                              OkButton | InformationIcon, u"No Post-its"_s);
        return;
    }
    const QString fault = exportNotes(seams, notes);
    if (fault.isEmpty())
        seams.prompts.msg_Box(u"All post-it notes have been exported to Outlook as notes."_s,
                              OkButton | InformationIcon, u"Export Complete"_s);
    else
        seams.prompts.msg_Box(u"The post-it notes could not be exported to Outlook:\n\n"_s + fault,
                              OkButton | WarningIcon, postItFailure.title.toString());
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
