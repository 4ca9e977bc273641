#pragma once

#include "commands.h"

/// The documents for a word processor, each written to the file that is the last argument.
ExitStatus documentCover(const Workplace& workplace, const Call& call);
ExitStatus documentQuick(const Workplace& workplace, const Call& call);
ExitStatus documentWeekly(const Workplace& workplace, const Call& call);
ExitStatus documentTimetable(const Workplace& workplace, const Call& call);
ExitStatus documentSeating(const Workplace& workplace, const Call& call);
ExitStatus documentIncident(const Workplace& workplace, const Call& call);
ExitStatus documentPlan(const Workplace& workplace, const Call& call);
