#pragma once

#include "store/engine/engine.h"
#include "year/year_answers.h"

#include <QLocale>

class Progress;
class Prompts;

/// What CreateDB does with a file that already stands under the name.
enum class ExistingFile {
    Keep,   ///< refuse the work
    Replace ///< the teacher agreed that it goes
};

/// Makes the file of a year from answers that pass `checkAnswers`: all tables, the sheets of every
/// teaching day with the timetable in them, the tables of each class.
///
/// The file is built beside `path` in one transaction and put there when it is whole and on the
/// disk; until then a file to be replaced stands untouched, and a failure or a kill leaves nothing
/// under the name. What a killed run left beside it is removed. A class with more lessons than a
/// register holds is told of in a box on the way. `locale` names the months of the calendar.
///
/// Raises 3204 when `path` is taken and is to be kept, 3045 or 3356 when the file to be replaced is
/// open, and what the engine raises. The new file is closed at the end: the caller opens it, after
/// having told so with `databaseCreatedText`.
void CreateDB(const dao::DBEngine& engine, const YearAnswers& answers, const QString& path,
              ExistingFile existing, Progress& progress, Prompts& prompts, const QLocale& locale);

/// The box that follows: its title and its text.
QString databaseCreatedTitle();
QString databaseCreatedText();
