#pragma once

#include "core/prompts.h"

#include <QHash>
#include <QLocale>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

/// What the teacher answers before a year's file is made, and the checks on it.

/// The class taught in each period of each weekday, Monday 0 to Friday 4: an empty text for a free
/// period; periods beyond a day's list are free.
using WeekTimetable = std::array<QStringList, 5>;

struct YearAnswers {
    QString title;
    QString name;
    QString year; ///< "2026-2027"
    int periodsPerDay = 0;
    bool twoWeeks = false;
    QString startWeek;              ///< "A" or "B", the first week's timetable; of two weeks only
    QList<DatePeriod> terms;        ///< in order
    QStringList classes;            ///< upper case, sorted by code point
    QHash<QString, qint32> colours; ///< by class, red in the low byte
    WeekTimetable weekA;
    WeekTimetable weekB; ///< of two weeks only

    const WeekTimetable& week(QChar letter) const { return letter == u'B' ? weekB : weekA; }
};

/// Who teaches, as the file keeps it: the title, a blank, the name.
QString teacherText(const YearAnswers& answers);
/// The class in a period (from 1) of a weekday (Monday 0); empty for a free one.
QString classAt(const WeekTimetable& week, int weekday, int period);
/// Puts classes into the order in which a year holds them.
void sortClasses(QStringList& classes);

inline constexpr int MaximumPeriods = 9; ///< a period is one digit in the file
inline constexpr int MaximumClassCode = 6;

/// What is wrong with the answers: which one (as the answers file names it), and the title and text
/// of the box that says so.
struct AnswerFault {
    QString field;
    QString title;
    QString text;
};
using AnswerCheck = std::optional<AnswerFault>;

/// The first fault of all, in the order of the answers. Texts show dates in the locale's short
/// form.
AnswerCheck checkAnswers(const YearAnswers& answers, const QLocale& locale);

AnswerCheck checkTeacher(const YearAnswers& answers); ///< title, name, year and periods
AnswerCheck checkClasses(const YearAnswers& answers); ///< codes and colours
AnswerCheck checkTimetables(const YearAnswers& answers);
AnswerCheck checkTerms(const YearAnswers& answers, const QLocale& locale);
AnswerCheck checkStartWeek(const YearAnswers& answers);

/// Whether a character may stand in a class code; a small letter may, it becomes a capital.
bool isClassCodeCharacter(char32_t character);
/// A class code before it joins those in use.
AnswerCheck checkClassCode(const QString& code, const QStringList& inUse);
/// One teaching period by itself.
AnswerCheck checkTerm(const DatePeriod& term);
