#pragma once

#include "year/year_answers.h"

#include <QStringList>

/// The answers that samples/year.json holds. Raises std::runtime_error where they cannot be read.
YearAnswers sampleAnswers();
/// Makes the sample year's file, or that of other answers.
void createSampleYear(const QString& path, const YearAnswers& answers = sampleAnswers());

/// The fields of lessons and homework.
QStringList lessonFields(int periods);
/// The fields of all boxes of a daily sheet that hold rich text.
QStringList sheetFields(int periods);
