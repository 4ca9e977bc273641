#pragma once

#include "core/answer_check.h"
#include "core/prompts.h"

#include <QHash>
#include <QLocale>
#include <QString>
#include <QStringList>

#include <array>

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

    bool operator==(const YearAnswers&) const = default;
    const WeekTimetable& week(QChar letter) const { return letter == u'B' ? weekB : weekA; }
};

/// Who teaches, as the file keeps it: the title, a blank, the name.
QString teacherText(const YearAnswers& answers);
/// The class in a period (from 1) of a weekday (Monday 0); empty for a free one.
QString classAt(const WeekTimetable& week, int weekday, int period);

inline constexpr int MaximumPeriods = 9; ///< a period is one digit in the file

/// The first fault of all, in the order of the answers. Texts show dates in the locale's short
/// form.
AnswerCheck checkAnswers(const YearAnswers& answers, const QLocale& locale);

AnswerCheck checkTeacher(const YearAnswers& answers); ///< title, name, year and periods
AnswerCheck checkClasses(const YearAnswers& answers); ///< codes and colours
AnswerCheck checkTimetables(const YearAnswers& answers);
AnswerCheck checkTerms(const YearAnswers& answers, const QLocale& locale);
AnswerCheck checkStartWeek(const YearAnswers& answers);

/// One teaching period by itself.
AnswerCheck checkTerm(const DatePeriod& term);
