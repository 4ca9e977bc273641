#pragma once

#include "classes/register_columns.h"
#include "store/engine/database.h"

#include <QDate>
#include <QList>
#include <QStringList>

#include <optional>

/// A register as a table of lessons, for what changes many of its columns at once. Raises what the
/// engine raises; 3211 while a recordset has the table open.

/// The registers of a year, as their tables are named.
QStringList registerTables(const dao::Database& database);

/// The fields of a register, in order.
QList<dao::Field> registerFields(const dao::Database& database, const QString& table);

/// Whether a field stands for a lesson on a date or after it.
bool isLessonFrom(const dao::Field& field, QDate date);
/// The last lesson among the fields.
std::optional<RegisterColumn> lastLesson(const QList<dao::Field>& fields);
