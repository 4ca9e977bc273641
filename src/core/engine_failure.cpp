#include "core/engine_failure.h"

#include "core/prompts.h"
#include "store/engine/error.h"

void showEngineError(Prompts& prompts, const QString& title, const dao::EngineError& error,
                     int flags) {
    prompts.PlainBox(
        QStringLiteral("Error : %1\nError number %2").arg(error.description()).arg(error.number()),
        flags, title);
}

bool tryTelling(Prompts& prompts, const QString& title, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const dao::EngineError& error) {
        showEngineError(prompts, title, error, OkButton | CriticalIcon);
        return false;
    }
}
