#pragma once

#include "command.h"

/// Commands on the seating plans of a year. None leaves the file open. Each prints a line a desk,
/// in the order of their making and the teacher's last: `ID`, left, top, width, height, caption;
/// all lengths are in twips.

/// Makes a plan of a class: that of a room, or the default one, which is made anew where it stands
/// and that is agreed to. The classroom is 9000 by 6000 twips where nothing else is said.
ExitStatus makeSeatingPlan(const Workplace& workplace, const Call& call);

/// Gives the default plan of a class, which is made where there is none, the layout of another
/// class's, and saves it.
ExitStatus copySeatingPlan(const Workplace& workplace, const Call& call);
