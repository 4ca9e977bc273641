#include "store/engine/table_def.h"

#include "store/engine/database_core.h"
#include "store/engine/error.h"
#include "store/engine/names.h"

#include <QSet>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

EngineError noSuchField(QStringView name) {
    return {NoSuchItem, u"There is no field '%1'."_s.arg(name)};
}

EngineError fieldExists(const QString& name) {
    return {FieldExists, u"There is already a field '%1'."_s.arg(name)};
}

int requireField(const TableStructure& table, QStringView name) {
    const int position = table.fieldIndex(name);
    if (position < 0)
        throw noSuchField(name);
    return position;
}

void checkNewField(const TableStructure& table, const QString& name) {
    checkName(name);
    if (table.fieldIndex(name) >= 0)
        throw fieldExists(name);
}

/// Raises where an index has a field that is to go.
void checkUnindexed(const TableStructure& table, const QString& field) {
    for (const Index& index : table.indexes) {
        if (index.Fields.contains(field, Qt::CaseInsensitive))
            throw EngineError(TableInRelation, u"The field '%1' is part of an index."_s.arg(field));
    }
}

void checkFieldCount(const TableStructure& table) {
    if (table.fields.size() > MaximumFields)
        throw EngineError(TooManyFields,
                          u"A table can't have more than %1 fields."_s.arg(MaximumFields));
}

/// Another handle may have changed the table since.
TableStructure& refreshed(const std::shared_ptr<DatabaseCore>& core, TableStructure& structure) {
    if (core)
        structure = *core->table(structure.name, NoSuchTableToChange);
    return structure;
}

/// Raises what `RelationCollection::Append` tells for a relation that can't be.
void checkRelation(DatabaseCore& core, const Relation& relation, const TableStructure& foreign) {
    checkName(relation.Name);
    const auto table = core.table(relation.Table, NoSuchItem);
    for (const Relation::Pair& pair : relation.Fields) {
        requireField(*table, pair.Name);
        requireField(foreign, pair.ForeignName);
    }
    if (relation.Fields.isEmpty())
        throw EngineError(InvalidOperation, u"A relation needs a field."_s);
    if (!hasKeyFor(*table, relation))
        throw EngineError(
            InvalidOperation,
            u"The fields of '%1' that the relation names are no key."_s.arg(table->name));
    if (core.catalog.hasRelation(relation.Name))
        throw EngineError(ItemExists, u"There is already a relation '%1'."_s.arg(relation.Name));
}

/// The fields of a primary index have to have values.
void requirePrimaryFields(TableStructure& table, const Index& index) {
    for (const QString& name : index.Fields) {
        Field& field = table.fields[requireField(table, name)];
        field.Required = field.Required || index.Primary;
    }
}

} // namespace

FieldCollection::FieldCollection(std::shared_ptr<DatabaseCore> core,
                                 std::shared_ptr<TableStructure> structure)
    : m_core(std::move(core)), m_structure(std::move(structure)) {}

TableStructure& FieldCollection::current() const {
    return refreshed(m_core, *m_structure);
}

int FieldCollection::Count() const {
    return static_cast<int>(current().fields.size());
}

Field FieldCollection::operator[](int position) const {
    if (position < 0 || position >= Count())
        throw EngineError(NoSuchItem, u"There is no field %1."_s.arg(position));
    return m_structure->fields.at(position);
}

Field FieldCollection::operator[](QStringView name) const {
    return m_structure->fields.at(requireField(current(), name));
}

bool FieldCollection::Contains(QStringView name) const {
    return current().fieldIndex(name) >= 0;
}

QList<Field>::const_iterator FieldCollection::begin() const {
    return current().fields.cbegin();
}

QList<Field>::const_iterator FieldCollection::end() const {
    return m_structure->fields.cend();
}

void FieldCollection::Append(const Field& field) {
    checkNewField(current(), field.Name);
    if (Count() >= MaximumFields)
        throw EngineError(TooManyFields,
                          u"A table can't have more than %1 fields."_s.arg(MaximumFields));
    if (!m_core) {
        const int position =
            field.OrdinalPosition < 0 ? Count() : std::min(field.OrdinalPosition, Count());
        m_structure->fields.insert(position, field);
        for (int i = position; i < Count(); ++i)
            m_structure->fields[i].OrdinalPosition = i;
        return;
    }
    change([&](Catalog& catalog) { catalog.addField(m_structure->name, field); });
}

void FieldCollection::Delete(QStringView name) {
    const int position = requireField(current(), name);
    if (!m_core) {
        m_structure->fields.removeAt(position);
        return;
    }
    if (Count() == 1)
        throw EngineError(InvalidOperation, u"The last field of a table can't be removed."_s);
    checkUnindexed(*m_structure, m_structure->fields.at(position).Name);
    change([&](Catalog& catalog) { catalog.dropField(m_structure->name, position); });
}

void FieldCollection::Rename(QStringView name, const QString& newName) {
    const int position = requireField(current(), name);
    if (!sameName(name, newName))
        checkNewField(*m_structure, newName);
    if (!m_core) {
        m_structure->fields[position].Name = newName;
        return;
    }
    change([&](Catalog& catalog) { catalog.renameField(m_structure->name, position, newName); });
}

void FieldCollection::SetOrdinalPosition(QStringView name, int position) {
    const int present = requireField(current(), name);
    if (!m_core) {
        m_structure->fields.move(present, std::clamp(position, 0, Count() - 1));
        for (int i = 0; i < Count(); ++i)
            m_structure->fields[i].OrdinalPosition = i;
        return;
    }
    change([&](Catalog& catalog) { catalog.moveField(m_structure->name, present, position); });
}

