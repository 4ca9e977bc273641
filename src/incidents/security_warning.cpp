#include "incidents/security_warning.h"

#include "core/prompts.h"
#include "core/settings.h"
#include "incidents/incident_settings.h"

using namespace Qt::StringLiterals;

bool MayShowIncidents(Settings& settings, Prompts& prompts) {
    if (settings.get(setting::ShowSecurityDialog))
        return true;
    BoxLook look;
    look.checkBox = u"Do not show this dialog again:"_s;
    const BoxAnswer answer =
        prompts.msg_Box(u"This utility may contain sensitive and private information, are "
                        "you sure you wish to display this information now?"_s,
                        YesNoButtons | WarningIcon, u"Security warning"_s, look);
    if (answer.ticked && answer == AnswerYes)
        settings.set(setting::ShowSecurityDialog, true);
    return answer == AnswerYes;
}
