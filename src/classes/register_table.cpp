#include "classes/register_table.h"

#include "store/table_names.h"

#include <QHash>

#include <utility>

namespace {

/// A record of a register: the places of fields and what they hold, but for Null.
using Record = QList<std::pair<int, dao::Value>>;

/// What the records of a register hold in the fields that stay, by the new places of these.
QList<Record> keptRecords(const dao::Database& database, const dao::TableStructure& present,
                          const QList<dao::Field>& fields) {
    QHash<QString, int> newPlaces;
    for (int place = 0; place < fields.size(); ++place)
        newPlaces[fields[place].Name] = place;
    QList<std::pair<int, int>> kept; // the present place of a field, and the new one
    for (int place = 0; place < present.fields.size(); ++place) {
        const auto found = newPlaces.constFind(present.fields[place].Name);
        if (found != newPlaces.cend())
            kept.emplace_back(place, *found);
    }
    QList<Record> records;
    dao::Recordset rows = database.OpenRecordset(present.name, dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext()) {
        Record& record = records.emplaceBack();
        for (const auto& [place, newPlace] : std::as_const(kept)) {
            const dao::Value value = rows.Collect(place);
            if (!value.isNull())
                record.emplace_back(newPlace, value);
        }
    }
    return records;
}

void addRecords(const dao::Database& database, const QString& table, const QList<Record>& records) {
    dao::Recordset rows = database.OpenRecordset(table);
    for (const Record& record : records) {
        rows.AddNew();
        for (const auto& [place, value] : record)
            rows.SetCollect(place, value);
        rows.Update();
    }
}

} // namespace

QStringList registerTables(const dao::Database& database) {
    QStringList tables;
    for (const QString& table : database.TableDefs().names()) {
        if (classOfRegisterTable(table))
            tables += table;
    }
    return tables;
}

QList<dao::Field> registerFields(const dao::Database& database, const QString& table) {
    return database.TableDefs()[table].structure().fields;
}

bool isLessonFrom(const dao::Field& field, QDate date) {
    const auto column = readRegisterColumn(field.Name);
    return column && column->date >= date;
}

std::optional<RegisterColumn> lastLesson(const QList<dao::Field>& fields) {
    for (auto field = fields.crbegin(); field != fields.crend(); ++field) {
        if (const auto column = readRegisterColumn(field->Name))
            return column;
    }
    return std::nullopt;
}

/// The engine changes one field at a time and builds the table again for each that goes. A class
/// has few records, so here it is built once, and they are written anew.
void setRegisterFields(const dao::Database& database, const QString& table,
                       const QList<dao::Field>& fields) {
    dao::Transaction whole(database);
    const dao::TableStructure present = database.TableDefs()[table].structure();
    const QList<Record> records = keptRecords(database, present, fields);
    dao::TableDef rebuilt = database.CreateTableDef(present.name);
    dao::FieldCollection rebuiltFields = rebuilt.Fields();
    for (dao::Field field : fields) {
        field.OrdinalPosition = -1;
        rebuiltFields.Append(field);
    }
    for (const dao::Index& index : present.indexes)
        rebuilt.AppendIndex(index);
    for (const dao::Relation& relation : present.relations)
        rebuilt.AppendRelation(relation);
    database.TableDefs().Delete(present.name);
    database.TableDefs().Append(rebuilt);
    addRecords(database, present.name, records);
    whole.commit();
}
