#include "store/engine/recordset_core.h"

#include "store/engine/error.h"
#include "store/engine/field_values.h"
#include "store/engine/names.h"

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

constexpr int behindLast = std::numeric_limits<int>::max();
/// So many records at most are read ahead of a walk.
constexpr int mostReadAhead = 256;
/// Nor more than these many characters of memos: to have a whole year's in memory costs more than
/// it saves, to have few the locks of the file each time.
constexpr qsizetype mostMemosAhead = qsizetype{1} << 17;

sql::FieldSql fieldSql(const sql::Column& column, int parameter) {
    return {parameter > 0 ? u"?%1"_s.arg(parameter) : column.sql, column.field.Type};
}

QString keyList(const QList<sql::Source>& sources) {
    QStringList keys;
    for (const sql::Source& source : sources)
        keys += sql::rowNumber(source);
    return keys.join(u", "_s);
}

QList<qint64> readKeys(const Statement& statement, qsizetype count) {
    QList<qint64> keys(count);
    for (qsizetype i = 0; i < count; ++i)
        keys[i] = statement.integer(static_cast<int>(i));
    return keys;
}

/// The characters of a row's memos; an empty row is one that has been deleted.
qsizetype memoLength(const sql::Query& query, const QList<Value>& row) {
    qsizetype length = 0;
    for (qsizetype i = 0; i < row.size(); ++i) {
        if (query.columns.at(i).field.Type == DataType::Memo)
            length += row.at(i).toText().size();
    }
    return length;
}

} // namespace

RecordsetCore::RecordsetCore(std::shared_ptr<DatabaseCore> database, QString name,
                             RecordsetType type, sql::Query query)
    : name(std::move(name))
    , type(type)
    , query(std::move(query))
    , m_database(std::move(database))
    , m_keys(std::make_shared<KeySet>()) {
    fetchKeys(this->query.orderBy);
    useTables(1);
    moveToStart();
}

RecordsetCore::RecordsetCore(const RecordsetCore& original, const QString& order)
    : name(original.name)
    , type(original.type)
    , query(original.query)
    , m_database(original.m_database)
    , m_keys(std::make_shared<KeySet>()) {
    fetchKeys(order.isEmpty() ? query.orderBy
                              : sql::translateOrder(order, [&original](const QString& qualifier,
                                                                       const QString& fieldName,
                                                                       sql::FieldSql& out) {
                                    return original.resolve(qualifier, fieldName, out, false);
                                }));
    useTables(1);
    moveToStart();
}

RecordsetCore::RecordsetCore(const RecordsetCore& original)
    : name(original.name)
    , type(original.type)
    , query(original.query)
    , sort(original.sort)
    , m_database(original.m_database)
    , m_keys(original.m_keys) {
    useTables(1);
}

RecordsetCore::~RecordsetCore() {
    close();
}

void RecordsetCore::close() {
    if (!std::exchange(m_open, false))
        return;
    releaseReaders();
    useTables(-1);
}

void RecordsetCore::releaseReaders() {
    m_reader.reset();
    m_rangeReader.reset();
}

void RecordsetCore::useTables(int change) {
    if (!m_database->file)
        return;
    for (const sql::Source& source : query.sources)
        m_database->file->tablesInUse[folded(source.table->name)] += change;
}

void RecordsetCore::moveToStart() {
    m_entry = m_keys->entries.isEmpty() ? -1 : 0;
}

QString RecordsetCore::selectRows(const QString& columns, const QString& order) const {
    QString text = u"SELECT %1 FROM %2"_s.arg(columns, query.from);
    if (!query.where.isEmpty())
        text += u" WHERE "_s + query.where;
    return text + u" ORDER BY "_s + (order.isEmpty() ? QString() : order + u',') +
           keyList(query.sources);
}

