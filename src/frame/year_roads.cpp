#include "frame/year_roads.h"

#include "core/core_settings.h"
#include "core/database_closing.h"
#include "core/program_settings.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "frame/frame_commands.h"
#include "frame/internet_upgrade.h"
#include "frame/main_frame.h"
#include "organiser/post_it_settings.h"
#include "richtext/object_files.h"
#include "year/backup.h"
#include "year/class_archive.h"
#include "year/moved_year.h"
#include "year/repair.h"
#include "year/restore.h"
#include "year/week_change.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// Where the wizard begins with a new year, by its own number.
const QString FirstSetupPage = u"0"_s;

/// Asks whether to back up; with the box ticked it is done without asking from then on.
bool wantsBackup(Session& session) {
    BoxLook look;
    look.checkBox = u"Don't show this prompt again (Use Automatic Backups)"_s;
    const BoxAnswer answer = session.GetSeams().prompts.msg_Box(
        u"ORVA is closing!,\nDo you wish to Backup and Compress the database?"_s,
        YesNoButtons | QuestionIcon | SecondButtonDefault, u"Backup/Compress Database"_s, look);
    if (answer.ticked)
        session.GetSettings().set(setting::AutoBackup, ClosingBackup::CompactAndBackUp);
    return answer == AnswerYes;
}

void backUpAtClose(Session& session, const QString& path, const QString& password, bool mayAsk) {
    const ClosingBackup kind = session.GetSettings().get(setting::AutoBackup);
    if (kind == ClosingBackup::CompactAndBackUp ||
        (kind == ClosingBackup::Ask && mayAsk && wantsBackup(session)))
        BackupAndCompact(backupContext(session), path, true, password);
    else if (kind == ClosingBackup::BackUpOnly)
        BackupOnly(backupContext(session), path, password);
}

/// Puts right what a backup that was cut off left: of the default database, and of any other that
/// was open then. An archive that was cut off goes.
void recoverInterruptedBackups(Session& session) {
    const BackupContext context = backupContext(session);
    RemoveInterruptedArchive(context);
    const QString other = InterruptedBackup(context);
    if (!session.DatabasePath.isEmpty())
        RecoverInterruptedBackup(context, session.DatabasePath);
    if (!other.isEmpty() && other != session.DatabasePath)
        RecoverInterruptedBackup(context, other);
}

void backToWizard(Session& session, MainFrame& frame) {
    session.DatabasePath.clear();
    frame.SetCaption(mainCaption({}));
    frame.open(ToolWindow::StartupWizard);
}

/// Whether the start goes straight on to the person's own database.
bool opensAtStart(const Session& session) {
    return !session.DatabasePath.isEmpty() && session.GetSettings().get(setting::DontShowStartup);
}

/// Opens a database with its windows; where it does not open, tells why and shows the wizard.
void openOrShowWizard(Session& session, MainFrame& frame, const QString& asked,
                      const QString& password) {
    const QString path = asked; // which may be the session's own, and changes
    const OpenResult result = OpenOrRepair(session, path, password);
    if (result == OpenDone) {
        frame.DestroySplash();
        return RunCurrentStartup(session, frame);
    }
    if (result != OpenCancelled) {
        const OpenFailure failure = openFailure(session.LastOpenFault(), path);
        session.GetSeams().prompts.PlainBox(failure.text, OkButton | WarningIcon, failure.title);
    }
    backToWizard(session, frame);
}

/// Lets a window work on the year by itself, with all others closed, and waits for its end.
void workOnYear(Session& session, MainFrame& frame, ToolWindow window, FrameCommand command,
                const WindowSubject& subject) {
    if (!frame.MayLeave())
        return;
    frame.CloseOpenForms();
    frame.EnableInput(false);
    CloseRecordsets(session.CurrentDB, session.GetSeams().prompts);
    frame.run(window, command, subject);
    if (!session.CurrentDB.isOpen())
        return backToWizard(session, frame);
    frame.SetCaption(mainCaption(session.CurrentDB.Name()));
    frame.EnableInput(true);
    emit session.GetNotices().yearStarted();
}

/// Leaves for another database that was chosen from the menu; for none, stays.
void leaveFor(Session& session, MainFrame& frame, const QString& path) {
    if (path.isEmpty() || !LeaveDatabase(session, frame))
        return;
    session.DatabasePath = path;
    const OpenResult result = OpenOrRepair(session, path, {});
    if (result == OpenDone)
        return RunCurrentStartup(session, frame);
    if (result != OpenCancelled) {
        const OpenFailure failure = openFailure(session.LastOpenFault(), path);
        session.GetSeams().prompts.msg_Box(failure.text, OkButton | WarningIcon, failure.title);
    }
    backToWizard(session, frame);
}

} // namespace

