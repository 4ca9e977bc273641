#include "store/engine/salvage_copy.h"

#include "store/engine/error.h"
#include "store/engine/names.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

/// A stand-in may itself belong to a record that is not there, and so on; a few steps are all that
/// tables have.
constexpr int relationSteps = 10;

int numberingField(const TableStructure& table) {
    const auto found = std::find_if(table.fields.begin(), table.fields.end(),
                                    [](const Field& field) { return field.isAutoIncrement(); });
    return found == table.fields.end() ? -1 : static_cast<int>(found - table.fields.begin());
}

QString insertStatement(const TableStructure& table) {
    QStringList names;
    for (const Field& field : table.fields)
        names += quoteName(field.Name);
    if (numberingField(table) < 0)
        names += rowNumberName(table);
    return u"INSERT INTO %1 (%2) VALUES (?%3)"_s.arg(quoteName(table.name), names.join(u", "_s),
                                                     u", ?"_s.repeated(names.size() - 1));
}

/// A text as its field takes it.
Value fitted(const Field& field, const Value& value) {
    if (!value.isText())
        return value;
    const QString text = value.toText();
    if (text.isEmpty() && !field.AllowZeroLength)
        return {};
    const QList<uint> characters = text.toUcs4();
    if (field.Type != DataType::Text || characters.size() <= field.Size)
        return value;
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), field.Size);
}

/// Puts a record into the statement that inserts it. Answers whether all of it goes in.
bool bindRecord(Statement& insert, const TableStructure& table, const SalvagedRecord& record) {
    bool isWhole = record.lostValues == 0;
    const int fields = static_cast<int>(table.fields.size());
    for (int i = 0; i < fields; ++i) {
        const Field& field = table.fields[i];
        if (field.isAutoIncrement()) {
            insert.bind(i + 1, record.row);
            continue;
        }
        const Value found = record.values.value(i);
        const Value value = isTextual(field.Type) ? fitted(field, found) : found;
        isWhole = isWhole && value == found;
        insert.bind(i + 1, value);
    }
    if (numberingField(table) < 0)
        insert.bind(fields + 1, record.row);
    return isWhole;
}

bool isRefusal(int error) {
    return error == DuplicateKey || error == FieldRequired || error == TextTooLong;
}

} // namespace

SalvageCopy::SalvageCopy(Connection& connection) : m_connection(connection) {
    // Flushed once, when it is whole.
    for (const char* setting : {"PRAGMA synchronous = OFF", "PRAGMA foreign_keys = OFF"})
        m_connection.execute(QLatin1StringView(setting));
}

QString SalvageCopy::folded(const QString& table) {
    return dao::folded(table);
}

void SalvageCopy::createTable(const TableStructure& table, const QStringList& indexStatements) {
    m_connection.execute(createStatement(table));
    for (const QString& statement : indexStatements) {
        try {
            m_connection.execute(statement);
        } catch (const EngineError& error) {
            if (error.number() != SyntaxError)
                throw; // else it is of a field that the table has not
        }
    }
    m_order += folded(table.name);
    m_tables.insert(m_order.last(), Written{table, {.table = table.name}, {}});
}

void SalvageCopy::addRecords(const QString& table, SalvageScan& scan, const SalvagedTree& tree) {
    Written& to = written(table);
    Savepoint savepoint(m_connection);
    Statement insert(m_connection, insertStatement(to.structure));
    scan.visit(tree, [&](qint64, const std::optional<SalvagedRecord>& record) {
        if (!record || record->values.size() > to.structure.fields.size()) {
            ++to.report.lost;
            return;
        }
        try {
            const bool isWhole = bindRecord(insert, to.structure, *record);
            insert.step();
            ++to.report.saved;
            to.report.inPart += isWhole ? 0 : 1;
        } catch (const EngineError& error) {
            if (!isRefusal(error.number()))
                throw;
            ++to.report.lost;
        }
        insert.reset();
    });
    savepoint.commit();
}

void SalvageCopy::noteGaps(const QString& table, const QList<RowRange>& gaps) {
    written(table).gaps += gaps;
}

bool SalvageCopy::isWhole(const QString& table) const {
    const auto found = m_tables.find(folded(table));
    return found != m_tables.end() && found->gaps.isEmpty();
}

QSet<qint64> SalvageCopy::keys(const QString& table, const QString& field) {
    QSet<qint64> values;
    Statement statement(m_connection, u"SELECT DISTINCT %1 FROM %2 WHERE %1 IS NOT NULL"_s.arg(
                                          quoteName(field), quoteName(table)));
    while (statement.step())
        values.insert(statement.integer(0));
    return values;
}

QList<RepairedTable> SalvageCopy::finish(const QHash<QString, qint64>& lastNumbers) {
    for (const QString& name : std::as_const(m_order)) {
        Written& table = m_tables[name];
        countLost(table, lastNumbers.value(name));
        setLastNumber(table, lastNumbers.value(name));
    }
    dropEmptyRelations();
    for (int step = 0; step < relationSteps && mendRelations(); ++step) {
    }
    QList<RepairedTable> reports;
    for (const QString& name : std::as_const(m_order))
        reports += m_tables[name].report;
    return reports;
}

