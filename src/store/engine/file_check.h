#pragma once

#include "store/engine/engine.h"

namespace dao {

class Connection;

/// What DBEngine::CheckDatabase answers, for a file that is open. Writes nothing.
FileCheck checkTables(Connection& connection);

} // namespace dao
