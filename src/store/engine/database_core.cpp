#include "store/engine/database_core.h"

#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/engine/recordset_core.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

/// So many prepared statements are kept; a bulk edit needs one or two.
constexpr qsizetype keptStatements = 64;

} // namespace

DatabaseCore::DatabaseCore(QString path, QString password, bool readOnly,
                           std::shared_ptr<OpenFile> file)
    : path(std::move(path))
    , password(std::move(password))
    , readOnly(readOnly)
    , file(std::move(file)) {
    ++this->file->handles;
}

DatabaseCore::~DatabaseCore() {
    close();
}

void DatabaseCore::close() {
    if (!file)
        return;
    for (const auto& recordset : recordsets())
        recordset->close();
    m_recordsets.clear();
    m_prepared.clear();
    connection.close();
    --file->handles;
    file.reset();
}

void DatabaseCore::moveTo(const QString& newPath, const std::shared_ptr<OpenFile>& newFile) {
    Connection moved(newPath, Connection::Mode::Existing, password);
    for (const auto& recordset : recordsets())
        recordset->releaseReaders();
    m_prepared.clear();
    connection = std::move(moved);
    newFile->tablesInUse = file->tablesInUse;
    newFile->changes = file->changes;
    newFile->handles = std::exchange(file->handles, 0);
    file = newFile;
    path = newPath;
    catalog.invalidate();
}

std::shared_ptr<const TableStructure> DatabaseCore::table(QStringView name, int missing) {
    auto structure = catalog.find(name);
    if (!structure)
        throw EngineError(missing, u"There is no table '%1'."_s.arg(name));
    return structure;
}

void DatabaseCore::checkUnused(QStringView table) {
    checkWritable();
    if (file->tablesInUse.value(folded(table)) > 0)
        throw EngineError(TableInUse,
                          u"The table '%1' is in use and can't be changed now."_s.arg(table));
    m_prepared.clear();
}

void DatabaseCore::checkWritable() const {
    if (readOnly)
        throw EngineError(ReadOnlyDatabase, u"The database can only be read."_s);
    connection.checkTransaction();
}

Statement& DatabaseCore::prepared(const QString& sql) {
    connection.checkTransaction();
    if (m_prepared.size() >= keptStatements && !m_prepared.contains(sql))
        m_prepared.clear();
    std::shared_ptr<Statement>& statement = m_prepared[sql];
    if (!statement)
        statement = std::make_shared<Statement>(connection, sql);
    return *statement;
}

void DatabaseCore::addRecordset(const std::shared_ptr<RecordsetCore>& recordset) {
    m_recordsets.removeIf([](const auto& entry) { return entry.expired(); });
    m_recordsets += recordset;
}

QList<std::shared_ptr<RecordsetCore>> DatabaseCore::recordsets() {
    QList<std::shared_ptr<RecordsetCore>> open;
    for (const auto& entry : std::as_const(m_recordsets)) {
        auto recordset = entry.lock();
        if (recordset && recordset->isOpen())
            open += std::move(recordset);
    }
    return open;
}

void DatabaseCore::commit() {
    connection.commit();
    ++file->changes;
}

void DatabaseCore::rollback() {
    m_prepared.clear();
    connection.rollback();
    ++file->changes;
    catalog.invalidate();
    for (const auto& recordset : recordsets())
        recordset->resync();
}

} // namespace dao
