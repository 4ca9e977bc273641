#include "year/moved_year.h"

#include "core/core_settings.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "store/engine/error.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const QString Title = u"Database moved or deleted"_s;

QString whatHappened(const Session& session) {
    return u"The database : \n\n%1\n\nhas been moved, deleted or replaced by another program while "
           "it was open. Nothing more can be saved in it, but all that it holds is still "
           "here."_s.arg(ShortenPath(session.CurrentDB.Name()));
}

/// A path that no file has; empty when it was called off.
QString askForFreePath(Session& session) {
    Prompts& prompts = session.GetSeams().prompts;
    for (;;) {
        QString path = prompts.OpenFileDialog(
            u" Save the database as :"_s, {{u"*.mdb"_s, u"*.mdb"_s}},
            session.FolderDefaults[SaveFolder].folder, ExplorerStyle | PathMustExist, true);
        if (path.isEmpty())
            return {};
        if (!path.endsWith(u".mdb"_s, Qt::CaseInsensitive))
            path += u".mdb"_s;
        if (!QFileInfo::exists(path))
            return path;
        prompts.PlainBox(u"This file already exists!\n\nPlease choose another name."_s,
                         OkButton | WarningIcon, u"File exists"_s);
    }
}

/// Answers whether the year has a file again.
bool saveAsAnother(Session& session) {
    for (;;) {
        const QString path = askForFreePath(session);
        if (path.isEmpty())
            return false;
        try {
            session.MoveDatabase(path);
            return true;
        } catch (const dao::EngineError& error) {
            session.GetSeams().prompts.PlainBox(
                u"The database could not be saved as:\n\n%1\n\n%2"_s.arg(path, error.description()),
                OkButton | WarningIcon, Title);
        }
    }
}

} // namespace

bool HasMoved(const Session& session) {
    return session.CurrentDB.isOpen() && !session.CurrentDB.isJetFile() &&
           !session.CurrentDB.IsInPlace();
}

void TellMovedYear(Session& session) {
    const BoxAnswer answer = session.GetSeams().prompts.msg_Box(
        whatHappened(session) +
            u"\n\nDo you wish to save it as another file now, and go on there?"_s,
        YesNoButtons | WarningIcon, Title);
    if (answer == AnswerYes)
        saveAsAnother(session);
}

bool MayLeaveMovedYear(Session& session) {
    while (HasMoved(session)) {
        BoxLook look;
        look.captions = {u"Save as..."_s, u"Close it"_s};
        const BoxAnswer answer = session.GetSeams().prompts.msg_Box(
            whatHappened(session) +
                u"\n\nDo you wish to save it as another file? If you close it, it is lost here; it "
                "is elsewhere only if it was moved there."_s,
            YesNoCancelButtons | WarningIcon, Title, look);
        if (answer == AnswerNo)
            return true;
        if (answer != AnswerYes || !saveAsAnother(session))
            return false;
    }
    return true;
}
