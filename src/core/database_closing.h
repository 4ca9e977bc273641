#pragma once

namespace dao {
class Database;
class Workspace;
} // namespace dao

class Prompts;

/// Closes every recordset of the database. A failure is shown in a box.
void CloseRecordsets(const dao::Database& database, Prompts& prompts);
/// Closes every database of the workspace and its recordsets. A failure is shown in a box.
void CloseAllDatabases(const dao::Workspace& workspace, Prompts& prompts);