void RecordsetCore::fetchKeys(const QString& order) {
    const qsizetype sources = query.sources.size();
    QStringList columns{keyList(query.sources)};
    if (type == RecordsetType::Snapshot) {
        for (const sql::Column& column : query.columns)
            columns += column.sql;
    }
    Statement statement(m_database->connection, selectRows(columns.join(u", "_s), order));
    while (statement.step()) {
        KeySet::Entry entry;
        entry.keys = readKeys(statement, sources);
        entry.values.reserve(columns.size() - 1);
        for (qsizetype i = 0; i < columns.size() - 1; ++i)
            entry.values +=
                statement.column(static_cast<int>(sources + i), query.columns.at(i).field.Type);
        m_keys->entries += std::move(entry);
    }
    m_keys->live = static_cast<int>(m_keys->entries.size());
    m_keys->inRowOrder =
        std::is_sorted(m_keys->entries.cbegin(), m_keys->entries.cend(),
                       [](const auto& a, const auto& b) { return a.keys < b.keys; });
}

bool RecordsetCore::atStart() const {
    return m_keys->live == 0 || m_entry < 0;
}

bool RecordsetCore::atEnd() const {
    return m_keys->live == 0 || m_entry == behindLast;
}

int RecordsetCore::absolutePosition() const {
    if (m_entry < 0 || m_entry == behindLast || m_currentDeleted)
        return -1;
    const auto start = m_keys->entries.cbegin();
    return static_cast<int>(std::count_if(
        start, start + m_entry, [](const KeySet::Entry& entry) { return !entry.deleted; }));
}

void RecordsetCore::setAbsolutePosition(int position) {
    int entry = nextLive(-1, 1);
    for (int i = 0; i < position && entry != behindLast; ++i)
        entry = nextLive(entry, 1);
    if (position < 0 || entry == behindLast)
        throw EngineError(InvalidArgument, u"There is no record at that position."_s);
    goTo(entry);
}

int RecordsetCore::bookmark() const {
    requireCurrent();
    return m_entry;
}

void RecordsetCore::setBookmark(int entry) {
    if (entry < 0 || entry >= m_keys->entries.size())
        throw EngineError(InvalidArgument, u"This is no bookmark of the records."_s);
    if (m_keys->entries.at(entry).deleted)
        throw EngineError(RecordDeleted, u"The record has been deleted."_s);
    goTo(entry);
}

void RecordsetCore::goTo(int entry) {
    m_editMode = EditMode::None;
    m_entry = entry;
    m_currentDeleted = false;
    m_rowLoaded = false;
}

int RecordsetCore::nextLive(int entry, int step) const {
    const int size = static_cast<int>(m_keys->entries.size());
    int next = entry == behindLast ? size : entry;
    do {
        next += step;
    } while (next >= 0 && next < size && m_keys->entries.at(next).deleted);
    return next >= size ? behindLast : std::max(next, -1);
}

void RecordsetCore::moveFirst() {
    if (m_keys->live == 0)
        throw EngineError(NoCurrentRecord, u"No current record."_s);
    goTo(nextLive(-1, 1));
}

void RecordsetCore::moveLast() {
    if (m_keys->live == 0)
        throw EngineError(NoCurrentRecord, u"No current record."_s);
    goTo(nextLive(behindLast, -1));
}

void RecordsetCore::moveNext() {
    if (m_entry == behindLast || (m_keys->live == 0 && !m_currentDeleted))
        throw EngineError(NoCurrentRecord, u"No current record."_s);
    goTo(nextLive(m_entry, 1));
}

void RecordsetCore::movePrevious() {
    if (m_entry < 0 || (m_keys->live == 0 && !m_currentDeleted))
        throw EngineError(NoCurrentRecord, u"No current record."_s);
    goTo(nextLive(m_entry, -1));
}

void RecordsetCore::requireCurrent() const {
    if (m_currentDeleted)
        throw EngineError(RecordDeleted, u"The record has been deleted."_s);
    if (m_entry < 0 || m_entry == behindLast)
        throw EngineError(NoCurrentRecord, u"No current record."_s);
    if (m_keys->entries.at(m_entry).deleted)
        throw EngineError(RecordDeleted, u"The record has been deleted."_s);
}

int RecordsetCore::columnIndex(QStringView columnName) const {
    for (int i = 0; i < query.columns.size(); ++i) {
        if (sameName(query.columns.at(i).name, columnName))
            return i;
    }
    return -1;
}

