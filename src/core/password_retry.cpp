#include "core/password_retry.h"

#include "core/prompts.h"

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
