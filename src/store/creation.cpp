#include "store/creation.h"

#include "core/progress.h"
#include "core/prompts.h"
#include "store/engine/error.h"
#include "store/engine/files.h"
#include "store/year_builder.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// The file under work, in the folder of the file to come. One name for all: whatever a killed run
/// left in a folder is found by the next one.
QString workingName(const QString& path) {
    return QFileInfo(path).absoluteDir().filePath(QStringLiteral(".orva-new-year.mdb"));
}

/// The file that a link leads to, so that it is replaced and not the link.
QString behindLinks(const QString& path) {
    const QString file = QFileInfo(path).canonicalFilePath();
    return file.isEmpty() ? path : file;
}

bool isOpenElsewhere(int number) {
    return number == dao::FileInUse || number == dao::OpenedExclusively;
}

/// Raises 3045 or 3356 when somebody has the file open. Whether it opens otherwise is no matter.
void refuseOpenFile(const dao::DBEngine& engine, const QString& path) {
    try {
        engine.OpenDatabase(path, true, true).Close();
    } catch (const dao::EngineError& error) {
        if (isOpenElsewhere(error.number()))
            throw;
    }
}

void prepareTarget(const dao::DBEngine& engine, const QString& path, ExistingFile existing) {
    const QFileInfo target(path);
    if (!target.exists() && !target.isSymLink())
        return;
    if (existing == ExistingFile::Keep || !target.isFile())
        throw dao::EngineError(
            dao::FileExists,
            QStringLiteral("\"%1\" already exists.").arg(QDir::toNativeSeparators(path)));
    refuseOpenFile(engine, path);
}

void removeLeftover(const dao::DBEngine& engine, const QString& working) {
    if (QFileInfo::exists(working))
        refuseOpenFile(engine, working);
    dao::removeDatabaseFile(working);
}

void buildFile(const dao::DBEngine& engine, const YearAnswers& answers, const QString& working,
               Progress& progress, Prompts& prompts, const QLocale& locale) {
    dao::Database database = engine.CreateDatabase(working, dao::GeneralLocale.toString());
    {
        dao::Transaction transaction(database);
        YearBuilder(database, answers, progress, prompts, locale).build();
        transaction.commit();
    }
    database.Close();
}

} // namespace

void CreateDB(const dao::DBEngine& engine, const YearAnswers& answers, const QString& path,
              ExistingFile existing, Progress& progress, Prompts& prompts, const QLocale& locale) {
    const ProgressWindow window(progress, QStringLiteral("Creating Database:"));
    prepareTarget(engine, path, existing);
    const QString target = behindLinks(path);
    const QString working = workingName(target);
    removeLeftover(engine, working);
    try {
        buildFile(engine, answers, working, progress, prompts, locale);
        dao::replaceFile(working, target);
    } catch (...) {
        dao::removeDatabaseFile(working);
        throw;
    }
}

QString databaseCreatedTitle() {
    return QStringLiteral("Create Database:");
}

QString databaseCreatedText() {
    return QStringLiteral("Your new database has been created successfully!\n\n"
                          "The database will now be opened for you to edit.\n\n"
                          "Before you can use the register and grades options\n\n"
                          "you will need to import your class lists or add them manually.");
}
