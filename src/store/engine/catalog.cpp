#include "store/engine/catalog.h"

#include "store/engine/error.h"
#include "store/engine/names.h"

#include <algorithm>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

/// The name of a table while it is built again; no table of a person can have it.
constexpr QStringView rebuiltName = u"orva.rebuilt";

/// Whether the statement of a table names another as the one that it refers to. Most don't, and
/// need not be taken apart to tell.
bool mayRelateTo(const QString& statement, QStringView table) {
    const QString name = quoteName(table);
    return statement.contains(u"REFERENCES", Qt::CaseInsensitive) &&
           statement.contains(QStringView(name).sliced(1, name.size() - 2), Qt::CaseInsensitive);
}

bool numbersItself(const TableStructure& table) {
    return std::any_of(table.fields.begin(), table.fields.end(),
                       [](const Field& field) { return field.isAutoIncrement(); });
}

void renumber(TableStructure& table) {
    for (int i = 0; i < table.fields.size(); ++i)
        table.fields[i].OrdinalPosition = i;
}

/// What SQLite adds to a table by itself.
bool canBeAddedLast(const Field& field) {
    return !field.Required && !field.isAutoIncrement();
}

} // namespace

void Catalog::refresh() {
    const qint64 version = versionInFile();
    if (version == m_version)
        return;
    QHash<QString, std::shared_ptr<TableStructure>> known;
    for (const Entry& entry : std::as_const(m_entries))
        known.insert(entry.statement, entry.structure);
    m_entries.clear();
    m_positions.clear();
    m_relationNames.reset();
    Statement statement(m_connection,
                        u"SELECT name, sql FROM sqlite_master WHERE type = 'table' AND "
                        "name NOT LIKE 'sqlite\\_%' ESCAPE '\\' AND sql LIKE 'CREATE TABLE%' "
                        "ORDER BY rowid"_s);
    while (statement.step()) {
        const QString sql = statement.text(1);
        m_positions.insert(folded(statement.text(0)), m_entries.size());
        m_entries += Entry{statement.text(0), sql, known.value(sql)};
    }
    m_version = version;
}

const TableStructure& Catalog::structureOf(Entry& entry) {
    if (!entry.structure) {
        entry.structure = std::make_shared<TableStructure>(readCreateStatement(entry.statement));
        entry.structure->name = entry.name;
        for (Relation& relation : entry.structure->relations)
            relation.ForeignTable = entry.name;
        readIndexes(*entry.structure);
    }
    return *entry.structure;
}

void Catalog::readIndexes(TableStructure& table) {
    Statement list(m_connection, u"PRAGMA index_list(%1)"_s.arg(quoteName(table.name)));
    while (list.step()) {
        const QString stored = list.text(1);
        const QString prefix = table.name + u'.';
        if (!stored.startsWith(prefix))
            continue;
        Index index{stored.mid(prefix.size()), false, list.integer(2) != 0, {}};
        Statement info(m_connection, u"PRAGMA index_info(%1)"_s.arg(quoteName(stored)));
        while (info.step())
            index.Fields += info.text(2);
        table.indexes += index;
    }
}

QStringList Catalog::tableNames() {
    refresh();
    QStringList names;
    for (const Entry& entry : std::as_const(m_entries))
        names += entry.name;
    return names;
}

std::shared_ptr<const TableStructure> Catalog::find(QStringView name) {
    refresh();
    const qsizetype position = m_positions.value(folded(name), -1);
    if (position < 0)
        return nullptr;
    structureOf(m_entries[position]);
    return m_entries.at(position).structure;
}

QList<Relation> Catalog::relations() {
    refresh();
    QList<Relation> all;
    for (Entry& entry : m_entries) {
        if (entry.statement.contains(u"REFERENCES", Qt::CaseInsensitive))
            all += structureOf(entry).relations;
    }
    return all;
}

QList<Relation> Catalog::relationsOn(QStringView table) {
    refresh();
    QList<Relation> found;
    for (Entry& entry : m_entries) {
        if (!mayRelateTo(entry.statement, table))
            continue;
        for (const Relation& relation : structureOf(entry).relations) {
            if (sameName(relation.Table, table) && !sameName(relation.ForeignTable, table))
                found += relation;
        }
    }
    return found;
}

bool Catalog::hasRelation(QStringView name) {
    refresh();
    if (!m_relationNames) {
        m_relationNames.emplace();
        for (const Relation& relation : relations())
            m_relationNames->insert(folded(relation.Name));
    }
    return m_relationNames->contains(folded(name));
}

void Catalog::createTable(const TableStructure& table) {
    refresh();
    Savepoint savepoint(m_connection);
    const QString statement = createStatement(table);
    m_connection.execute(statement);
    createIndexes(table);
    savepoint.commit();
    noteTable(table, statement);
}

