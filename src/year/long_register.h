#pragma once

#include <QString>

class Prompts;

/// Tells that a register has not a column for each of the class's lessons in the year, because a
/// table has no room for so many.
void warnOfLongRegister(Prompts& prompts, const QString& classCode, qsizetype lessons);
