#pragma once

#include "core/answer_check.h"

#include <QStringList>

/// The code by which a class is known: what makes one, and the order in which a year holds them.

inline constexpr int MaximumClassCode = 6;

/// Whether a character may stand in a class code; a small letter may, it becomes a capital.
bool isClassCodeCharacter(char32_t character);
/// A class code before it joins those in use.
AnswerCheck checkClassCode(const QString& code, const QStringList& inUse);
/// Puts classes into the order in which a year holds them: by code point.
void sortClasses(QStringList& classes);
