#pragma once

#include "core/session.h"

class MainFrame;

/// The roads between the two states of a session: the start, the file menu, the end. Each leaves
/// the frame either with an open year or with the start-up wizard; those that begin in a year leave
/// everything as it was where LeaveDatabase is refused.

/// The main window has been loaded: takes over the default database, if its file is still there.
/// What a run that was killed has left, a backup cut off or opened objects, is put right before.
void LoadMainWindow(Session& session, MainFrame& frame);

/// The first activation of the main window: opens the default database when the teacher has asked
/// for that, else shows the wizard.
void ActivateMainWindow(Session& session, MainFrame& frame);

/// "Open a ORVA Database... ". Cancelled, the session stays as it was.
void OpenDatabaseCommand(Session& session, MainFrame& frame);
/// One of the years opened last. Nothing where it is the open one.
void OpenRecentYear(Session& session, MainFrame& frame, const QString& path);
/// "Setup a New ORVA database..."
void SetupDatabaseCommand(Session& session, MainFrame& frame);
/// "Return to the Startup Wizard..."
void ReturnToWizardCommand(Session& session, MainFrame& frame);
/// "Change Week Allocations...": closes the windows of the year and lets its wizard work on it.
/// Leaves the year open, or the start-up wizard where it could not be opened again.
void ChangeWeeksCommand(Session& session, MainFrame& frame);
/// "Archive Class...": closes the windows of the year and lets the dialog archive a class of it;
/// one is picked already where its code is given. Leaves the year open, or the archive where the
/// person wants that, or the start-up wizard where neither could be opened.
void ArchiveClassCommand(Session& session, MainFrame& frame, const QString& classCode = {});
/// The older restore, from a folder with a file of the open database's name. It is on no menu: the
/// wizard's restore has taken its place.
void RestoreBackupCommand(Session& session, MainFrame& frame);

/// "Backup now" of the settings. Answers false where the year did not come open again: then there
/// is the start-up wizard.
bool BackupNowCommand(Session& session, MainFrame& frame);

/// Closes the year with its windows: every way out of the open state begins so. Answers false, with
/// everything as it was, where the person stays for something that could not be written.
bool LeaveDatabase(Session& session, MainFrame& frame);

/// After a database came open: offers to finish what was broken off in it, and opens the windows of
/// the last run.
void RunCurrentStartup(Session& session, MainFrame& frame);
/// Notes which windows are open, and unloads them.
void SaveCurrentStartup(Session& session, MainFrame& frame);
/// The main window goes: closes the year, then backs it up as the settings say. Where nobody may be
/// asked (`mayAsk`) a backup that would ask is left out.
void ShutDown(Session& session, bool mayAsk = true);

/// The caption of the main window: "Orvane: " and the shortened path of the database, if any.
QString mainCaption(const QString& databasePath);
