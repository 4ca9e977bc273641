#include "year/class_archive.h"

#include "classes/class_removal.h"
#include "core/engine_failure.h"
#include "core/progress.h"
#include "core/session.h"
#include "core/settings.h"
#include "store/engine/error.h"
#include "store/engine/files.h"
#include "store/engine/names.h"
#include "store/table_names.h"
#include "year/backup.h"
#include "year/backup_settings.h"
#include "year/year_away.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr FailureBox archiveFailure{
    u"Archive Class",
    u"The class could not be archived:\n\n%1\n\nNo archive has been made, and the "
    "current database is as it was."};

/// Where the bar stands at each step, in percent.
enum ArchivingAt {
    Acquire = 0,
    CloseYear = 5,
    CopyYear = 10,
    OpenArchive = 30,
    RemoveClasses = 35,
    CloseArchive = 70,
    Compact = 75,
    ReopenYear = 95,
};

/// The archive is given up for a reason that the person knows already.
class ToldReason {};

BackupNames unfinishedNames(const BackupContext& context, const QString& target) {
    return {dao::unfinishedName(dao::behindLinks(target)), context.backupFolder(), target};
}

void removeUnfinished(const BackupNames& names) {
    dao::removeDatabaseFile(names.database);
    removeUnfinishedBackup(names);
}

/// Keeps others off a file that is going to be replaced, as long as the answer lives; null for
/// none. Raises 3204 for what is no file, 3356 for one that is open, as the year is by every name
/// that it has.
std::shared_ptr<dao::OpenFile> lockTarget(const QString& target) {
    const QFileInfo file(target);
    if (!file.exists())
        return nullptr;
    const QString shown = QDir::toNativeSeparators(target);
    if (!file.isFile())
        throw dao::EngineError(dao::FileExists, u"\"%1\" is no file."_s.arg(shown));
    auto lock = dao::OpenFile::acquire(target);
    if (lock->handles > 0)
        throw dao::EngineError(dao::OpenedExclusively,
                               u"This file is open at the moment:\n%1\nPlease choose another name "
                               "or another folder for the archive."_s.arg(shown));
    return lock;
}

/// Raises 3356 where the archive's backups would bear the names of the year's: they would push
/// those out, and who restores the newest would get a year of one class.
void requireOwnBackups(const QString& year, const QString& target, const QString& backupFolder) {
    const auto backupOf = [&](const QString& file) {
        return BackupNames(file, backupFolder).backup(1);
    };
    if (backupOf(target).compare(backupOf(year), Qt::CaseInsensitive) == 0)
        throw dao::EngineError(dao::OpenedExclusively,
                               u"Its backups would have the names of those of the current "
                               "database.\nPlease choose another name for the archive."_s);
}

/// Raises 3265 where the year has no such class.
void requireClass(const dao::Database& year, const QString& classCode) {
    if (!Load_data(year).contains(classCode))
        throw dao::EngineError(dao::NoSuchItem,
                               u"There is no class %1 in the year."_s.arg(classCode));
}

/// Notes an archive in the settings for as long as a kill would leave something of it behind.
class ArchiveAtWork {
public:
    ArchiveAtWork(const BackupContext& context, const QString& target)
        : m_context(context), m_names(unfinishedNames(context, target)) {
        if (QFileInfo::exists(m_names.database))
            lockClosedFile(m_names.database);
        removeUnfinished(m_names);
        m_context.settings.set(setting::ArchiveInProgress, target);
    }
    ~ArchiveAtWork() { m_context.settings.remove(setting::ArchiveInProgress); }
    ArchiveAtWork(const ArchiveAtWork&) = delete;
    ArchiveAtWork& operator=(const ArchiveAtWork&) = delete;

    const QString& file() const { return m_names.database; }

private:
    const BackupContext& m_context;
    BackupNames m_names;
};

/// All classes but one: those listed, and any that have lost their record but not their pupils.
QStringList otherClasses(const dao::Database& archive, const QString& classCode) {
    QStringList others = Load_data(archive);
    for (const QString& table : archive.TableDefs().names()) {
        const std::optional<QString> code = classOfClassTable(table);
        if (code && !others.contains(*code, Qt::CaseInsensitive))
            others += *code;
    }
    others.removeIf([&](const QString& code) { return dao::sameName(code, classCode); });
    return others;
}

/// Removes the other classes from the copy. Raises ToldReason and what the engine raises.
void removeOthers(const dao::Database& archive, const QString& classCode, const Seams& seams) {
    seams.progress.UpdateProgress(RemoveClasses, u"Removing Informations"_s);
    const QStringList others = otherClasses(archive, classCode);
    qsizetype gone = 0;
    const auto showNext = [&](const QString& code) {
        const auto percent =
            RemoveClasses + gone++ * (CloseArchive - RemoveClasses) / others.size();
        seams.progress.UpdateProgress(static_cast<int>(percent), u"Deleting info for "_s + code);
    };
    if (!Delete_Classes(archive, others, seams.prompts, showNext))
        throw ToldReason();
}

