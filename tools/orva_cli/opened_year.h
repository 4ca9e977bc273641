#pragma once

#include "commands.h"

/// Opens a call's year into the session, to change it. Raises RefusedCommand with the reason where
/// it does not open.
void openYear(const Workplace& workplace, const Call& call);
