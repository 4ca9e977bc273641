#pragma once

#include "store/engine/engine.h"

#include <QString>

/// What tables and fields the year's file has, and the making of those that an older file lacks.
/// What the engine refuses is raised.

/// Whether there is a table of exactly this name; unlike everywhere else its case counts.
bool TableExists(const dao::Database& database, const QString& table);
bool FieldInRecordset(const dao::Recordset& recordset, const QString& field);
bool FieldInTableDef(const dao::TableDef& table, const QString& field);

/// What AddField gives a text or memo field: the engine's default, or the flag as it says.
enum class ZeroLengthFlag { NotGiven, Off, On };

/// Adds a field to a table, last.
void AddField(const dao::Database& database, const QString& table, const QString& field,
              dao::DataType type, int size, ZeroLengthFlag zeroLength = ZeroLengthFlag::NotGiven);

/// Make a table of the schema that windows need. Raise 3010 when it exists.
void CreateFileLinksTable(const dao::Database& database);
void CreateLessonNotesTable(const dao::Database& database);
void CreateRoomIDTable(const dao::Database& database);
void CreateClassTempTable(const dao::Database& database);
