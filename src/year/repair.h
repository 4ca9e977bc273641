#pragma once

#include "core/session.h"
#include "store/engine/repair.h"
#include "year/backup_files.h"

#include <optional>

/// Repair of a damaged file: what its whole pages hold is written into a new one, which takes its
/// place when it is finished; the damaged one stays beside it.

struct RepairOutcome {
    dao::RepairReport report;
    QString kept;     ///< the damaged file's new name; empty where the file was whole
    QString password; ///< that opens the mended file; empty for none
};

/// Asks, and then mends a damaged database in place; a protected one asks for its password. Tells
/// table by table what was saved and what was lost, or why nothing could be done. None when the
/// file is as it was, damaged.
std::optional<RepairOutcome> RepairDatabaseFile(const BackupContext& context, const QString& path);

/// What was made of each table, for a person: what is lost first, then what is whole.
QString repairText(const dao::RepairReport& report);

/// Opens a year's file as Session::OpenDatabaseFile does. Where it is damaged it offers to mend it,
/// and opens it then; without consent it answers OpenCancelled, since all was told.
OpenResult OpenOrRepair(Session& session, const QString& path, const QString& password);
