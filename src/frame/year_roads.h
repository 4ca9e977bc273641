#pragma once

#include "core/session.h"
#include "year/backup_files.h"

#include <QString>

/// The roads between the two states of a session: the start, the file menu, the end. Each leaves
/// the frame either with an open year or with the start-up wizard.

/// The main window has been loaded: takes over the default database, if its file is still there. A
/// backup of it that was cut off is put right before.
void LoadMainWindow(Session& session);

/// The first activation of the main window: opens the default database when the teacher has asked
/// for that, else shows the wizard.
void ActivateMainWindow(Session& session);

/// "Open a ORVA Database... ". Cancelled, the session stays as it was.
void OpenDatabaseCommand(Session& session);
/// "Setup a New ORVA database..."
void SetupDatabaseCommand(Session& session);
/// "Return to the Startup Wizard..."
void ReturnToWizardCommand(Session& session);
/// The older restore, from a folder with a file of the open database's name. It is on no menu: the
/// wizard's restore has taken its place.
void RestoreBackupCommand(Session& session);
/// "E&xit". The windows go first, so that none of them is noted for the next start: only closing
/// the main window itself keeps them.
void ExitCommand(Session& session);

/// What the operations on whole files need, from the session.
BackupContext backupContext(Session& session);

/// Closes the year with its windows: every way out of the open state begins so.
void LeaveDatabase(Session& session);

/// The box for a file that is in use or invalid: its title and text.
struct OpenFailure {
    QString title;
    QString text;
};
OpenFailure openFailure(OpenResult result, const QString& path);

/// Opens the windows of the last run, after a database came open.
void RunCurrentStartup(Session& session);
/// Notes which windows are open, and unloads them.
void SaveCurrentStartup(Session& session);
/// The main window goes: closes the year, then backs it up as the settings say.
void ShutDown(Session& session);