void LoadMainWindow(Session& session, MainFrame& frame) {
    session.DatabasePath = session.GetSettings().get(setting::DefaultDatabasePath);
    richtext::ObjectFiles::removeLeftovers(session.AppPath);
    recoverInterruptedBackups(session);
    if (!QFileInfo::exists(session.DatabasePath))
        session.DatabasePath.clear();
    frame.SetCaption(mainCaption({}));
    frame.EnableInput(false);
    frame.DestroySplash();
    if (opensAtStart(session))
        session.OpenAhead(session.DatabasePath);
}

void ActivateMainWindow(Session& session, MainFrame& frame) {
    if (!opensAtStart(session))
        return frame.open(ToolWindow::StartupWizard);
    openOrShowWizard(session, frame, session.DatabasePath, {});
}

bool LeaveDatabase(Session& session, MainFrame& frame) {
    if (!frame.MayLeave())
        return false;
    frame.CloseOpenForms();
    frame.EnableInput(false);
    session.CloseAllDatabases();
    return true;
}

void OpenDatabaseCommand(Session& session, MainFrame& frame) {
    leaveFor(session, frame, session.ChooseDatabaseFile());
}

void OpenRecentYear(Session& session, MainFrame& frame, const QString& path) {
    if (path != session.CurrentDB.Name())
        leaveFor(session, frame, path);
}

void SetupDatabaseCommand(Session& session, MainFrame& frame) {
    if (!LeaveDatabase(session, frame))
        return;
    frame.SetCaption(mainCaption({}));
    frame.open(ToolWindow::StartupWizard, FirstSetupPage);
}

void ReturnToWizardCommand(Session& session, MainFrame& frame) {
    if (!LeaveDatabase(session, frame))
        return;
    frame.SetCaption(mainCaption({}));
    frame.open(ToolWindow::StartupWizard);
}

void ChangeWeeksCommand(Session& session, MainFrame& frame) {
    workOnYear(session, frame, ToolWindow::WeekChange, FrameCommand::ChangeWeekAlloc, {});
}

void ArchiveClassCommand(Session& session, MainFrame& frame, const QString& classCode) {
    workOnYear(session, frame, ToolWindow::Archive, FrameCommand::ArchiveClass, classCode);
}

bool BackupNowCommand(Session& session, MainFrame& frame) {
    if (!frame.closeYearWindows())
        return true;
    const QString path = session.DatabasePath;
    const QString password = session.DatabasePassword;
    session.CloseAllDatabases();
    frame.EnableInput(false);
    BackupAndCompact(backupContext(session), path, false, password);
    session.DatabasePath = path;
    if (session.OpenDatabaseFile(path, password) != OpenDone) {
        backToWizard(session, frame);
        return false;
    }
    frame.EnableInput(true);
    emit session.GetNotices().yearStarted();
    return true;
}

void RestoreBackupCommand(Session& session, MainFrame& frame) {
    if (!frame.MayLeave())
        return;
    const QString path = session.DatabasePath;
    const QString password = session.DatabasePassword;
    const auto reopen = [&] {
        session.DatabasePath = path;
        openOrShowWizard(session, frame, path, password);
    };
    RestoreBackup(
        backupContext(session), path,
        {[&] { LeaveDatabase(session, frame); }, [&] { return session.IsDBOpen(); }, reopen});
}

void RunCurrentStartup(Session& session, MainFrame& frame) {
    OfferToFinishWeekChange(session);
    for (const StartupWindow& noted : frame.startupWindows()) {
        if (session.GetSettings().get(noted.isOpen))
            frame.open(noted.window);
    }
    if (session.GetSettings().get(setting::AutoloadPostits))
        frame.run(ToolWindow::Postits, FrameCommand::PostitShowAll, {});
    if (session.GetSettings().get(setting::CheckForUpgrade) && hasUpgradeAddress(session))
        GetUpgradeInfo(session);
    emit session.GetNotices().yearStarted();
}

void SaveCurrentStartup(Session& session, MainFrame& frame) {
    Settings& settings = session.GetSettings();
    const Settings::Batch whole(settings);
    settings.ClearRegistryKey(setting::keyOf(setting::Startup));
    const QList<ToolWindow> visible = frame.visible();
    for (const StartupWindow& noted : frame.startupWindows()) {
        if (visible.contains(noted.window))
            settings.set(noted.isOpen, true);
    }
    frame.CloseOpenForms();
}

void ShutDown(Session& session, bool mayAsk) {
    const QString path = HasMoved(session) ? QString() : session.CurrentDB.Name();
    const QString password = session.DatabasePassword;
    session.CloseAllDatabases();
    if (!path.isEmpty())
        backUpAtClose(session, path, password, mayAsk);
}

QString mainCaption(const QString& databasePath) {
    return u"Orvane: "_s + ShortenPath(databasePath);
}
