#pragma once

#include "command.h"

/// All commands, in the order in which the usage names them. A new one is an entry here and a
/// function in the file of its family.
const QList<Command>& programCommands();
