#pragma once

#include "command.h"

/// Commands on the weeks of a year with two timetables.

/// Changes the week allocations from the teaching week of that number on, once it is agreed that
/// plans are cleared. Prints nothing. Fails where a change was broken off before and is not
/// finished now; refuses a year with one timetable and a week without sheets.
ExitStatus changeWeeks(const Workplace& workplace, const Call& call);

/// Whether no change of the weeks is half done in the year that the session reads; the person is
/// told of one. With consent it is finished: the year is then open in the session for good.
bool isWeekChangeWhole(const Workplace& workplace, const Call& call);
