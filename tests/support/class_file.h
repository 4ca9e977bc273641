#pragma once

#include "classes/class_creation.h"
#include "store/engine/names.h"
#include "support/year_file.h"

/// Adds pupils to a class, with their rows of the register and the grades, by "Surname,Firstname";
/// a name without a comma has no first name.
void addPupils(const dao::Database& database, const QString& classCode, const QStringList& names);

/// The cell of a period (from 1) and a weekday (Monday 0) on the New Class Wizard's timetable.
int cellOf(int period, int weekday);

/// Answers of the New Class Wizard over a year: periods as "Monday 0 to Friday 4" texts of digits.
NewClass newClass(const dao::Database& database, const QString& code, const ClassPeriods& periods);

/// A pupil's marks in a register as they stand in the file, "." for none.
QString marksInFile(const dao::Database& database, const QString& classCode, int pupil);