/// Takes a table just made to what is known, which otherwise is as the file has it: a year is made
/// of fifty tables, and each would have all before it read again.
void Catalog::noteTable(const TableStructure& table, const QString& statement) {
    m_positions.insert(folded(table.name), m_entries.size());
    m_entries += Entry{table.name, statement, nullptr};
    for (const Relation& relation : table.relations) {
        if (m_relationNames)
            m_relationNames->insert(folded(relation.Name));
    }
    m_version = versionInFile();
}

qint64 Catalog::versionInFile() {
    return m_connection.firstInteger(u"PRAGMA schema_version"_s);
}

void Catalog::createIndexes(const TableStructure& table) {
    for (const Index& index : table.indexes) {
        if (index.Primary)
            continue;
        m_connection.execute(createIndexStatement(table, index));
    }
}

void Catalog::dropTable(const QString& table) {
    refresh();
    m_connection.execute(u"DROP TABLE "_s + quoteName(table));
    forgetTable(table);
}

/// Takes a table just dropped from what is known, as noteTable adds one.
void Catalog::forgetTable(const QString& table) {
    m_entries.remove(m_positions.value(folded(table)));
    m_positions.clear();
    for (qsizetype i = 0; i < m_entries.size(); ++i)
        m_positions.insert(folded(m_entries.at(i).name), i);
    m_relationNames.reset();
    m_version = versionInFile();
}

Catalog::FieldOrigins Catalog::unchanged(const TableStructure& table) const {
    FieldOrigins origins(table.fields.size());
    std::iota(origins.begin(), origins.end(), 0);
    return origins;
}

void Catalog::addField(const QString& table, const Field& field) {
    const auto old = find(table);
    const int last = static_cast<int>(old->fields.size());
    const int position = field.OrdinalPosition < 0 ? last : std::min(field.OrdinalPosition, last);
    if (position == last && canBeAddedLast(field)) {
        m_connection.execute(
            u"ALTER TABLE %1 ADD COLUMN %2"_s.arg(quoteName(table), fieldDefinition(field)));
        return invalidate();
    }
    TableStructure changed = *old;
    changed.fields.insert(position, field);
    FieldOrigins origins = unchanged(*old);
    origins.insert(position, -1);
    rebuild(*old, std::move(changed), origins);
}

void Catalog::dropField(const QString& table, int field) {
    const auto old = find(table);
    TableStructure changed = *old;
    FieldOrigins origins = unchanged(*old);
    changed.fields.removeAt(field);
    origins.removeAt(field);
    rebuild(*old, std::move(changed), origins);
}

void Catalog::renameField(const QString& table, int field, const QString& newName) {
    const auto old = find(table);
    const QString oldName = old->fields.at(field).Name;
    TableStructure changed = *old;
    changed.fields[field].Name = newName;
    for (Index& index : changed.indexes) {
        for (QString& name : index.Fields)
            name = sameName(name, oldName) ? newName : name;
    }
    for (Relation& relation : changed.relations) {
        for (Relation::Pair& pair : relation.Fields)
            pair.ForeignName = sameName(pair.ForeignName, oldName) ? newName : pair.ForeignName;
    }
    rebuild(*old, std::move(changed), unchanged(*old));
}

void Catalog::moveField(const QString& table, int field, int position) {
    const auto old = find(table);
    TableStructure changed = *old;
    FieldOrigins origins = unchanged(*old);
    const int target = std::clamp(position, 0, static_cast<int>(old->fields.size()) - 1);
    if (target == field)
        return;
    changed.fields.move(field, target);
    origins.move(field, target);
    rebuild(*old, std::move(changed), origins);
}

void Catalog::setFields(const QString& table, const QList<Field>& fields) {
    const auto old = find(table);
    QHash<QString, int> places;
    for (int place = 0; place < old->fields.size(); ++place)
        places.insert(folded(old->fields.at(place).Name), place);
    TableStructure changed = *old;
    changed.fields = fields;
    FieldOrigins origins;
    for (const Field& field : fields)
        origins += places.value(folded(field.Name), -1);
    rebuild(*old, std::move(changed), origins);
}

void Catalog::addIndex(const QString& table, const Index& index) {
    const auto old = find(table);
    TableStructure changed = *old;
    changed.indexes += index;
    if (index.Primary) {
        for (const QString& name : index.Fields)
            changed.fields[changed.fieldIndex(name)].Required = true;
        return rebuild(*old, std::move(changed), unchanged(*old));
    }
    TableStructure added = *old;
    added.indexes = {index};
    createIndexes(added);
    invalidate();
}

