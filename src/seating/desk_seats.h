#pragma once

#include "seating/desk.h"

/// A desk in words, for who does not see the plan: caption, row from the top of the plan and place
/// in it from the left, both from 1 ("Ann Lee, row 2, desk 3"). Desks whose upper edges are about
/// as high stand in one row; the teacher's is in none. In the order of the desks.
QStringList spokenDesks(const Desks& desks);
