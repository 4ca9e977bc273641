// DBEngine::RepairDatabase: decides whether a file needs it, and puts the mended one in its place.

#include "store/engine/repair.h"

#include "store/engine/database_core.h"
#include "store/engine/engine.h"
#include "store/engine/error.h"
#include "store/engine/file_check.h"
#include "store/engine/file_kind.h"
#include "store/engine/files.h"
#include "store/engine/page_file.h"
#include "store/engine/salvage.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

/// Whether nothing is wrong with a file. Opening it undoes a change that was cut off.
bool isWhole(DatabaseCore& core, FileKind kind) {
    try {
        connectOwnFile(core, kind);
        const FileCheck check = checkTables(core.connection);
        core.connection.close();
        return check.fault.isEmpty() && hasWholePages(*core.file, kind) &&
               std::all_of(check.tables.begin(), check.tables.end(),
                           [](const TableCheck& each) { return each.fault.isEmpty(); });
    } catch (const EngineError& error) {
        core.connection.close();
        if (error.number() != DamagedDatabase)
            throw;
        return false;
    }
}

/// The pages of a file that is damaged.
PageFile pagesOf(const std::shared_ptr<OpenFile>& file, FileKind kind, const QString& password) {
    std::optional<PageFile> pages;
    if (kind != FileKind::Protected)
        pages = PageFile::plain(file);
    if (!pages && (kind == FileKind::Protected || mayBeProtected(*file))) {
        if (password.isEmpty())
            throw EngineError(WrongPassword, u"A password is needed."_s);
        pages = PageFile::protectedBy(password, file);
        if (!pages)
            throw EngineError(WrongPassword, u"The password is wrong, or the file is damaged."_s);
    }
    if (!pages)
        throw EngineError(DamagedDatabase, u"Nothing of the file can be read."_s);
    return *pages;
}

/// Puts the mended file in the place of the damaged one, which stays under another name.
void putInPlace(const QString& mended, const QString& path, const QString& keptAs) {
    if (keptAs.isEmpty())
        return replaceFile(mended, path);
    keepFile(path, keptAs);
    makePrivate(keptAs);
    try {
        replaceFile(mended, path);
    } catch (const EngineError&) {
        QFile::remove(keptAs);
        throw;
    }
}

} // namespace

bool DBEngine::MayBeRepaired(const QString& path) const {
    try {
        const QString absolute = checkedPath(path);
        const auto file = OpenFile::acquire(absolute);
        const FileKind kind = kindOf(*file, absolute);
        return kind != FileKind::Jet &&
               (kind == FileKind::Protected || PageFile::plain(file) || mayBeProtected(*file));
    } catch (const EngineError&) {
        return false;
    }
}

RepairReport DBEngine::RepairDatabase(const QString& path, const QString& connect,
                                      const QString& keptAs,
                                      const RepairKnowledge& knowledge) const {
    const QString absolute = checkedPath(path);
    checkWritable(absolute);
    const auto file = OpenFile::acquire(absolute);
    const FileKind kind = kindOf(*file, absolute);
    if (kind == FileKind::Jet)
        throw EngineError(InvalidOperation,
                          u"The file is in the older Jet format, which is only read."_s);
    DatabaseCore damaged(absolute, passwordOf(connect), false, file);
    if (isWhole(damaged, kind))
        return {.wasWhole = true, .tables = {}, .added = {}};
    const PageFile pages = pagesOf(file, kind, passwordOf(connect));
    const QString copy = unfinishedName(absolute);
    try {
        const QString password = pages.isProtected() ? passwordOf(connect) : QString();
        RepairReport report = writeSalvaged(pages, copy, password, knowledge);
        putInPlace(copy, absolute, keptAs);
        return report;
    } catch (...) {
        removeDatabaseFile(copy);
        throw;
    }
}

RepairReport DBEngine::writeSalvaged(const PageFile& pages, const QString& path,
                                     const QString& password, const RepairKnowledge& knowledge) {
    removeDatabaseFile(path);
    makePrivateFile(path);
    auto core = std::make_shared<DatabaseCore>(path, password, false, OpenFile::acquire(path));
    core->connection = Connection(path, Connection::Mode::Existing, password);
    core->connection.execute(u"PRAGMA application_id = %1"_s.arg(applicationMark));
    Database copy(core);
    RepairReport report{.tables = salvage(pages, *core, copy, knowledge), .added = {}};
    if (knowledge.complete)
        report.added = knowledge.complete(copy);
    copy.Close();
    return report;
}

} // namespace dao
