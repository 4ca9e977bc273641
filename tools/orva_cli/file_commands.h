#pragma once

#include "command.h"

/// Commands on a year's file as a whole. None leaves it open.

/// Prints a line a table: name, records, `ok` or what is wrong. Changes nothing in the file; brings
/// no older one up to date, and reads a genuine Jet file as it stands. Fails where anything is
/// wrong, or where the file is not a year's. A change of its weeks that was broken off is told and,
/// with consent, finished.
ExitStatus checkYear(const Workplace& workplace, const Call& call);

/// Mends the file, once that is agreed to, and prints its path.
ExitStatus repairYear(const Workplace& workplace, const Call& call);

/// Makes the newest backup and prints its path; with `--compact` then that of the compacted file,
/// which is the year's from then on. Refuses what is not a year's file of the program's own.
ExitStatus backUpYear(const Workplace& workplace, const Call& call);
