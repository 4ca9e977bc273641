#pragma once

#include "year/year_answers.h"

#include <QByteArray>

/// Reads the answers from a file of JSON; samples/README.md tells its format.

struct ReadAnswers {
    YearAnswers answers;
    AnswerCheck fault; ///< none when the answers hold
};

/// Reads and checks. Class codes come out in upper case and sorted, as the wizard would hold them.
/// A fault names the answer by its path in the file, such as `terms[1]` or `timetable.A.Mon[3]`;
/// of a text that is no JSON object the field is "file".
ReadAnswers readYearAnswers(const QByteArray& json, const QLocale& locale);
