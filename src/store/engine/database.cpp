#include "store/engine/database.h"

#include "store/engine/copy.h"
#include "store/engine/database_core.h"
#include "store/engine/error.h"
#include "store/engine/files.h"
#include "store/engine/names.h"
#include "store/engine/recordset_core.h"

#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace dao {

Database::Database(std::shared_ptr<DatabaseCore> core) : m_core(std::move(core)) {}

bool Database::isOpen() const {
    return m_core && m_core->isOpen();
}

std::shared_ptr<DatabaseCore> Database::checkedCore() const {
    if (!isOpen())
        throw EngineError(ObjectInvalid, u"The database is closed."_s);
    return m_core;
}

QString Database::Name() const {
    return isOpen() ? m_core->path : QString();
}

bool Database::isReadOnly() const {
    return checkedCore()->readOnly;
}

bool Database::isJetFile() const {
    return checkedCore()->jetFile;
}

Recordset Database::OpenRecordset(const QString& source, RecordsetType type) const {
    const auto core = checkedCore();
    const auto table = core->catalog.find(source);
    if (!table && !sql::looksLikeStatement(source))
        throw EngineError(NoSuchTable, u"There is no table '%1'."_s.arg(source));
    const auto findTable = [&core](QStringView name) { return core->catalog.find(name); };
    auto recordset = std::make_shared<RecordsetCore>(
        core, source, type,
        table ? sql::tableQuery(table) : sql::translateSelect(source, findTable));
    core->addRecordset(recordset);
    return Recordset(std::move(recordset));
}

QList<Recordset> Database::Recordsets() const {
    QList<Recordset> open;
    for (auto& recordset : checkedCore()->recordsets())
        open += Recordset(std::move(recordset));
    return open;
}

TableDefCollection Database::TableDefs() const {
    return TableDefCollection(checkedCore());
}

Relation Database::CreateRelation(const QString& name, const QString& table,
                                  const QString& foreignTable, int attributes) const {
    return {name, table, foreignTable, attributes, {}};
}

RelationCollection Database::Relations() const {
    return RelationCollection(checkedCore());
}

void Database::NewPassword(const QString& oldPassword, const QString& newPassword) {
    const auto core = checkedCore();
    core->checkWritable();
    if (oldPassword != core->password)
        throw EngineError(WrongPassword, u"Not a valid password."_s);
    if (!core->recordsets().isEmpty() || core->connection.inTransaction() ||
        core->file->handles > 1)
        throw EngineError(InvalidOperation, u"The database is in use and can't be changed now."_s);
    const QString copy = unfinishedName(core->path);
    writeCopy(core->connection, copy, newPassword);
    // The copy is locked before it takes the file's name, so that no one slips in between.
    const auto copyFile = OpenFile::acquire(copy);
    core->forgetPrepared();
    core->connection.close();
    try {
        replaceFile(copy, core->path);
    } catch (const EngineError&) {
        removeDatabaseFile(copy);
        core->connection = Connection(core->path, Connection::Mode::Existing, core->password);
        throw;
    }
    --core->file->handles;
    core->file = copyFile;
    ++core->file->handles;
    core->password = newPassword;
    core->connection = Connection(core->path, Connection::Mode::Existing, newPassword);
    core->catalog.invalidate();
}

void Database::FlushWhenReplaced() {
    checkedCore()->connection.execute(u"PRAGMA synchronous = OFF"_s);
}

bool Database::IsInPlace() const {
    const auto core = checkedCore();
    return core->file->isAt(core->path);
}

bool Database::HasOtherNames() const {
    return checkedCore()->file->hasOtherNames();
}

void Database::MoveTo(const QString& path) {
    const auto core = checkedCore();
    core->checkWritable();
    if (core->connection.inTransaction() || core->file->handles > 1)
        throw EngineError(InvalidOperation, u"The database is in use and can't be changed now."_s);
    if (QFileInfo::exists(path))
        throw EngineError(FileExists, u"The file already exists."_s);
    const QString copy = unfinishedName(path);
    removeDatabaseFile(copy);
    try {
        {
            const ReadScope unchanged(core->connection);
            core->connection.firstInteger(
                u"SELECT count(*) FROM sqlite_master"_s); // takes the lock
            core->file->copyInto(copy);
        }
        const auto copyFile = OpenFile::acquire(copy);
        replaceFile(copy, path);
        core->moveTo(path, copyFile);
    } catch (...) {
        removeDatabaseFile(copy);
        throw;
    }
}

void Database::Close() {
    if (m_core)
        m_core->close();
}

Reading::Reading(const Database& database)
    : m_core(database.checkedCore()), m_scope(std::make_unique<ReadScope>(m_core->connection)) {}

Reading::~Reading() = default;

Transaction::Transaction(const Database& database) : m_core(database.checkedCore()) {
    m_core->checkWritable();
    m_core->connection.begin();
}

Transaction::~Transaction() {
    if (!m_open || !m_core->isOpen())
        return;
    try {
        m_core->rollback();
    } catch (const std::exception&) {
        // What could not be undone now is undone by the file's journal when it is next opened.
    }
}

void Transaction::commit() {
    m_core->commit();
    m_open = false;
}

} // namespace dao
