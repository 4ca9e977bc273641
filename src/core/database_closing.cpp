#include "core/database_closing.h"

#include "core/engine_failure.h"
#include "store/engine/engine.h"

namespace {

constexpr FailureBox recordsetsUnclosed{u"Close ALL Recordsets(s) Error", u"Error Number : %2",
                                        OkButton};
constexpr FailureBox databasesUnclosed{u"Close Database(s) Error", u"Error Number : %2", OkButton};

} // namespace

void CloseRecordsets(const dao::Database& database, Prompts& prompts) {
    tryTelling(prompts, recordsetsUnclosed, [&] {
        for (dao::Recordset recordset : database.Recordsets())
            recordset.Close();
    });
}

void CloseAllDatabases(const dao::Workspace& workspace, Prompts& prompts) {
    tryTelling(prompts, databasesUnclosed, [&] {
        for (dao::Database database : workspace.Databases())
            database.Close();
    });
}
