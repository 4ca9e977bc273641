#pragma once

#include "store/engine/jet_reader.h"

namespace dao {

/// Reads all that is a person's out of a Jet file. Raises 3343, and may crash, hang or take all
/// memory over a file that was made to: readJetFile is the safe way to it.
JetContent readJetContent(const QByteArray& file);

} // namespace dao