/// Makes the archive of a whole copy of the year. Raises ToldReason and what the engine raises.
void makeOfCopy(const BackupContext& context, const QString& copy, const QString& classCode,
                const QString& target, const QString& password) {
    Progress& progress = context.seams.progress;
    progress.UpdateProgress(OpenArchive, u"Opening "_s + target);
    dao::Database archive =
        context.engine.OpenDatabase(copy, true, false, dao::connectText(password));
    archive.FlushWhenReplaced();
    removeOthers(archive, classCode, context.seams);
    progress.UpdateProgress(CloseArchive, u"Closing database "_s + target);
    archive.Close();
    progress.UpdateProgress(Compact, u"Compacting Database"_s);
    if (!BackupAndCompactAs(context, copy, target, password))
        throw ToldReason();
}

/// From the closed year to the whole archive in its place.
bool makeArchive(const BackupContext& context, const YearAway& year, const QString& classCode,
                 const QString& target) {
    try {
        return tryTelling(context.seams.prompts, archiveFailure, [&] {
            const ArchiveAtWork archive(context, target);
            const auto yearLock = lockClosedFile(year.path());
            context.seams.progress.UpdateProgress(CopyYear, u"Copying Database as "_s + target);
            copyOver(year.path(), target, [&] {
                makeOfCopy(context, archive.file(), classCode, target, year.password());
            });
        });
    } catch (const ToldReason&) {
        return false;
    }
}

void openArchive(Session& session, const QString& target) {
    const YearAway year(session);
    const QString password = session.DatabasePassword;
    session.CloseAllDatabases();
    session.DatabasePath = target;
    if (session.OpenDatabaseFile(target, password) == OpenDone)
        return;
    const OpenFailure failure = openFailure(session.LastOpenFault(), target);
    session.GetSeams().prompts.PlainBox(failure.text, OkButton | WarningIcon, failure.title);
    year.reopen(session);
}

bool wantsToOpen(Prompts& prompts, const QString& classCode, const QString& target) {
    BoxLook look;
    look.captions = {u"Open Archive"_s, u"Return"_s};
    return prompts.msg_Box(u"The Class %1 has been archived to the file:\n%2\n\nYou can choose to "
                           "either open the archived database or return to the current "
                           "database."_s.arg(classCode, target),
                           YesNoButtons | InformationIcon, u"Archive Complete"_s,
                           look) == AnswerYes;
}

} // namespace

QStringList Load_data(const dao::Database& year) {
    QStringList codes;
    for (dao::Recordset classes = year.OpenRecordset(ClasscodesTable); !classes.EOF_();
         classes.MoveNext())
        codes += classes.Collect(u"Classcode").toText();
    return codes;
}

bool ArchiveClass(Session& session, const QString& classCode, const QString& target) {
    const Seams& seams = session.GetSeams();
    std::shared_ptr<dao::OpenFile> replaced;
    if (!tryTelling(seams.prompts, archiveFailure, [&] {
            requireClass(session.CurrentDB, classCode);
            replaced = lockTarget(target);
            requireOwnBackups(session.CurrentDB.Name(), target,
                              session.FolderDefaults[BackupFolder].folder);
        }))
        return false;
    const ProgressWindow window(seams.progress, u"Creating Archive:"_s);
    seams.progress.UpdateProgress(Acquire, u"Acquiring information"_s);
    const YearAway year(session);
    const BackupContext context = backupContext(session);
    seams.progress.UpdateProgress(CloseYear, u"Closing Current Database"_s);
    session.CloseAllDatabases();
    const bool isMade = makeArchive(context, year, classCode, target);
    replaced.reset();
    seams.progress.UpdateProgress(ReopenYear, u"Reopening Original Database"_s);
    year.reopen(session);
    return isMade;
}

bool Archive_NOW(Session& session, const QString& classCode, const QString& target) {
    if (!ArchiveClass(session, classCode, target))
        return false;
    if (wantsToOpen(session.GetSeams().prompts, classCode, target))
        openArchive(session, target);
    return true;
}

void RemoveInterruptedArchive(const BackupContext& context) {
    const QString target = context.settings.get(setting::ArchiveInProgress);
    if (target.isEmpty())
        return;
    const BackupNames names = unfinishedNames(context, target);
    try {
        for (const QString& path : {names.database, names.compacted}) {
            if (QFileInfo::exists(path))
                lockClosedFile(path);
        }
    } catch (const dao::EngineError&) {
        return; // another program is at work on it
    }
    removeUnfinished(names);
    context.settings.remove(setting::ArchiveInProgress);
}

QString archiveExplanation() {
    return u"Use this facility to archive a class to it's own database. All the information in the "
           "current database for the selected class will be saved in a database that can be opened "
           "with ORVA at a later date."_s;
}

bool asksToCancelArchive(Prompts& prompts) {
    return prompts.PlainBox(u"Class Archive is incomplete. Cancelling this operation now will "
                            "return you to the currently open database.\n\nAre you sure you wish "
                            "to cancel ?"_s,
                            YesNoButtons | QuestionIcon, u"Cancel Archive"_s) == AnswerYes;
}
