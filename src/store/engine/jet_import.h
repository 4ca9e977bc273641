#pragma once

#include "store/engine/jet_reader.h"

namespace dao {

class Connection;

/// Makes the tables, relations and records of a genuine Jet file in an empty database.
void fillFromJet(Connection& connection, const JetContent& content);

} // namespace dao