/// Counts the numbers that are missing in the gaps, as far as anything says where these end.
void SalvageCopy::countLost(Written& table, qint64 lastNumber) {
    const QString name = quoteName(table.structure.name);
    const QString row = rowNumberName(table.structure);
    const qint64 highest =
        std::max(lastNumber, m_connection.firstInteger(u"SELECT max(%1) FROM %2"_s.arg(row, name)));
    for (const RowRange& gap : std::as_const(table.gaps)) {
        const qint64 after = std::clamp(gap.after, qint64{0}, highest);
        const qint64 last = std::clamp(gap.last, after, highest);
        const qint64 saved =
            m_connection.firstInteger(u"SELECT count(*) FROM %1 WHERE %2 > %3 AND %2 <= %4"_s.arg(
                name, row, QString::number(after), QString::number(last)));
        table.report.lost += last - after - saved;
        table.report.mayLackMore |= gap.last == RowRange::Open && lastNumber == 0;
    }
}

void SalvageCopy::setLastNumber(const Written& table, qint64 lastNumber) {
    if (numberingField(table.structure) < 0 || lastNumber == 0)
        return;
    const QString name = writeText(table.structure.name);
    const qint64 given =
        m_connection.firstInteger(u"SELECT seq FROM sqlite_sequence WHERE name = "_s + name);
    m_connection.execute(u"DELETE FROM sqlite_sequence WHERE name = "_s + name);
    m_connection.execute(u"INSERT INTO sqlite_sequence (name, seq) VALUES (%1, %2)"_s.arg(
        name, QString::number(std::max(given, lastNumber))));
}

/// A relation to a table of which nothing is left, or that has lost the key, would cost all
/// records.
void SalvageCopy::dropEmptyRelations() {
    Catalog catalog(m_connection);
    for (const Relation& relation : catalog.relations()) {
        const auto parent = catalog.find(relation.Table);
        if (parent && hasKeyFor(*parent, relation))
            continue;
        catalog.dropRelation(relation);
        Written& table = written(relation.ForeignTable);
        table.structure = *catalog.find(relation.ForeignTable);
    }
}

/// Goes through the records that belong to one that is not there. True when there was any.
bool SalvageCopy::mendRelations() {
    struct Orphan {
        QString table;
        qint64 row;
        qint64 relation;
    };
    QList<Orphan> orphans;
    Statement check(m_connection, u"PRAGMA foreign_key_check"_s);
    while (check.step())
        orphans += Orphan{check.text(0), check.integer(1), check.integer(3)};
    for (const Orphan& orphan : std::as_const(orphans)) {
        Written& table = written(orphan.table);
        // SQLite counts the relations of a table from its last one.
        const qsizetype position = table.structure.relations.size() - 1 - orphan.relation;
        mendRelation(table, orphan.row, table.structure.relations.value(position));
    }
    return !orphans.isEmpty();
}

void SalvageCopy::mendRelation(Written& table, qint64 row, const Relation& relation) {
    const QString name = quoteName(table.structure.name);
    const QString place = rowNumberName(table.structure) + u" = "_s + QString::number(row);
    if (relation.Fields.size() == 1 && hasTable(relation.Table)) {
        const Relation::Pair& pair = relation.Fields.first();
        const qint64 key = m_connection.firstInteger(
            u"SELECT %1 FROM %2 WHERE %3"_s.arg(quoteName(pair.ForeignName), name, place));
        if (addStandIn(written(relation.Table), pair.Name, key))
            return;
    }
    m_connection.execute(u"DELETE FROM %1 WHERE %2"_s.arg(name, place));
    table.report.saved -= m_connection.changes();
    table.report.lost += m_connection.changes();
    table.report.unrelated += m_connection.changes();
}

/// A record with a "?" in its first text for one that was lost, so that those that belong to it are
/// kept. False where no record was lost there; true too where another stand-in is the one.
bool SalvageCopy::addStandIn(Written& parent, const QString& field, qint64 key) {
    const int position = parent.structure.fieldIndex(field);
    const bool isLost = std::any_of(parent.gaps.begin(), parent.gaps.end(),
                                    [key](const RowRange& gap) { return gap.contains(key); });
    if (position != numberingField(parent.structure) || !isLost)
        return false;
    SalvagedRecord record{.row = key};
    record.values.resize(parent.structure.fields.size());
    const auto text = std::find_if(parent.structure.fields.begin(), parent.structure.fields.end(),
                                   [](const Field& each) { return each.Type == DataType::Text; });
    if (text != parent.structure.fields.end())
        record.values[text - parent.structure.fields.begin()] =
            QString(u"? "_s + QString::number(key)).left(text->Size);
    try {
        Statement insert(m_connection, insertStatement(parent.structure));
        bindRecord(insert, parent.structure, record);
        insert.step();
        ++parent.report.standIns;
    } catch (const EngineError& error) {
        return error.number() == DuplicateKey;
    }
    return true;
}

} // namespace dao
