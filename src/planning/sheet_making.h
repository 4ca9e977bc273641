#pragma once

#include "store/engine/database.h"

#include <QDate>
#include <QString>

/// How rows of `Planning` come to be. Raises what the engine raises.

/// Whole or not at all: adds the sheet of a date ("yy-mm-dd") to `Planning` by way of a recordset
/// on all its fields, whose new record it becomes. Its `Week` is the teaching week, -1 in a week
/// without one; it then has no classes. Its classes are those of the timetable that holds in its
/// week: the letter of the week's other sheets says which, else the first week's. `ABWeek` stays
/// Null.
void AddNewPlan(const dao::Database& database, dao::Recordset& sheets, const QString& planDate);

/// Fills the class fields of the recordset's current row from the timetable of a weekday (Sunday =
/// 1); of a Saturday and a Sunday there are none. Where two classes claim a period the later one
/// has it.
void GetClassCaptions(const dao::Database& database, dao::Recordset& sheets, int weekday,
                      bool isTimetableA);
