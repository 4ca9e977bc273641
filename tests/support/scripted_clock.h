#pragma once

#include "core/played_clock.h"

/// Time as a test lets it pass.
using ScriptedClock = PlayedClock;
