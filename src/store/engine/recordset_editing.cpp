// Changes through a recordset: records begun, filled, stored and deleted.

#include "store/engine/error.h"
#include "store/engine/field_values.h"
#include "store/engine/names.h"
#include "store/engine/recordset_core.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {

void RecordsetCore::requireDynaset() const {
    if (type == RecordsetType::Snapshot)
        throw EngineError(NotSupported, u"A snapshot can't be changed."_s);
    m_database->checkWritable();
}

void RecordsetCore::beginEditing(EditMode mode, QList<Value> values) {
    m_edited = std::move(values);
    m_changed.fill(false, query.columns.size());
    m_chunked.fill(false, query.columns.size());
    m_editMode = mode;
}

void RecordsetCore::addNew() {
    requireDynaset();
    if (query.sources.size() > 1)
        throw EngineError(InvalidOperation, u"A record can't be added through a join."_s);
    beginEditing(EditMode::Add, QList<Value>(query.columns.size()));
}

void RecordsetCore::edit() {
    requireDynaset();
    requireCurrent();
    m_editMode = EditMode::None;
    if (!holdsWhatIsInFile()) {
        m_aheadStart = -1;
        m_row = readRow(m_keys->entries.at(m_entry).keys);
    }
    m_rowLoaded = false;
    if (m_row.isEmpty())
        throw EngineError(RecordDeleted, u"The record has been deleted."_s);
    beginEditing(EditMode::InProgress, m_row);
}

/// Outside a transaction another program may have changed the record since it was read.
bool RecordsetCore::holdsWhatIsInFile() const {
    return m_rowLoaded && m_aheadStart >= 0 && m_aheadIsHeld &&
           m_aheadChanges == m_database->file->changes && m_database->connection.inTransaction();
}

void RecordsetCore::cancelUpdate() {
    m_editMode = EditMode::None;
}

void RecordsetCore::setValue(int column, const Value& value) {
    if (m_editMode == EditMode::None)
        throw EngineError(EditNotBegun, u"A record can be changed after Edit or AddNew only."_s);
    const sql::Column& target = query.columns.at(column);
    if (target.source < 0)
        throw EngineError(InvalidOperation, u"'%1' can't be changed."_s.arg(target.name));
    const Value fitted = fittedValue(target.field, value);
    if (target.field.isAutoIncrement() && m_editMode == EditMode::InProgress) {
        if (fitted == m_edited.at(column))
            return;
        throw EngineError(InvalidOperation,
                          u"'%1' numbers the records by itself."_s.arg(target.name));
    }
    m_edited[column] = fitted;
    m_changed[column] = true;
}

void RecordsetCore::appendChunk(int column, const QByteArray& bytes) {
    if (m_editMode == EditMode::None)
        throw EngineError(EditNotBegun, u"A record can be changed after Edit or AddNew only."_s);
    const bool continues = m_chunked.at(column);
    const Value& present = m_edited.at(column);
    if (isTextual(query.columns.at(column).field.Type))
        setValue(column, (continues ? present.toText() : QString()) + QString::fromUtf8(bytes));
    else
        setValue(column, (continues ? present.toBinary() : QByteArray()) + bytes);
    m_chunked[column] = true;
}

void RecordsetCore::update() {
    if (m_editMode == EditMode::None)
        throw EngineError(EditNotBegun, u"Update needs a record begun by Edit or AddNew."_s);
    checkRequired();
    if (m_editMode == EditMode::Add) {
        insertRecord();
        m_rowLoaded = false;
    } else {
        updateRecord();
        m_rowLoaded = holdsWhatWasWritten();
    }
    m_editMode = EditMode::None;
}

void RecordsetCore::checkRequired() const {
    for (int i = 0; i < query.columns.size(); ++i) {
        const Field& field = query.columns.at(i).field;
        if (field.Required && !field.isAutoIncrement() && m_edited.at(i).isNull())
            throw EngineError(FieldRequired,
                              u"The field '%1' must have a value."_s.arg(field.Name));
    }
}

RecordsetCore::WriteShape RecordsetCore::shapeOfInsert() const {
    WriteShape shape{m_changed, {}, {}};
    QStringList names;
    QStringList parameters;
    for (int i = 0; i < query.columns.size(); ++i) {
        const QString name = quoteName(query.columns.at(i).field.Name);
        if (!m_changed.at(i) || names.contains(name))
            continue;
        names += name;
        parameters += u"?"_s;
        shape.columns += i;
    }
    const QString table = quoteName(query.sources.first().table->name);
    shape.sql = names.isEmpty() ? u"INSERT INTO %1 DEFAULT VALUES"_s.arg(table)
                                : u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(
                                      table, names.join(u", "_s), parameters.join(u", "_s));
    return shape;
}

