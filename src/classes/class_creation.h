#pragma once

#include "classes/new_class.h"

class Prompts;

/// The last step of the New Class Wizard: makes the class of the answers in the year. It gets its
/// record in `Classcodes`, takes its periods from the free slots of the timetable, gets its tables,
/// with a register column for each lesson of the year, and is written into the planning sheets of
/// its lessons. A class with one lesson in the year or none gets no register and stands on no
/// sheet.
///
/// The class is there whole or not at all. With more lessons than a register holds the first 250
/// get a column, and the teacher is told. A failure is told too; answers whether the class is
/// there. The caller adds it to the lists that show classes and draws the timetable again.
bool createClass(const dao::Database& database, const NewClass& answers, Prompts& prompts);

/// The lessons of a class with these periods over the year in the file. Which timetable holds in a
/// week is the letter of the week's sheets, else it follows from the first week's. Raises what the
/// engine raises.
QList<Lesson> yearLessons(const dao::Database& database, const ClassPeriods& periods);
