#pragma once

#include "command.h"

/// Commands on a year's calendar of events. None leaves the file open.

/// Prints a line a day of the month (`yyyy-mm`) that has text: the day and its plain text. Changes
/// nothing in the file and reads a genuine Jet file as it stands.
ExitStatus printEvents(const Workplace& workplace, const Call& call);

/// Copies the calendar of events of another year over the file's, once that is agreed to.
ExitStatus importEventsOf(const Workplace& workplace, const Call& call);