/// The statement of a shape, with the values of the record; what else it takes stands behind them.
Statement& RecordsetCore::bound(const WriteShape& shape) {
    Statement& statement = m_database->prepared(shape.sql);
    int position = 0;
    for (const int column : shape.columns)
        statement.bind(++position, m_edited.at(column));
    return statement;
}

void RecordsetCore::insertRecord() {
    if (m_insertShape.changed != m_changed)
        m_insertShape = shapeOfInsert();
    Statement& statement = bound(m_insertShape);
    statement.step();
    statement.reset();
    noteChange();

    KeySet::Entry entry;
    entry.keys = {m_database->connection.lastInsertedRow()};
    lastModified = static_cast<int>(m_keys->entries.size());
    if (lastModified > 0 && entry.keys < m_keys->entries.last().keys)
        m_keys->inRowOrder = false;
    if (m_keys->places)
        m_keys->places->insert(entry.keys, lastModified);
    m_keys->entries += std::move(entry);
    ++m_keys->live;
}

void RecordsetCore::updateRecord() {
    std::optional<Savepoint> savepoint;
    if (query.sources.size() > 1) // one statement is whole by itself
        savepoint.emplace(m_database->connection);
    m_updateShapes.resize(query.sources.size());
    for (int source = 0; source < query.sources.size(); ++source)
        updateSource(source);
    if (savepoint)
        savepoint->commit();
    noteChange();
    lastModified = m_entry;
}

/// Takes the record just written for the one in the file, where that holds the very same values. To
/// read a wide record again for each field of it would double the work.
bool RecordsetCore::holdsWhatWasWritten() {
    const QList<sql::Column>& columns = query.columns;
    const auto isReckoned = [](const sql::Column& column) { return column.source < 0; };
    if (query.sources.size() > 1 || std::any_of(columns.begin(), columns.end(), isReckoned))
        return false;
    for (qsizetype i = 0; i < columns.size(); ++i) {
        const Field& field = columns.at(i).field;
        const auto isSame = [&](const sql::Column& other) {
            return other.field.Name == field.Name;
        };
        const bool mayBecomeNumber = field.Type == DataType::Date || field.Type == DataType::Guid;
        if (m_changed.at(i) &&
            (mayBecomeNumber || std::count_if(columns.begin(), columns.end(), isSame) > 1))
            return false;
    }
    m_row = std::move(m_edited);
    return true;
}

RecordsetCore::WriteShape RecordsetCore::shapeOfUpdate(int source) const {
    WriteShape shape{m_changed, {}, {}};
    QStringList assignments;
    for (int i = 0; i < query.columns.size(); ++i) {
        if (!m_changed.at(i) || query.columns.at(i).source != source)
            continue;
        shape.columns += i;
        assignments += quoteName(query.columns.at(i).field.Name) + u" = ?"_s;
    }
    const TableStructure& table = *query.sources.at(source).table;
    shape.sql = u"UPDATE %1 SET %2 WHERE %3 = ?"_s.arg(
        quoteName(table.name), assignments.join(u", "_s), rowNumberName(table));
    return shape;
}

void RecordsetCore::updateSource(int source) {
    WriteShape& shape = m_updateShapes[source];
    if (shape.changed != m_changed)
        shape = shapeOfUpdate(source);
    if (shape.columns.isEmpty())
        return;
    Statement& statement = bound(shape);
    statement.bind(static_cast<int>(shape.columns.size()) + 1,
                   m_keys->entries.at(m_entry).keys.at(source));
    statement.step();
    statement.reset();
    if (m_database->connection.changes() == 0)
        throw EngineError(RecordDeleted, u"The record has been deleted."_s);
}

void RecordsetCore::deleteRecord() {
    requireDynaset();
    requireCurrent();
    KeySet::Entry& entry = m_keys->entries[m_entry];
    const TableStructure& table = *query.sources.last().table;
    Statement& statement = m_database->prepared(
        u"DELETE FROM %1 WHERE %2 = ?"_s.arg(quoteName(table.name), rowNumberName(table)));
    statement.bind(1, entry.keys.last());
    statement.step();
    statement.reset();
    noteChange();
    entry.deleted = true;
    --m_keys->live;
    m_editMode = EditMode::None;
    m_currentDeleted = true;
    m_rowLoaded = false;
}

} // namespace dao
