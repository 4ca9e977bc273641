#include "store/table_structure.h"

#include "store/schema.h"

bool TableExists(const dao::Database& database, const QString& table) {
    return database.TableDefs().names().contains(table);
}

bool FieldInRecordset(const dao::Recordset& recordset, const QString& field) {
    return recordset.HasField(field);
}

bool FieldInTableDef(const dao::TableDef& table, const QString& field) {
    return table.Fields().Contains(field);
}

void AddField(const dao::Database& database, const QString& table, const QString& field,
              dao::DataType type, int size, ZeroLengthFlag zeroLength) {
    dao::Field added = dao::TableDef::CreateField(field, type, size);
    const bool takesFlag = type == dao::DataType::Text || type == dao::DataType::Memo;
    if (takesFlag && zeroLength != ZeroLengthFlag::NotGiven)
        added.AllowZeroLength = zeroLength == ZeroLengthFlag::On;
    database.TableDefs()[table].Fields().Append(added);
}

void CreateFileLinksTable(const dao::Database& database) {
    database.TableDefs().Append(schemaTableDef(Table::FileLinks));
}

void CreateLessonNotesTable(const dao::Database& database) {
    database.TableDefs().Append(schemaTableDef(Table::LessonNotes));
}

void CreateRoomIDTable(const dao::Database& database) {
    database.TableDefs().Append(schemaTableDef(Table::RoomID));
}

void CreateClassTempTable(const dao::Database& database) {
    database.TableDefs().Append(schemaTableDef(Table::ClassTemp));
}
