#pragma once

#include "store/engine/database.h"

#include <QList>
#include <QString>

#include <optional>

class Progress;

/// What a change of the week allocations does in the file of a year with two timetables, from a
/// teaching week to the end of the year. It has two halves, each of them one transaction: first the
/// sheets get the other letter and its classes, and the registers lose their lessons from that date
/// on; then the registers get a column for each lesson that there is now. Between them the file
/// carries a mark, `WeekChange`, and the second half can be done at any later time: all that it
/// needs is in the sheets.
///
/// No recordset may have one of the tables open. All raise what the engine raises.

/// The sheets of a teaching week and of all later ones, in the order of their dates, by so many of
/// their fields ("*" for all).
dao::Recordset openSheetsFrom(const dao::Database& database, short week,
                              const QString& fields = QStringLiteral("*"));

/// The first half, from `week` on; there must be a sheet. All plans of these sheets go. Raises 3421
/// for a sheet whose date can't be read. A change that was half done before then goes on from the
/// earlier of the two weeks.
void swapWeeks(const dao::Database& database, int periodsPerDay, short week, Progress& progress);

/// The week from which on a change is half done; none where none is.
std::optional<short> unfinishedWeekChange(const dao::Database& database);

/// A register with fewer columns than the class has lessons.
struct LongRegister {
    QString classCode;
    qsizetype lessons; ///< in the year
};

/// The second half; nothing where no change is half done. A register gets the lessons behind the
/// last that it has, numbered on from it; that of a class that was made since has all of them.
/// Answers the registers that had no room for all lessons.
QList<LongRegister> addLessonColumns(const dao::Database& database, int periodsPerDay,
                                     Progress& progress);
