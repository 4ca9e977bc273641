#include "classes/register_keys.h"

#include "classes/class_settings.h"
#include "core/prompts.h"
#include "core/settings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar Escape = u'\x1B';
constexpr QChar Backspace = u'\b';
constexpr QChar Zero = u'0';

} // namespace

KeyArray readRegisterKeys(const Settings& settings, Prompts& prompts) {
    KeyArray keys;
    keys.marks = {PresentMark, u"\\"_s, AbsentMark};
    QList<SettingEntry> own;
    const SettingStatus status =
        settings.EnumRegistryValues(setting::keyOf(setting::RegisterKey), own);
    if (status == SettingUnreadable)
        prompts.PlainBox(
            u"There was an error populating the Key Codes:\n"
            "Error : A key code in the settings can't be read.\nError number : %1"_s.arg(status),
            OkButton | WarningIcon, u"Error getting Keycodes"_s);
    for (const SettingEntry& entry : std::as_const(own)) {
        keys.lines += entry.name + u'=' + entry.content.toText();
        keys.marks += entry.name;
    }
    return keys;
}

QStringList fixedKeyLines() {
    return {u"/ or \\ = Present"_s, u"0 = Absent"_s};
}

QStringList markLines(const KeyArray& keys) {
    return QStringList{u"/ = Present"_s, u"\\ = Present"_s, u"O = Absent"_s} + keys.lines;
}

KeyEffect registerKey(const KeyArray& keys, const QString& key, QString& mark) {
    if (key == Escape || key == Backspace)
        return KeyEffect::Pass;
    // By the character: a cell holds one, and the capital of a word may be longer.
    const QString capital = key.size() == 1 ? QString(key.front().toUpper()) : key.toUpper();
    const bool isPermitted =
        std::any_of(keys.marks.begin(), keys.marks.end(),
                    [&capital](const QString& each) { return each.toUpper() == capital; });
    if (capital.isEmpty() || !(isPermitted || capital == Zero))
        return KeyEffect::Discard;
    mark = isPermitted ? capital : AbsentMark;
    return KeyEffect::Mark;
}
