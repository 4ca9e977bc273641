#include "core/database_closing.h"

#include "core/prompts.h"
#include "store/engine/engine.h"
#include "store/engine/error.h"

namespace {

QString errorNumberText(const dao::EngineError& error) {
    return QStringLiteral("Error Number : ") + QString::number(error.number());
}

} // namespace

void CloseRecordsets(const dao::Database& database, Prompts& prompts) {
    try {
        for (dao::Recordset recordset : database.Recordsets())
            recordset.Close();
    } catch (const dao::EngineError& error) {
        prompts.PlainBox(errorNumberText(error), OkButton,
                         QStringLiteral("Close ALL Recordsets(s) Error"));
    }
}

void CloseAllDatabases(const dao::Workspace& workspace, Prompts& prompts) {
    try {
        for (dao::Database database : workspace.Databases())
            database.Close();
    } catch (const dao::EngineError& error) {
        prompts.PlainBox(errorNumberText(error), OkButton,
                         QStringLiteral("Close Database(s) Error"));
    }
}
