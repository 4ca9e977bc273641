#include "frame/year_roads.h"

#include "core/core_settings.h"
#include "core/prompts.h"
#include "core/settings.h"
#include "frame/frame_settings.h"
#include "frame/internet_upgrade.h"
#include "frame/main_frame.h"
#include "year/backup.h"
#include "year/restore.h"

#include <QFileInfo>

#include <array>
#include <optional>

namespace {

/// A window that is opened again at the next start, in the order of opening. Windows to come add
/// their line here and in the frame's own table.
struct StartupWindow {
    setting::OpenAtStart isOpen;
    QStringView form;
};
constexpr std::array<StartupWindow, 3> windowsBeforePostits{{
    {setting::Open_Register, u"RegisterFrm"},
    {setting::Open_Timetable, u"TTfrm"},
    {setting::Open_COE, u"COEfrm"},
}};
constexpr std::array<StartupWindow, 2> windowsAfterPostits{{
    {setting::Open_WeeklyPlan, u"ORVA2frm"},
    {setting::Open_Planning, u"ORVAfrm"},
}};

/// Asks whether to back up; with the box ticked it is done without asking from then on.
bool wantsBackup(Session& session) {
    BoxLook look;
    look.checkBox = QStringLiteral("Don't show this prompt again (Use Automatic Backups)");
    int answer = session.GetSeams().prompts.msg_Box(
        QStringLiteral("ORVA is closing!,\nDo you wish to Backup and Compress the database?"),
        YesNoButtons | QuestionIcon | SecondButtonDefault,
        QStringLiteral("Backup/Compress Database"), look);
    if (answer > CheckBoxTicked) {
        session.GetSettings().set(setting::AutoBackup, ClosingBackup::CompactAndBackUp);
        answer -= CheckBoxTicked;
    }
    return answer == AnswerYes;
}

void backUpAtClose(Session& session, const QString& path, const QString& password) {
    const ClosingBackup kind = session.GetSettings().get(setting::AutoBackup);
    if (kind == ClosingBackup::CompactAndBackUp ||
        (kind == ClosingBackup::Ask && wantsBackup(session)))
        BackupAndCompact(backupContext(session), path, true, password);
    else if (kind == ClosingBackup::BackUpOnly)
        BackupOnly(backupContext(session), path, password);
}

/// Puts right what a backup that was cut off left: of the default database, and of any other that
/// was open then.
void recoverInterruptedBackups(Session& session) {
    const BackupContext context = backupContext(session);
    const QString other = InterruptedBackup(context);
    if (!session.DatabasePath.isEmpty())
        RecoverInterruptedBackup(context, session.DatabasePath);
    if (!other.isEmpty() && other != session.DatabasePath)
        RecoverInterruptedBackup(context, other);
}

void backToWizard(Session& session) {
    session.DatabasePath.clear();
    session.Frame()->SetCaption(mainCaption({}));
    session.Frame()->ShowStartupWizard();
}

template<size_t Count>
void openWindows(Session& session, const std::array<StartupWindow, Count>& windows) {
    for (const StartupWindow& window : windows) {
        if (session.GetSettings().get(window.isOpen))
            session.Frame()->OpenForm(window.form.toString());
    }
}

std::optional<setting::OpenAtStart> startSetting(const QString& form) {
    for (const auto& window : windowsBeforePostits) {
        if (window.form == form)
            return window.isOpen;
    }
    for (const auto& window : windowsAfterPostits) {
        if (window.form == form)
            return window.isOpen;
    }
    return std::nullopt;
}

/// Opens a database with its windows; where it does not open, tells why and shows the wizard.
void openOrShowWizard(Session& session, const QString& asked, const QString& password) {
    const QString path = asked; // which may be the session's own, and changes
    const OpenResult result = session.OpenDatabaseFile(path, password);
    if (result == OpenDone) {
        session.Frame()->DestroySplash();
        session.Frame()->EnableInput(true);
        return RunCurrentStartup(session);
    }
    if (result != OpenCancelled) {
        const OpenFailure failure = openFailure(result, path);
        session.GetSeams().prompts.PlainBox(failure.text, OkButton | WarningIcon, failure.title);
    }
    backToWizard(session);
}

} // namespace

