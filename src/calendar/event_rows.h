#pragma once

#include "store/engine/database.h"

#include <QLocale>
#include <QString>
#include <QStringList>

/// The rows of `Calendar`, the calendar of events: one a month, with a field a day. Twelve base
/// rows, January to December, hold the months of the academic year and are found by their place. A
/// month outside it has an extra row, made when it is first asked for and found by its key. All of
/// it raises what the engine raises.

/// A month of one year, which has four digits. Months count from 1.
struct EventMonth {
    int year = 0;
    int month = 1;

    bool operator==(const EventMonth&) const = default;
};

/// The key of a base row: the first three letters of the month's name and "1".
QString baseMonthKey(int month, const QLocale& locale);
/// The key of an extra row, in the person's language: "Sep2026".
QString extraMonthKey(const EventMonth& month);
/// Whether a key is that of an extra row: it ends in a year.
bool isExtraMonthKey(QStringView key);
/// The field of a day of the month, from 1: "D5".
QString dayField(int day);

/// Whether the text of a day, without its formatting, says anything. An object does.
bool hasEventText(const QString& plain);

/// The calendar year in which the academic year starts, by its label; 0 where that begins with no
/// number.
int calendarYear(const dao::Database& database);
/// Whether a month belongs to the academic year that starts in a calendar year: months from August
/// on to that calendar year, January to July to the next.
bool isInAcademicYear(const EventMonth& month, int calendarYear);

/// Makes the row of a month current in a recordset of the whole table. Without an extra row it
/// answers false and the place stays. Raises 3021 where a base row is missing.
bool moveToEventMonth(dao::Recordset& rows, const EventMonth& month, int calendarYear);
/// Opens the table on the row of a month. An extra row is made where it is missing; the table's key
/// takes no more than the base rows need until the first one. No recordset may have the table open.
dao::Recordset openEventMonth(const dao::Database& database, const EventMonth& month,
                              int calendarYear);

/// The plain texts of a month, from the first day on; none for a month without a row.
QStringList eventTexts(const dao::Database& database, const EventMonth& month);

/// Lets the table take keys of so many characters. No recordset may have it open, here and below.
void makeRoomForKey(const dao::Database& database, qsizetype size);
/// Turns the days of an older file, in which they are texts of limited size, into memos.
void Change_Field_type(const dao::Database& database);
/// Deletes the extra rows in which no day has text. The base rows stay.
void Clean_COE(const dao::Database& database);
