#include "classes/register_keys.h"

#include "classes/class_settings.h"
#include "core/settings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar Escape = u'\x1B';
constexpr QChar Backspace = u'\b';

} // namespace

KeyArray readRegisterKeys(const Settings& settings) {
    KeyArray keys;
    keys.marks = {PresentMark, u"\\"_s, AbsentMark};
    QList<SettingEntry> own;
    settings.EnumRegistryValues(setting::keyOf(setting::RegisterKey), own);
    for (const SettingEntry& entry : std::as_const(own)) {
        keys.lines += entry.name + u'=' + entry.content.toText();
        keys.marks += entry.name;
    }
    return keys;
}

QStringList fixedKeyLines() {
    return {u"/ or \\ = Present"_s, u"0 = Absent"_s};
}

KeyEffect registerKey(const KeyArray& keys, const QString& key, QString& mark) {
    if (key == Escape || key == Backspace)
        return KeyEffect::Pass;
    // By the character: a cell holds one, and the capital of a word may be longer.
    const QString capital = key.size() == 1 ? QString(key.front().toUpper()) : key.toUpper();
    const bool isPermitted =
        std::any_of(keys.marks.begin(), keys.marks.end(),
                    [&capital](const QString& each) { return each.toUpper() == capital; });
    if (capital.isEmpty() || !isPermitted)
        return KeyEffect::Discard;
    mark = capital;
    return KeyEffect::Mark;
}