Value RecordsetCore::value(int column) {
    if (m_editMode != EditMode::None)
        return m_edited.at(column);
    return row().at(column);
}

const QList<Value>& RecordsetCore::row() {
    requireCurrent();
    const KeySet::Entry& entry = m_keys->entries.at(m_entry);
    if (type == RecordsetType::Snapshot)
        return entry.values;
    if (!m_rowLoaded) {
        readAhead(m_entry);
        m_rowLoaded = true;
    }
    return m_row;
}

void RecordsetCore::readAhead(int entry) {
    const auto read = static_cast<int>(m_ahead.size());
    const bool isFresh = m_aheadStart >= 0 && m_aheadChanges == m_database->file->changes;
    if (!isFresh || entry < m_aheadStart || entry >= m_aheadStart + read) {
        const bool walks = isFresh && entry == m_aheadStart + read;
        const int count = walks ? mostReadAhead : 1;
        const int end = std::min(entry + count, static_cast<int>(m_keys->entries.size()));
        m_ahead.clear();
        m_aheadStart = entry;
        m_aheadChanges = m_database->file->changes;
        m_aheadIsHeld = m_database->connection.inTransaction();
        readRows(entry, end);
    }
    m_row = m_ahead.at(entry - m_aheadStart);
    if (m_row.isEmpty())
        throw EngineError(RecordDeleted, u"The record has been deleted."_s);
}

void RecordsetCore::noteChange() {
    ++m_database->file->changes;
}

void RecordsetCore::resync() {
    m_rowLoaded = false;
    m_aheadStart = -1;
    if (type == RecordsetType::Snapshot)
        return;
    m_keys->live = 0;
    for (KeySet::Entry& entry : m_keys->entries) {
        entry.deleted = readRow(entry.keys).isEmpty();
        m_keys->live += !entry.deleted;
    }
    m_currentDeleted = m_currentDeleted && m_keys->entries.at(m_entry).deleted;
}

std::unique_ptr<Statement> RecordsetCore::prepareReader(const QString& condition) const {
    QStringList columns;
    for (const sql::Column& column : query.columns)
        columns += column.sql;
    QStringList tables;
    for (const sql::Source& source : query.sources)
        tables += u"%1 AS %2"_s.arg(quoteName(source.table->name), source.sqlAlias);
    return std::make_unique<Statement>(
        m_database->connection,
        u"SELECT %1, %2 FROM %3 WHERE %4 ORDER BY %2"_s.arg(
            columns.join(u", "_s), keyList(query.sources), tables.join(u", "_s), condition));
}

void RecordsetCore::readRows(int first, int end) {
    const bool isOne = end - first == 1;
    if (!isOne && m_keys->inRowOrder && query.where.isEmpty() && query.sources.size() == 1)
        return readRange(first, end);
    std::optional<ReadScope> scope;
    if (!isOne)
        scope.emplace(m_database->connection);
    qsizetype memos = 0;
    for (int i = first; i < end && memos < mostMemosAhead; ++i) {
        m_ahead += readRow(m_keys->entries.at(i).keys);
        memos += memoLength(query, m_ahead.last());
    }
}

void RecordsetCore::readRange(int first, int end) {
    if (!m_rangeReader)
        m_rangeReader =
            prepareReader(u"%1 BETWEEN ?1 AND ?2"_s.arg(sql::rowNumber(query.sources.first())));
    const auto keyOf = [this](int entry) { return m_keys->entries.at(entry).keys.first(); };
    const int keyColumn = static_cast<int>(query.columns.size());
    m_rangeReader->bind(1, keyOf(first));
    m_rangeReader->bind(2, keyOf(end - 1));
    m_ahead.reserve(end - first);
    bool found = m_rangeReader->step();
    qsizetype memos = 0;
    for (int i = first; i < end && memos < mostMemosAhead; ++i) {
        while (found && m_rangeReader->integer(keyColumn) < keyOf(i)) // added since
            found = m_rangeReader->step();
        const bool isThere = found && m_rangeReader->integer(keyColumn) == keyOf(i);
        m_ahead += isThere ? readValues(*m_rangeReader) : QList<Value>();
        memos += memoLength(query, m_ahead.last());
    }
    m_rangeReader->reset();
}

