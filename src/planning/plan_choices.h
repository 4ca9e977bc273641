#pragma once

#include <QStringList>

/// What the lists of a short term plan offer.

/// The parts of a lesson that a plan times.
enum class LessonPart { Starter, Main, Plenary };
inline constexpr LessonPart LessonParts[] = {LessonPart::Starter, LessonPart::Main,
                                             LessonPart::Plenary};

/// "5 mins", "10 mins", ... for that part.
QStringList timingChoices(LessonPart part);
/// "Term (1)", "Term (2)", ... of a year with so many terms.
QStringList termChoices(int terms);
/// The subjects to choose from; any other can be typed.
QStringList subjectChoices();
