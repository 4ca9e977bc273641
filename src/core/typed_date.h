#pragma once

#include <QDate>
#include <QLocale>
#include <QString>

/// The form in which a person types and reads dates: the locale's short form, its year always in
/// four digits, so that a date shown reads back as itself.
QString typedDateFormat(const QLocale& locale);

/// A date in that form.
QString typedDateText(QDate date, const QLocale& locale);

/// Reads what a person typed: day, month and year in the order of the locale's short form, with any
/// separators. A year of two digits is read as dateFromParts does. Answers an invalid date for
/// everything else, 31 June included.
QDate typedDate(const QString& text, const QLocale& locale);
