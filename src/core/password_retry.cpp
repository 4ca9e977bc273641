#include "core/password_retry.h"

#include "core/prompts.h"

bool askForPassword(Prompts& prompts, int failures, QString& password) {
    if (failures > 0)
        prompts.msg_Box(QStringLiteral("This password is invalid!\nPlease try again"),
                        OkButton | WarningIcon, QStringLiteral("Invalid Password"));
    const QString answer = prompts.PromptForPassword();
    if (answer.isEmpty())
        return false;
    password = answer;
    return true;
}
