#pragma once

#include <QDate>
#include <QLocale>
#include <QString>
#include <QStringView>

/// The days of the week as every part of the program numbers them.
enum Weekday { Sunday = 1, Monday, Tuesday, Wednesday, Thursday, Friday, Saturday };

inline constexpr int MonthsPerYear = 12;

/// The number of a date's weekday, Sunday = 1 to Saturday = 7.
int weekdayOf(QDate date);

/// Whether a date is one from Monday to Friday.
bool isSchoolWeekday(QDate date);

/// The number of Sundays after `from` up to and including `to`: 0 when both lie in the same week,
/// Sunday to Saturday; negative when `to` comes first.
int weekDifference(QDate from, QDate to);

/// Builds a date from three numbers. A year of two digits stands for 2000 to 2079 (0 to 79) or 1980
/// to 1999 (80 to 99). A day or month beyond its range rolls on: 30 February is 1 or 2 March.
/// Answers an invalid date where no calendar reaches.
QDate dateFromParts(int year, int month, int day);

/// The text that keys the sheet of a date: "yy-mm-dd", whatever the locale.
QString sheetDateText(QDate date);

/// Reads a sheet's text back, by the positions of its characters, under the rule for years of two
/// digits: years from 2080 on come back a century early. Answers an invalid date for a text that
/// can't be read.
QDate sheetDate(QStringView text);

/// "Sunday" for 1 to "Saturday" for 7; any other number gives an empty text.
QString DayName(int weekday);

/// The full name of a month, 1 to 12, in the person's language.
QString MonthName(int month, const QLocale& locale);
