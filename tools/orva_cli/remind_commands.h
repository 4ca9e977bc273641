#pragma once

#include "command.h"

/// Commands on the reminders of a year. None leaves the file open.

/// Plays the reminders over a span (`yyyy-mm-ddThh:mm:ss`, local time): the first check is at its
/// beginning, and each item comes when it is due, its end included. They go on in the file as they
/// would in the program. Prints a line for each that came: when, `Type`, `Caption`.
ExitStatus playReminders(const Workplace& workplace, const Call& call);
