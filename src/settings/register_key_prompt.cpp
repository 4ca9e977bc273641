#include "settings/register_key_prompt.h"

#include "core/prompts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString askRegisterKey(Prompts& prompts, const QStringList& present) {
    QString entry =
        prompts
            .input_box(u"Please enter a character that you would like to be able to enter into the "
                       "register, followed by an = sign and then a short description.\n\n"
                       "   E.G L=Late , H=No homework"_s,
                       OkCancelButtons, u"Add a Character"_s, {})
            .trimmed();
    if (entry.isEmpty())
        return {};
    if (entry.size() < 2 || entry.at(1) != u'=') {
        prompts.msg_Box(u"Your entry must be a single letter, followed by an equals sign, followed "
                        "by a description."_s,
                        OkButton | WarningIcon, u"Invalid Entry"_s);
        return {};
    }
    const QString letter = entry.left(1).toUpper();
    const auto isTaken = [&](const QString& row) { return row.left(1).toUpper() == letter; };
    if (std::any_of(present.begin(), present.end(), isTaken)) {
        prompts.msg_Box(u"You already have a description for the character '%1'\n"
                        "Please choose another character for this description."_s.arg(letter),
                        OkButton | WarningIcon, u"Duplicate Entry"_s);
        return {};
    }
    return letter + entry.mid(1);
}
