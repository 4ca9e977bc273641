#pragma once

#include "core/dates.h"
#include "store/engine/database.h"

#include <QChar>
#include <QList>
#include <QString>

#include <optional>

/// Terms, teaching days, teaching weeks and their letters: the one calendar that all windows share.
/// A year is a list of terms; a teaching day is a date from Monday to Friday inside a term; a
/// teaching week is a week from Sunday to Saturday that holds a teaching day, and teaching weeks
/// are counted from 1, holidays left out. In a year with two timetables each teaching week has a
/// letter, "A" or "B", by turns.

/// What `GetTermDays` reads.
struct TermDays {
    /// The first and last days of the terms, in the order in which the file has them: elements 0
    /// and 1 are the first term's, 2 and 3 the second's.
    QList<QDate> boundaries;
    /// The teaching days from element 1 on; element 0 is no date.
    QList<QDate> days;
};

/// The teaching days of terms given by `boundaries` (as in TermDays), in the order of the terms,
/// from element 0. Both boundaries of a term belong to it. A boundary without its fellow counts
/// for nothing, a term that ends before it starts has no days.
QList<QDate> teachingDays(const QList<QDate>& boundaries);

/// Reads the terms of a year from `TermDates`. Raises what the engine raises.
TermDays GetTermDays(const dao::Database& database);

/// The number of the teaching week of any date: of a teaching day, and of a date whose week holds a
/// later teaching day or, before the last teaching day, an earlier one. -1 for every other date:
/// one in a week of holidays, and any date after the last teaching day, even in the same week.
short GetWeekNumber(const TermDays& terms, QDate date);
short GetWeekNumber(const dao::Database& database, QDate date);

/// The numbers of the teaching weeks of rows of sheets, given by their dates in the order of the
/// rows: the count goes up by one whenever a row's week differs from that of the row before.
QList<short> weekNumbers(const QList<QDate>& rows);

/// The other week's letter: 'B' for 'A', 'A' for everything else.
QChar otherLetter(QChar letter);

/// The letters of teaching days, in order: the first has `startLetter`, and the letter changes once
/// with each change of the week, however long the gap is.
QList<QChar> weekLetters(const QList<QDate>& days, QChar startLetter);

/// The letter of a teaching week in a year whose first week has `startLetter`: an odd week has
/// that, an even one the other. Week -1 counts as odd.
QChar weekLetter(int week, QChar startLetter);

/// The letter by which an older file's sheets are lettered: 'B' when `startWeek` is "B", else 'A'.
QChar startLetter(const QString& startWeek);

/// Which of the two timetables holds in a week: 'A' or 'B'. With one timetable (`twoWeekly` not 1)
/// always 'A'. With two and a `startWeek` that is neither "A" nor "B" none holds.
std::optional<QChar> timetableLetter(int twoWeekly, const QString& startWeek, int week);

/// The field of `Classcodes` with the periods of a weekday under a timetable: "Mon" to "Fri" for
/// 'A', "MonB" to "FriB" for 'B'. Empty for Saturday and Sunday.
QString timetableField(int weekday, QChar letter);
QString timetableField(QDate date, QChar letter);

/// The letter of the current week: that of today's sheet, else of the next one, else of the last.
/// Empty in a year without sheets or without letters.
QString IsWeek2(const dao::Database& database, QDate today);

/// The holidays of a year as the calendar of events colours them: the dates from Monday to Friday
/// that are no teaching day, from the first of the first teaching month to day 30 of the last one.
/// The 30 is fixed: a 31st is left out, and in February the days run on into March.
QList<QDate> FillHolsArray(const TermDays& terms);
QList<QDate> FillHolsArray(const dao::Database& database);
