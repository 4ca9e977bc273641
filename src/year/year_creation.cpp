#include "year/year_creation.h"

#include "core/progress.h"
#include "core/prompts.h"
#include "store/engine/error.h"
#include "store/engine/files.h"
#include "store/engine/open_file.h"
#include "year/year_builder.h"

#include <QDir>
#include <QFileInfo>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Keeps others off a file that is going to be replaced, as long as the answer lives. Raises 3356
/// when somebody has it open.
std::shared_ptr<dao::OpenFile> lockFile(const QString& path) {
    auto file = dao::OpenFile::acquire(path);
    if (file->handles > 0)
        throw dao::EngineError(dao::OpenedExclusively, u"The file is already open."_s);
    return file;
}

/// The lock on the file that is to be replaced; null where there is none.
std::shared_ptr<dao::OpenFile> prepareTarget(const QString& path, ExistingFile existing) {
    const QFileInfo target(path);
    if (!target.exists() && !target.isSymLink())
        return nullptr;
    if (existing == ExistingFile::Keep || !target.isFile())
        throw dao::EngineError(dao::FileExists,
                               u"\"%1\" already exists."_s.arg(QDir::toNativeSeparators(path)));
    return lockFile(path);
}

/// What a killed run left goes; what another run is at work on is locked and stays.
void removeLeftover(const QString& working) {
    if (!QFileInfo::exists(working))
        return;
    const auto lock = lockFile(working);
    dao::removeDatabaseFile(working);
}

void buildFile(const dao::DBEngine& engine, const YearAnswers& answers, const QString& working,
               Progress& progress, Prompts& prompts, const QLocale& locale) {
    dao::Database database = engine.CreateDatabase(working, dao::GeneralLocale.toString());
    database.FlushWhenReplaced();
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
    const ProgressWindow window(progress, u"Creating Database:"_s);
    const auto lock = prepareTarget(path, existing);
    const QString target = dao::behindLinks(path);
    const QString working = dao::unfinishedName(target);
    removeLeftover(working);
    try {
        buildFile(engine, answers, working, progress, prompts, locale);
        dao::replaceFile(working, target);
    } catch (...) {
        dao::removeDatabaseFile(working);
        throw;
    }
}

QString databaseCreatedTitle() {
    return u"Create Database:"_s;
}

QString databaseCreatedText() {
    return u"Your new database has been created successfully!\n\n"
           "The database will now be opened for you to edit.\n\n"
           "Before you can use the register and grades options\n\n"
           "you will need to import your class lists or add them manually."_s;
}