void Catalog::addRelation(const Relation& relation) {
    const auto old = find(relation.ForeignTable);
    TableStructure changed = *old;
    changed.relations += relation;
    rebuild(*old, std::move(changed), unchanged(*old));
}

void Catalog::dropRelation(const Relation& relation) {
    const auto old = find(relation.ForeignTable);
    TableStructure changed = *old;
    changed.relations.removeIf(
        [&relation](const Relation& other) { return sameName(other.Name, relation.Name); });
    rebuild(*old, std::move(changed), unchanged(*old));
}

void Catalog::rebuild(const TableStructure& old, TableStructure table,
                      const FieldOrigins& origins) {
    Savepoint savepoint(m_connection);
    QList<std::shared_ptr<const TableStructure>> related;
    for (const Relation& relation : relationsOn(old.name))
        related += find(relation.ForeignTable);
    for (const auto& foreign : std::as_const(related)) {
        TableStructure apart = *foreign;
        apart.relations.clear();
        rebuildAlone(*foreign, apart, unchanged(*foreign));
    }
    renumber(table);
    rebuildAlone(old, table, origins);
    for (const auto& foreign : std::as_const(related)) {
        TableStructure joined = *foreign;
        for (Relation& relation : joined.relations) {
            if (!sameName(relation.Table, old.name))
                continue;
            for (Relation::Pair& pair : relation.Fields) {
                const qsizetype moved = origins.indexOf(old.fieldIndex(pair.Name));
                if (moved >= 0)
                    pair.Name = table.fields.at(moved).Name;
            }
        }
        TableStructure apart = *foreign;
        apart.relations.clear();
        rebuildAlone(apart, joined, unchanged(apart));
    }
    savepoint.commit();
    invalidate();
}

void Catalog::rebuildAlone(const TableStructure& old, const TableStructure& table,
                           const FieldOrigins& origins) {
    const qint64 lastNumber = lastNumberOf(old);
    if (isEmpty(old)) { // then nothing has to be carried over, and the name is free at once
        m_connection.execute(u"DROP TABLE "_s + quoteName(old.name));
        m_connection.execute(createStatement(table));
    } else {
        TableStructure rebuilt = table;
        rebuilt.name = rebuiltName.toString();
        m_connection.execute(createStatement(rebuilt));
        // What a file from elsewhere holds against its own rules stays as it is.
        m_connection.execute(u"PRAGMA ignore_check_constraints = ON"_s);
        copyRecords(old, rebuilt, origins);
        m_connection.execute(u"PRAGMA ignore_check_constraints = OFF"_s);
        m_connection.execute(u"DROP TABLE "_s + quoteName(old.name));
        m_connection.execute(
            u"ALTER TABLE %1 RENAME TO %2"_s.arg(quoteName(rebuiltName), quoteName(table.name)));
    }
    setLastNumber(table, lastNumber);
    createIndexes(table);
}

bool Catalog::isEmpty(const TableStructure& table) {
    return m_connection.firstInteger(
               u"SELECT EXISTS (SELECT 1 FROM %1)"_s.arg(quoteName(table.name))) == 0;
}

void Catalog::copyRecords(const TableStructure& from, const TableStructure& to,
                          const FieldOrigins& origins) {
    QStringList targets;
    QStringList sources;
    if (!numbersItself(to)) { // so that the records keep their order and their places
        targets += rowNumberName(to);
        sources += rowNumberName(from);
    }
    for (qsizetype i = 0; i < origins.size(); ++i) {
        if (origins.at(i) < 0)
            continue;
        targets += quoteName(to.fields.at(i).Name);
        sources += quoteName(from.fields.at(origins.at(i)).Name);
    }
    m_connection.execute(u"INSERT INTO %1 (%2) SELECT %3 FROM %4"_s.arg(
        quoteName(to.name), targets.join(u", "_s), sources.join(u", "_s), quoteName(from.name)));
}

/// The last number that a table gave to a record; the numbers of deleted ones are not given again.
qint64 Catalog::lastNumberOf(const TableStructure& table) {
    return numbersItself(table)
               ? m_connection.firstInteger(u"SELECT seq FROM sqlite_sequence WHERE name = %1"_s.arg(
                     writeText(table.name)))
               : 0;
}

void Catalog::setLastNumber(const TableStructure& table, qint64 number) {
    if (number == 0 || !numbersItself(table))
        return;
    const QString name = writeText(table.name);
    m_connection.execute(u"DELETE FROM sqlite_sequence WHERE name = "_s + name);
    m_connection.execute(
        u"INSERT INTO sqlite_sequence (name, seq) VALUES (%1, %2)"_s.arg(name).arg(number));
}

} // namespace dao
