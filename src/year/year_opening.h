#pragma once

#include "core/session.h"

/// What the subsystems do when a file is opened as a year: a line for each in the lists behind it.
YearOpening yearOpening();
