#pragma once

#include "store/engine/repair.h"

namespace dao {

class DatabaseCore;
class PageFile;

/// Writes all that the pages of a damaged file still tell into a new, empty file, with whole
/// indexes and relations. `copy` and `core` are that file's. Raises 3343 where no table can be
/// told, and what a full disk raises; the new file is then of no use.
QList<RepairedTable> salvage(const PageFile& file, DatabaseCore& core, const Database& copy,
                             const RepairKnowledge& knowledge);

} // namespace dao
