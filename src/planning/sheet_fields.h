#pragma once

#include "store/engine/database.h"

#include <QString>

/// The boxes of a sheet and the fields of `Planning` behind them.

/// The boxes of a sheet that hold rich text. The last three are numbered as a calendar entry is
/// posted to them.
enum class SheetBox { Dinner = 0, AfterSchool = 1, Notes = 2, Lesson, Homework };

/// One of them: of a lesson or homework the period, from 1 on.
struct SheetPlace {
    SheetBox box = SheetBox::Lesson;
    int period = 0;
};

/// The field that a box shows: "Lesson3", "Homework3", "Dinner", "AfterSchool", "Notes".
QString fieldOf(const SheetPlace& place);
QString classField(int period);
/// The row of `Planning` of a date ("yy-mm-dd"), with all its fields. Raises 3021 where there is no
/// sheet of that day, and what the engine raises.
dao::Recordset readSheet(const dao::Database& database, const QString& planDate);
/// The caption of a block at the bottom: "Dinner Time", "After School", "Notes".
QString blockCaption(SheetBox box);