void FieldCollection::SetAll(const QList<Field>& fields) {
    QSet<QString> names;
    for (const Field& field : fields) {
        checkName(field.Name);
        if (names.contains(folded(field.Name)))
            throw fieldExists(field.Name);
        names += folded(field.Name);
    }
    TableStructure wanted = current();
    for (const Field& present : std::as_const(wanted.fields)) {
        if (!names.contains(folded(present.Name)))
            checkUnindexed(wanted, present.Name);
    }
    wanted.fields = fields;
    checkFieldCount(wanted);
    if (!m_core) {
        for (int i = 0; i < wanted.fields.size(); ++i)
            wanted.fields[i].OrdinalPosition = i;
        *m_structure = std::move(wanted);
        return;
    }
    change([&](Catalog& catalog) { catalog.setFields(m_structure->name, fields); });
}

void FieldCollection::change(const std::function<void(Catalog&)>& work) {
    m_core->checkUnused(m_structure->name);
    work(m_core->catalog);
}

TableDef::TableDef(const QString& name) : m_structure(std::make_shared<TableStructure>()) {
    m_structure->name = name;
}

TableDef::TableDef(std::shared_ptr<DatabaseCore> core, std::shared_ptr<TableStructure> structure)
    : m_core(std::move(core)), m_structure(std::move(structure)) {}

const TableStructure& TableDef::structure() const {
    return refreshed(m_core, *m_structure);
}

FieldCollection TableDef::Fields() const {
    return {m_core, m_structure};
}

Field TableDef::CreateField(const QString& name, DataType type, int size) {
    Field field;
    field.Name = name;
    field.Type = type;
    field.Size = type == DataType::Text && size > 0 ? size : defaultSize(type);
    return field;
}

Index TableDef::CreateIndex(const QString& name) {
    Index index;
    index.Name = name;
    return index;
}

void TableDef::AppendIndex(const Index& index) {
    checkName(index.Name);
    TableStructure checked = structure();
    requirePrimaryFields(checked, index);
    for (const Index& present : std::as_const(m_structure->indexes)) {
        if (sameName(present.Name, index.Name) || (present.Primary && index.Primary))
            throw EngineError(ItemExists, u"There is already an index '%1'."_s.arg(present.Name));
    }
    if (!m_core) {
        *m_structure = std::move(checked);
        m_structure->indexes += index;
        return;
    }
    m_core->checkUnused(m_structure->name);
    m_core->catalog.addIndex(m_structure->name, index);
}

void TableDef::AppendRelation(const Relation& relation) {
    if (m_core)
        throw EngineError(InvalidOperation,
                          u"A table in a file is related by the file's relations."_s);
    m_structure->relations += relation;
}

TableDefCollection::TableDefCollection(std::shared_ptr<DatabaseCore> core)
    : m_core(std::move(core)) {}

QStringList TableDefCollection::names() const {
    return m_core->catalog.tableNames();
}

int TableDefCollection::Count() const {
    return static_cast<int>(names().size());
}

bool TableDefCollection::Contains(QStringView name) const {
    return m_core->catalog.find(name) != nullptr;
}

TableDef TableDefCollection::operator[](QStringView name) const {
    return {m_core, std::make_shared<TableStructure>(*m_core->table(name, NoSuchItem))};
}

void TableDefCollection::Append(const TableDef& table) {
    m_core->checkWritable();
    const TableStructure& structure = table.structure();
    checkName(structure.name);
    if (Contains(structure.name))
        throw EngineError(TableExists, u"There is already a table '%1'."_s.arg(structure.name));
    if (structure.fields.isEmpty())
        throw EngineError(InvalidOperation, u"A table needs a field."_s);
    checkFieldCount(structure);
    for (const Relation& relation : structure.relations)
        checkRelation(*m_core, relation, structure);
    m_core->catalog.createTable(structure);
}

void TableDefCollection::Delete(QStringView name) {
    const QString table = m_core->table(name, NoSuchItem)->name;
    m_core->checkUnused(table);
    if (!m_core->catalog.relationsOn(table).isEmpty())
        throw EngineError(TableInRelation, u"Another table is related to '%1'."_s.arg(table));
    m_core->catalog.dropTable(table);
}

RelationCollection::RelationCollection(std::shared_ptr<DatabaseCore> core)
    : m_core(std::move(core)) {}

QList<Relation> RelationCollection::all() const {
    return m_core->catalog.relations();
}

QList<Relation> RelationCollection::to(QStringView table) const {
    return m_core->catalog.relationsOn(table);
}

QList<Relation> RelationCollection::from(QStringView table) const {
    const auto structure = m_core->catalog.find(table);
    return structure ? structure->relations : QList<Relation>();
}

void RelationCollection::Append(const Relation& relation) {
    const auto foreign = m_core->table(relation.ForeignTable, NoSuchItem);
    checkRelation(*m_core, relation, *foreign);
    const auto table = m_core->table(relation.Table, NoSuchItem);
    m_core->checkUnused(table->name);
    m_core->checkUnused(foreign->name);
    Relation stored = relation;
    stored.Table = table->name;
    stored.ForeignTable = foreign->name;
    m_core->catalog.addRelation(stored);
}

void RelationCollection::Delete(QStringView name) {
    for (const Relation& relation : all()) {
        if (!sameName(relation.Name, name))
            continue;
        m_core->checkUnused(relation.ForeignTable);
        m_core->catalog.dropRelation(relation);
        return;
    }
    throw EngineError(NoSuchItem, u"There is no relation '%1'."_s.arg(name));
}

} // namespace dao
