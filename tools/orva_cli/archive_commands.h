#pragma once

#include "command.h"

/// Makes the archive of a class of the year, over any file of that name.
ExitStatus archiveClassOf(const Workplace& workplace, const Call& call);
