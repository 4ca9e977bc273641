#pragma once

#include "store/engine/engine.h"

#include <QString>

class Prompts;

/// Finding, stepping through and deleting the records of a recordset. What the engine refuses is
/// raised, where nothing else is said.

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

/// Deletes every record. A failure, an empty recordset being one, is shown in a box.
void DeleteAllRecords(dao::Recordset& recordset, Prompts& prompts);
