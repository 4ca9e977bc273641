#pragma once

#include "classes/class_tables.h"
#include "classes/register_columns.h"

#include <QList>
#include <QLocale>
#include <QString>
#include <QStringList>

#include <optional>

class Prompts;
class PupilSheet;

/// What the columns of an open register say of the year's lessons. A column is one of the grid's:
/// lessons stand from PupilSheet::FirstOwnColumn on.

/// How wide the columns of lessons are, in twips: wide enough for one mark, and the current one.
inline constexpr int MarkColumnWidth = 302;
inline constexpr int CurrentLessonWidth = 900;

/// The lesson of a column; none for `Tutor` and the columns before, and beyond the end.
std::optional<RegisterColumn> lessonAt(const PupilSheet& sheet, int column);

/// The first column whose date is not before today: the current lesson. None behind the year's
/// last.
std::optional<int> currentLessonColumn(const PupilSheet& sheet, QDate today);

/// The column to stand leftmost on opening: so many before the current lesson's that the last
/// lessons are in view too. It may be a column before the lessons, such as `Tutor`.
int firstColumnInView(int currentColumn, int previousDates);

/// What the label of the register says, a line each: pupils, lessons in all, lessons remaining. The
/// first lesson after today doesn't count as remaining, and behind the last one the figure is again
/// that of all lessons: odd, and kept.
QString currentLessonText(const PupilSheet& sheet, QDate today);

/// How a pupil attended up to yesterday.
struct Attendance {
    int absent = 0;
    int lessons = 0; ///< the number of the last lesson before today
    /// The lessons attended of all, rounded to the nearest whole, a half to the even one; none
    /// before the first lesson.
    std::optional<int> percent() const;
};
Attendance attendance(const PupilSheet& sheet, int row, QDate today);
/// "Calculate Attendance...": shows a pupil's attendance; without a lesson so far no percentage.
void showAttendance(const PupilSheet& sheet, int row, QDate today, Prompts& prompts);

/// The lessons from today up to a date, both included.
int lessonsRemaining(const PupilSheet& sheet, QDate today, QDate last);
/// "Lessons Remaining...": asks for a date of the academic year ("2024-2025"), at least two days
/// ahead, and shows how many lessons there are until then, or what is wrong with the date.
void showLessonsRemaining(const PupilSheet& sheet, QDate today, const QString& academicYear,
                          const QLocale& locale, Prompts& prompts);

/// "Show Planning for this lesson...": the date of the sheet to open, by the one column that is
/// selected as a whole, else by the current one. None for a column without a lesson.
std::optional<QDate> planningDate(const PupilSheet& sheet, int currentColumn,
                                  const QList<int>& selectedColumns);

/// The period of a column's lesson: as many among the class's periods of that day as it is among
/// the day's lessons. `letter` is the day's, 'A' in a year with one timetable. None where the
/// timetable has since come to hold fewer periods than the register.
std::optional<int> lessonPeriod(const PupilSheet& sheet, int column, const ClassPeriods& periods,
                                QChar letter);
