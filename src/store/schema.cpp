#include "store/schema.h"

#include "store/engine/names.h"
#include "store/table_names.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

dao::Field namedField(const FieldSpec& spec, const QString& name) {
    dao::Field field = dao::TableDef::CreateField(name, spec.type, spec.size);
    field.AllowZeroLength = spec.flags & ZeroLength;
    field.Required = spec.flags & Required;
    if (spec.flags & AutoNumber)
        field.Attributes = dao::AutoIncrement;
    return field;
}

QString specName(const FieldSpec& spec) {
    return QString::fromLatin1(spec.name);
}

/// Appends the fields of `group` once for each number from 1 to `count`.
void appendNumbered(QList<dao::Field>& fields, const QList<FieldSpec>& group, int count) {
    for (int number = 1; number <= count; ++number)
        for (const FieldSpec& spec : group)
            fields.append(namedField(spec, specName(spec) + QString::number(number)));
}

} // namespace

const TableSpec& schemaTable(Table table) {
    const QList<TableSpec>& tables = schemaTables();
    return *std::find_if(tables.begin(), tables.end(),
                         [table](const TableSpec& spec) { return spec.table == table; });
}

QList<dao::Field> schemaFields(Table table, const YearShape& shape) {
    const QList<FieldSpec>& specs = schemaTable(table).fields;
    QList<dao::Field> fields;
    for (auto spec = specs.begin(); spec != specs.end();) {
        const auto groupEnd = std::find_if(
            spec, specs.end(), [](const FieldSpec& each) { return !(each.flags & EachPeriod); });
        if (groupEnd != spec) {
            appendNumbered(fields, QList<FieldSpec>(spec, groupEnd), shape.periodsPerDay);
            spec = groupEnd;
            continue;
        }
        const bool absent =
            spec->flags & AddedLater || (spec->flags & TwoWeeksOnly && !shape.twoWeeks);
        if (spec->flags & EachDay)
            appendNumbered(fields, {*spec}, DaysOfCalendar);
        else if (!absent)
            fields.append(namedField(*spec, specName(*spec)));
        ++spec;
    }
    return fields;
}

dao::Field schemaField(Table table, QStringView name) {
    const QList<FieldSpec>& specs = schemaTable(table).fields;
    const auto spec = std::find_if(specs.begin(), specs.end(), [name](const FieldSpec& each) {
        return dao::sameName(specName(each), name);
    });
    Q_ASSERT(spec != specs.end());
    return namedField(*spec, specName(*spec));
}

dao::TableDef schemaTableDef(Table table, const YearShape& shape, const QString& classCode) {
    const TableSpec& spec = schemaTable(table);
    dao::TableDef definition(spec.name + classCode);
    dao::FieldCollection fields = definition.Fields();
    for (const dao::Field& field : schemaFields(table, shape))
        fields.Append(field);
    for (const FieldSpec& field : spec.fields) {
        if (!(field.flags & Key))
            continue;
        dao::Index index = dao::TableDef::CreateIndex(IdIndex);
        index.Primary = true;
        index.Unique = true;
        index.Fields = {specName(field)};
        definition.AppendIndex(index);
    }
    return definition;
}

dao::Relation classRelation(const QString& name, const QString& classCode,
                            const QString& foreignTable) {
    const QString id = u"ID"_s;
    return {name, classTable(classCode), foreignTable, ClassRelationAttributes, {{id, id}}};
}
