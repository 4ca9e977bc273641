#pragma once

#include <QString>
#include <QStringList>

/// So many periods its days have where nothing else is said.
inline constexpr int FullYearPeriods = 6;
/// So many sheets a full year has.
inline constexpr int FullYearSheets = 190;

/// A lesson of about two kilobytes as RTF, with words in bold and in colour: as HTML and as RTF.
QString lessonHtml(int number);
QString lessonRtf(int number);

/// Makes the sample year's file with eight classes of thirty pupils.
void makeYearOfClasses(const QString& path);

/// Makes the sample year's file with days of so many periods, whose first sheets have a lesson of
/// their own in each of the fields. Answers the path.
QString makeFullYear(const QString& path, int periods, int fullSheets, const QStringList& fields);