BackupContext backupContext(Session& session) {
    return {session.Engine(), session.GetSeams(), session.GetSettings(), session.AppPath,
            session.FolderDefaults};
}

void LoadMainWindow(Session& session) {
    session.DatabasePath = session.GetSettings().get(setting::DefaultDatabasePath);
    recoverInterruptedBackups(session);
    if (!QFileInfo::exists(session.DatabasePath))
        session.DatabasePath.clear();
    session.Frame()->SetCaption(mainCaption({}));
    session.Frame()->EnableInput(false);
    session.Frame()->DestroySplash();
}

void ActivateMainWindow(Session& session) {
    const bool skipsWizard = session.GetSettings().get(setting::DontShowStartup);
    if (session.DatabasePath.isEmpty() || !skipsWizard)
        return session.Frame()->ShowStartupWizard();
    openOrShowWizard(session, session.DatabasePath, {});
}

OpenFailure openFailure(OpenResult result, const QString& path) {
    if (result == OpenInUse)
        return {QStringLiteral("Database already open"),
                QStringLiteral("The database : \n\n%1\n\nappears to be already open by another "
                               "user.\n\nPlease retry later.")
                    .arg(ShortenPath(path))};
    return {QStringLiteral("Invalid Database"),
            QStringLiteral("The database : \n\n%1\n\nappears to be either the wrong format or "
                           "corrupt!\n\nPlease choose another action.")
                .arg(ShortenPath(path))};
}

void LeaveDatabase(Session& session) {
    session.Frame()->CloseOpenForms();
    session.Frame()->EnableInput(false);
    session.CloseAllDatabases();
}

void OpenDatabaseCommand(Session& session) {
    const QString path = session.ChooseDatabaseFile();
    if (path.isEmpty())
        return;
    session.DatabasePath = path;
    LeaveDatabase(session);
    const OpenResult result = session.OpenDatabaseFile(path, {});
    if (result == OpenDone) {
        session.Frame()->EnableInput(true);
        return RunCurrentStartup(session);
    }
    if (result != OpenCancelled) {
        const OpenFailure failure = openFailure(result, path);
        session.GetSeams().prompts.msg_Box(failure.text, OkButton | WarningIcon, failure.title);
    }
    backToWizard(session);
}

void SetupDatabaseCommand(Session& session) {
    LeaveDatabase(session);
    session.Frame()->SetCaption(mainCaption({}));
    session.Frame()->ShowStartupWizardSetup();
}

void ReturnToWizardCommand(Session& session) {
    LeaveDatabase(session);
    session.Frame()->SetCaption(mainCaption({}));
    session.Frame()->ShowStartupWizard();
}

void ExitCommand(Session& session) {
    session.Frame()->CloseOpenForms();
    session.Frame()->Unload();
}

void RestoreBackupCommand(Session& session) {
    const QString path = session.DatabasePath;
    const QString password = session.DatabasePassword;
    const auto reopen = [&] {
        session.DatabasePath = path;
        openOrShowWizard(session, path, password);
    };
    RestoreBackup(backupContext(session), path,
                  {[&] { LeaveDatabase(session); }, [&] { return session.IsDBOpen(); }, reopen});
}

void RunCurrentStartup(Session& session) {
    openWindows(session, windowsBeforePostits);
    openWindows(session, windowsAfterPostits);
    if (session.GetSettings().get(setting::CheckForUpgrade) && hasUpgradeAddress(session))
        GetUpgradeInfo(session);
}

void SaveCurrentStartup(Session& session) {
    Settings& settings = session.GetSettings();
    const Settings::Batch whole(settings);
    settings.ClearRegistryKey(setting::keyOf(setting::Startup));
    const QStringList forms = session.Frame()->visibleForms();
    for (auto form = forms.crbegin(); form != forms.crend(); ++form) {
        if (const auto isOpen = startSetting(*form))
            settings.set(*isOpen, true);
    }
    session.Frame()->CloseOpenForms();
}

void ShutDown(Session& session) {
    const QString path = session.CurrentDB.Name();
    const QString password = session.DatabasePassword;
    session.CloseAllDatabases();
    if (!path.isEmpty())
        backUpAtClose(session, path, password);
}
