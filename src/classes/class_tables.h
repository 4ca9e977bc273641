#pragma once

#include "store/engine/database.h"

#include <QChar>
#include <QDate>
#include <QList>
#include <QString>

#include <array>

/// How a class comes to be in a file, with a new year or later: its record, the pupils' table, the
/// register with a column a lesson, the table of grades, and the relations between them.

/// The periods of a class on each weekday, Monday 0 to Friday 4, as a text of digits in ascending
/// order; week B only matters in a year with two timetables.
struct ClassPeriods {
    std::array<QString, 5> weekA;
    std::array<QString, 5> weekB;

    const std::array<QString, 5>& week(QChar letter) const {
        return letter == u'B' ? weekB : weekA;
    }
};

inline constexpr int DaysOfTimetable = 5; ///< Monday to Friday

struct Lesson {
    QDate date;
    QChar letter; ///< of the timetable that holds on this date
};

/// The lessons of a class over a year, in the order of the days; two periods of one day are two
/// lessons. `letters` has a letter for each of `days`, or is empty in a year with one timetable.
QList<Lesson> classLessons(const QList<QDate>& days, const QList<QChar>& letters,
                           const ClassPeriods& periods);

/// A register has no more columns of lessons: a few of the 255 fields of a table stay free.
inline constexpr int MaximumRegisterLessons = 250;

/// Whether a class with so many lessons in the year gets a register: more than one.
bool hasRegister(const QList<Lesson>& lessons);
/// Whether the register leaves lessons out; the caller then warns.
bool exceedsRegister(const QList<Lesson>& lessons);

/// The fields of a register of these lessons: the first 250, numbered from 1.
QList<dao::Field> registerFields(const QList<Lesson>& lessons);

/// Adds the record of a class to `Classcodes`, captioned with its code; days without a period stay
/// Null. Week B is left out where the table has none. Raises what the engine raises, as all below.
void addClassRecord(dao::Recordset& classcodes, const QString& classCode,
                    const ClassPeriods& periods, qint32 colour);
/// The periods in the current record of `Classcodes`.
ClassPeriods classPeriods(const dao::Recordset& classcodes);

/// Makes `Class_`C.
void createPupilTable(const dao::Database& database, const QString& classCode);
/// Makes `REG_`C, with the first 250 of the lessons, numbered from 1, where there are enough for a
/// register, and `Marks_`C; ties both to `Class_`C.
void createRegisterAndMarks(const dao::Database& database, const QString& classCode,
                            const QList<Lesson>& lessons);
