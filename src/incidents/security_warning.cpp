#include "incidents/security_warning.h"

#include "core/prompts.h"
#include "core/settings.h"

using namespace Qt::StringLiterals;

bool MayShowIncidents(Settings& settings, Prompts& prompts) {
    const QString key = setting::keyOf(setting::Incidents);
    if (settings.readFlag(key, setting::ShowSecurityDialog))
        return true;
    BoxLook look;
    look.checkBox = u"Do not show this dialog again:"_s;
    const BoxAnswer answer =
        prompts.msg_Box(u"This utility may contain sensitive and private information, are "
                        "you sure you wish to display this information now?"_s,
                        YesNoButtons | WarningIcon, u"Security warning"_s, look);
    if (answer.ticked) {
        settings.CreateRegistryKey(key);
        settings.WriteRegistryValue(key, setting::ShowSecurityDialog, 1);
    }
    return answer == AnswerYes;
}
