#pragma once

#include "command.h"

/// Commands that read the lessons of a year's sheets. Neither changes anything in the file, and
/// both read a genuine Jet file as it stands.

/// Prints a line for each lesson, with `--homework` each homework, that holds a text: `PlanDate`,
/// period, position of the first place from 1 in the plain text. Nothing found is no failure.
ExitStatus findInYear(const Workplace& workplace, const Call& call);

/// Prints a line for each lesson of a class, the oldest first: `PlanDate`, lesson, homework, both
/// as plain text.
ExitStatus printHistory(const Workplace& workplace, const Call& call);
