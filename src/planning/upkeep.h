#pragma once

#include "store/engine/database.h"

#include <QDate>
#include <QString>

class Prompts;

/// How rows of `Planning` come to be, and how one piece of text is carried across many sheets. All
/// of it raises what the engine raises and is done whole or not at all.

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
/// The caption of a block at the bottom: "Dinner Time", "After School", "Notes".
QString blockCaption(SheetBox box);

/// Adds the sheet of a date ("yy-mm-dd") to `Planning` by way of a recordset on all its fields,
/// whose new record it becomes. Its `Week` is the teaching week, -1 in a week without one; it then
/// has no classes. Its classes are those of the timetable. `ABWeek` stays Null.
void AddNewPlan(const dao::Database& database, dao::Recordset& sheets, const QString& planDate);

/// Fills the class fields of the recordset's current row from the timetable of a weekday (Sunday =
/// 1); of a Saturday and a Sunday there are none. Where two classes claim a period the later one
/// has it.
void GetClassCaptions(const dao::Database& database, dao::Recordset& sheets, int weekday,
                      bool isTimetableA);

/// A selection in a box of a sheet.
struct SheetSelection {
    SheetPlace place;
    QString text; ///< plain
    QString rtf;  ///< as a document of its own
    QString planDate;
    int week = 0; ///< of the sheet
};

/// What is done with it on the other sheets of its weekday.
enum class SheetEvent { AddWeekly, AddFortnightly, Remove };

/// Asks whether to do it; answers yes or no.
bool confirmEvent(Prompts& prompts, SheetEvent event, const SheetSelection& selection);
/// Tells that no selection could be found.
void tellNoSelection(Prompts& prompts);

/// Puts the selection at the end of the same box on every other sheet of its weekday.
void mnuAddPerWeek(const dao::Database& database, const SheetSelection& selection);
/// The same on every other teaching week: those with the parity of the selection's sheet. A sheet
/// in a week of holidays counts as odd.
void mnuAddPer2weeks(const dao::Database& database, const SheetSelection& selection);
/// Takes the first occurrence of the selected text out of the same box on every sheet of its
/// weekday, that of the selection too. Case counts.
void mnuRemovePerWeek(const dao::Database& database, const SheetSelection& selection);

/// Posts a rich text into a block at the bottom of a date's sheet, in place of what is there.
/// Without a sheet nothing happens.
/// @param block  Dinner, AfterSchool or Notes
void Add_to_Planning(const dao::Database& database, QDate date, SheetBox block, const QString& rtf);
