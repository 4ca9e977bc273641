#include "store/data_helpers.h"

#include "core/prompts.h"
#include "store/engine/error.h"
#include "store/schema.h"

namespace {

QString errorNumberText(const dao::EngineError& error) {
    return QStringLiteral("Error Number : ") + QString::number(error.number());
}

} // namespace

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

void showEngineError(Prompts& prompts, const QString& title, const dao::EngineError& error,
                     int flags) {
    prompts.PlainBox(
        QStringLiteral("Error : %1\nError number %2").arg(error.description()).arg(error.number()),
        flags, title);
}

bool tryTelling(Prompts& prompts, const QString& title, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const dao::EngineError& error) {
        showEngineError(prompts, title, error, OkButton | CriticalIcon);
        return false;
    }
}

void DeleteAllRecords(dao::Recordset& recordset, Prompts& prompts) {
    try {
        for (recordset.MoveFirst(); !recordset.EOF_(); recordset.MoveNext())
            recordset.Delete();
    } catch (const dao::EngineError& error) {
        showEngineError(prompts, QStringLiteral("Delete All Records error"), error, OkButton);
    }
}

void CloseRecordsets(const dao::Database& database, Prompts& prompts) {
    try {
        for (dao::Recordset recordset : database.Recordsets())
            recordset.Close();
    } catch (const dao::EngineError& error) {
        prompts.PlainBox(errorNumberText(error), OkButton,
                         QStringLiteral("Close ALL Recordsets(s) Error"));
    }
}

void CloseAllDatabases(const dao::Workspace& workspace, Prompts& prompts) {
    try {
        for (dao::Database database : workspace.Databases())
            database.Close();
    } catch (const dao::EngineError& error) {
        prompts.PlainBox(errorNumberText(error), OkButton,
                         QStringLiteral("Close Database(s) Error"));
    }
}

bool FindInRecordset(dao::Recordset& recordset, const QString& criteria) {
    if (recordset.RecordCount() == 0)
        return false;
    const bool hasPlace = recordset.AbsolutePosition() >= 0;
    const dao::Bookmark place = hasPlace ? recordset.Bookmark() : dao::Bookmark();
    recordset.MoveFirst();
    recordset.FindFirst(criteria);
    if (!recordset.NoMatch())
        return true;
    if (hasPlace)
        recordset.SetBookmark(place);
    return false;
}

bool FindFirstInRecordset(dao::Recordset& recordset, const QString& criteria) {
    recordset.FindFirst(criteria);
    if (!recordset.NoMatch())
        return true;
    recordset.MoveLast();
    return false;
}

bool DataMoveNext(dao::Recordset& data) {
    if (data.RecordCount() == 0)
        return false;
    if (!data.EOF_())
        data.MoveNext();
    if (!data.EOF_())
        return true;
    data.MoveLast();
    return false;
}

bool DataMovePrevious(dao::Recordset& data) {
    if (data.RecordCount() == 0)
        return false;
    if (!data.BOF())
        data.MovePrevious();
    if (!data.BOF())
        return true;
    data.MoveFirst();
    return false;
}

bool DataDelete(dao::Recordset& data) {
    data.Delete();
    dao::Recordset refreshed = data.OpenRecordset();
    data.Close();
    data = refreshed;
    return data.AbsolutePosition() >= 0;
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
