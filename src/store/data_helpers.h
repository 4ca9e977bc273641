#pragma once

#include "store/engine/engine.h"

#include <QString>

#include <functional>

class Prompts;

namespace dao {
class EngineError;
}

/// The small procedures on the year's file that all other code calls. Where it says so a failure of
/// the engine is shown in a box and the call returns; otherwise it is raised.

/// Whether there is a table of exactly this name; unlike everywhere else its case counts.
bool TableExists(const dao::Database& database, const QString& table);
bool FieldInRecordset(const dao::Recordset& recordset, const QString& field);
bool FieldInTableDef(const dao::TableDef& table, const QString& field);

/// What AddField gives a text or memo field: the engine's default, or the flag as it says.
enum class ZeroLengthFlag { NotGiven, Off, On };

/// Adds a field to a table, last.
void AddField(const dao::Database& database, const QString& table, const QString& field,
              dao::DataType type, int size, ZeroLengthFlag zeroLength = ZeroLengthFlag::NotGiven);

/// The box of a failure of the engine, where an operation has none of its own.
void showEngineError(Prompts& prompts, const QString& title, const dao::EngineError& error,
                     int flags);
/// Does work that may fail in the file; a failure is told in that box. Answers whether it was done.
bool tryTelling(Prompts& prompts, const QString& title, const std::function<void()>& work);

/// Deletes every record. A failure, an empty recordset being one, is shown in a box.
void DeleteAllRecords(dao::Recordset& recordset, Prompts& prompts);
/// Closes every recordset of the database. A failure is shown in a box.
void CloseRecordsets(const dao::Database& database, Prompts& prompts);
/// Closes every database of the workspace and its recordsets. A failure is shown in a box.
void CloseAllDatabases(const dao::Workspace& workspace, Prompts& prompts);

/// Makes the first record that meets the criteria current. Without one it answers false and the
/// place stays. An empty recordset answers false and is not searched.
bool FindInRecordset(dao::Recordset& recordset, const QString& criteria);
/// The same, but without a match it makes the last record current.
bool FindFirstInRecordset(dao::Recordset& recordset, const QString& criteria);

/// Steps behind a window that is bound to `data`: answers whether there was a record to step to.
/// Past either end the record at that end stays current. With no record at all it answers false.
bool DataMoveNext(dao::Recordset& data);
bool DataMovePrevious(dao::Recordset& data);
/// Deletes the current record and opens `data` anew, on its first record; answers whether any
/// record is left.
bool DataDelete(dao::Recordset& data);

/// Make a table of the schema that windows need. Raise 3010 when it exists.
void CreateFileLinksTable(const dao::Database& database);
void CreateLessonNotesTable(const dao::Database& database);
void CreateRoomIDTable(const dao::Database& database);
void CreateClassTempTable(const dao::Database& database);
