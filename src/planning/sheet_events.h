#pragma once

#include "planning/sheet_fields.h"
#include "store/engine/database.h"

#include <QDate>
#include <QString>

class Prompts;

/// How one piece of text is carried across many sheets, and how an entry of the calendar of events
/// comes to its sheet. All of it raises what the engine raises and is done whole or not at all.

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
void addToEveryWeek(const dao::Database& database, const SheetSelection& selection);
/// The same on every other teaching week: those with the parity of the selection's sheet. A sheet
/// in a week of holidays counts as odd.
void addToEveryOtherWeek(const dao::Database& database, const SheetSelection& selection);
/// Takes the first occurrence of the selected text out of the same box on every sheet of its
/// weekday, that of the selection too. Case counts.
void removeFromEveryWeek(const dao::Database& database, const SheetSelection& selection);

/// Posts a rich text into a block at the bottom of a date's sheet, in place of what is there.
/// Without a sheet nothing happens.
/// @param block  Dinner, AfterSchool or Notes
void Add_to_Planning(const dao::Database& database, QDate date, SheetBox block, const QString& rtf);
