#pragma once

#include "store/engine/repair.h"

/// What a repair of a year's file goes by: which tables a year has, in the order in which they are
/// made, as far as those that were found tell of its shape and its classes; and what it can't be
/// opened without, which is made anew from the planning sheets.
dao::RepairKnowledge yearKnowledge();
