#pragma once

#include "commands.h"

/// Opens a call's year into the session, to change it. Raises RefusedCommand with the reason where
/// it does not open.
void openYear(const Workplace& workplace, const Call& call);

/// The same, with a class that the call's first argument names, which is answered. Raises
/// RefusedCommand where the year has no such class.
QString openClass(const Workplace& workplace, const Call& call);
