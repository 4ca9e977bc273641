#include "year/restore.h"

#include "core/core_settings.h"
#include "core/prompts.h"
#include "core/settings.h"
#include "store/engine/error.h"
#include "store/engine/files.h"
#include "year/backup.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString chooseBackup(const BackupContext& context) {
    return context.seams.prompts.OpenFileDialog(
        u" Select the backup database file to restore:"_s,
        {{u"Backup Database file (*.00?)"_s, u"*.00?"_s}}, context.backupFolder(),
        PathMustExist | FileMustExist | ExplorerStyle, false);
}

/// The backup's name as that of a database, in a folder.
QString restoredName(const QString& backup, const QString& folder) {
    const QString name = backup.mid(backup.lastIndexOf(QDir::separator()) + 1);
    return folder + withoutExtensionLetters(name) + u"mdb"_s;
}

/// Where the backup goes, as the teacher wants it; empty when it should go nowhere.
QString chooseTarget(const BackupContext& context, const QString& backup) {
    const QString usual = context.settings.find(setting::DefaultDatabasePath)
                              .value_or(restoredName(backup, context.folders[OpenFolder].folder));
    if (!QFile::exists(usual))
        return usual;
    const BoxAnswer answer =
        context.seams.prompts.msg_Box(u"Do you wish to replace the file "_s + usual +
                                          u"\n\nWhat it holds now is kept as the newest backup."_s,
                                      YesNoButtons | QuestionIcon, u"Restore File"_s);
    if (answer == AnswerYes)
        return usual;
    // The file that was just refused may be the very one that No leads to.
    const QString other = restoredName(backup, context.backupFolder());
    return QFileInfo(other) == QFileInfo(usual) ? QString() : other;
}

/// Puts a verified copy of the backup in the place of the target, which is kept as a backup. That
/// may give the backup itself another number, or its end: by then it is copied.
void restoreTo(const BackupContext& context, const QString& backup, const QString& target) {
    checkDatabaseFile(context.engine, backup);
    if (!QFile::exists(target))
        return copyOver(backup, target);
    const auto lock = lockClosedFile(target);
    copyOver(backup, target, [&] { KeepAsBackup(context, target); });
}

/// The folder of a backup that has a file of this name; empty when the teacher calls it off.
QString chooseRestoreFolder(Prompts& prompts, const QString& name) {
    for (;;) {
        const QString folder =
            prompts.ChooseFolder(u"Select the directory which contains the backup database :"_s);
        if (folder.isEmpty() || QFile::exists(QDir(folder).filePath(name)))
            return folder;
        prompts.PlainBox(u"This directory doesn't contain a backup database (ORVA.mdb)\n"
                         "Please either select another directory or select cancel."_s,
                         OkButton | WarningIcon, u"Invalid directory"_s);
    }
}

/// Copies the database to ORVA.OLD and the backup over the database; it has its name throughout.
void restoreOver(const BackupContext& context, const QString& backup, const QString& database) {
    Prompts& prompts = context.seams.prompts;
    const QString former = context.appPath + u"ORVA.OLD"_s;
    try {
        checkDatabaseFile(context.engine, backup);
        copyOver(backup, database, [&] {
            if (QFile::exists(database))
                copyOver(database, former);
        });
        prompts.PlainBox(u"The backup database has been restored.\n"
                         "The previously used database has been saved as the file ORVA.OLD"_s,
                         OkButton | InformationIcon, u"Backup restored:"_s);
    } catch (const dao::EngineError& error) {
        prompts.PlainBox(u"Sorry this program was unable to copy the database file: \n"
                         "%1\n  TO\n%2\nPlease try to do this manually.\n\n%3"_s.arg(
                             backup, database, error.description()),
                         OkButton | WarningIcon, u"Restore Error"_s);
    }
}

} // namespace

QString RestoreBackupFile(const BackupContext& context) {
    const QString backup = chooseBackup(context);
    if (backup.isEmpty())
        return {};
    const QString target = chooseTarget(context, backup);
    if (target.isEmpty())
        return {};
    try {
        // Where one without a place of its own goes.
        MakeProposedFolder(context.folders[OpenFolder]);
        restoreTo(context, backup, target);
        return target;
    } catch (const dao::EngineError& error) {
        context.seams.prompts.PlainBox(
            u"The backup could not be restored:\n%1\n\n%2\n\nNothing has been changed."_s.arg(
                backup, error.description()),
            OkButton | WarningIcon, u"Restore Error"_s);
        return {};
    }
}

void RestoreBackup(const BackupContext& context, const QString& databasePath,
                   const RestoreSession& session) {
    session.close();
    if (!session.isDBOpen()) {
        const QString database = QDir(context.appPath).absoluteFilePath(databasePath);
        const QString name = QFileInfo(database).fileName();
        const QString folder = chooseRestoreFolder(context.seams.prompts, name);
        if (!folder.isEmpty())
            restoreOver(context, QDir(folder).filePath(name), database);
    }
    session.reopen();
}