QList<Value> RecordsetCore::readRow(const QList<qint64>& keys) {
    if (!m_reader) {
        QStringList conditions;
        for (qsizetype i = 0; i < query.sources.size(); ++i)
            conditions += u"%1 = ?%2"_s.arg(sql::rowNumber(query.sources.at(i))).arg(i + 1);
        m_reader = prepareReader(conditions.join(u" AND "_s));
    }
    for (qsizetype i = 0; i < keys.size(); ++i)
        m_reader->bind(static_cast<int>(i) + 1, keys.at(i));
    QList<Value> values = m_reader->step() ? readValues(*m_reader) : QList<Value>();
    m_reader->reset();
    return values;
}

QList<Value> RecordsetCore::readValues(const Statement& row) const {
    QList<Value> values(query.columns.size());
    Value* value = values.data();
    for (int i = 0; i < query.columns.size(); ++i)
        value[i] = row.column(i, query.columns.at(i).field.Type);
    return values;
}

bool RecordsetCore::resolve(const QString& qualifier, const QString& fieldName, sql::FieldSql& out,
                            bool asParameter) const {
    for (int i = 0; i < query.columns.size(); ++i) {
        const sql::Column& column = query.columns.at(i);
        const bool matches = qualifier.isEmpty()
                                 ? sameName(column.name, fieldName)
                                 : column.source >= 0 && sameName(column.field.Name, fieldName) &&
                                       sameName(query.sources.at(column.source).alias, qualifier);
        if (matches) {
            out = fieldSql(column, asParameter ? i + 1 : 0);
            return true;
        }
    }
    return false;
}

void RecordsetCore::findFirst(const QString& criteria) {
    m_editMode = EditMode::None;
    const int entry =
        type == RecordsetType::Snapshot ? findInSnapshot(criteria) : findInDynaset(criteria);
    noMatch = entry < 0;
    if (!noMatch)
        goTo(entry);
}

int RecordsetCore::findInDynaset(const QString& criteria) {
    const QString condition = sql::translateCondition(
        criteria, [this](const QString& qualifier, const QString& fieldName, sql::FieldSql& out) {
            return resolve(qualifier, fieldName, out, false);
        });
    const QString keys = keyList(query.sources);
    Statement statement(m_database->connection, u"SELECT %1 FROM %2 WHERE %3 ORDER BY %1"_s.arg(
                                                    keys, query.from, condition));
    int first = -1;
    while (statement.step()) {
        const int place = placeOf(readKeys(statement, query.sources.size()));
        if (place < 0 || m_keys->entries.at(place).deleted)
            continue;
        if (first < 0 || place < first)
            first = place;
        if (m_keys->inRowOrder)
            break;
    }
    return first;
}

int RecordsetCore::findInSnapshot(const QString& criteria) {
    const QString condition = sql::translateCondition(
        criteria, [this](const QString& qualifier, const QString& fieldName, sql::FieldSql& out) {
            return resolve(qualifier, fieldName, out, true);
        });
    QStringList parameters;
    for (int i = 1; i <= query.columns.size(); ++i)
        parameters += u"?%1"_s.arg(i);
    // Naming every parameter keeps their numbers whole when the condition uses a few only.
    Statement statement(m_database->connection, u"SELECT (%1) IS NOT NULL AND (%1), %2"_s.arg(
                                                    condition, parameters.join(u", "_s)));
    for (int i = 0; i < m_keys->entries.size(); ++i) {
        const KeySet::Entry& entry = m_keys->entries.at(i);
        for (int column = 0; column < entry.values.size(); ++column)
            statement.bind(column + 1, entry.values.at(column));
        const bool matches = statement.step() && statement.integer(0) != 0;
        statement.reset();
        if (matches && !entry.deleted)
            return i;
    }
    return -1;
}

int RecordsetCore::placeOf(const QList<qint64>& keys) {
    if (!m_keys->places) {
        m_keys->places.emplace();
        for (int i = 0; i < m_keys->entries.size(); ++i)
            m_keys->places->insert(m_keys->entries.at(i).keys, i);
    }
    return m_keys->places->value(keys, -1);
}

} // namespace dao
