#include "core/password_retry.h"

#include "core/prompts.h"
#include "store/engine/error.h"

using namespace Qt::StringLiterals;

bool askForPassword(Prompts& prompts, int failures, QString& password) {
    if (failures > 0)
        prompts.msg_Box(u"This password is invalid!\nPlease try again"_s, OkButton | WarningIcon,
                        u"Invalid Password"_s);
    const QString answer = prompts.PromptForPassword();
    if (answer.isEmpty())
        return false;
    password = answer;
    return true;
}

dao::Database openSource(const dao::DBEngine& engine, Prompts& prompts, const QString& path) {
    QString password;
    for (int failures = 0;; ++failures) {
        try {
            return engine.OpenDatabase(path, false, true, dao::connectText(password));
        } catch (const dao::EngineError& error) {
            if (error.number() != dao::WrongPassword)
                throw;
        }
        if (!askForPassword(prompts, failures, password))
            return {};
    }
}
