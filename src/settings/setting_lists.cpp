#include "settings/setting_lists.h"

#include "core/prompts.h"
#include "core/settings.h"
#include "incidents/incident_settings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QList<SettingEntry> titleEntries(const Settings& settings) {
    QList<SettingEntry> entries;
    settings.EnumRegistryValues(setting::keyOf(setting::IncidentTitles), entries);
    entries.removeIf([](const SettingEntry& entry) { return entry.name.toInt() <= 0; });
    std::sort(entries.begin(), entries.end(), [](const SettingEntry& a, const SettingEntry& b) {
        return a.name.toInt() < b.name.toInt();
    });
    return entries;
}

} // namespace

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

QStringList incidentTitles(const Settings& settings) {
    QStringList titles;
    for (const SettingEntry& entry : titleEntries(settings))
        titles += entry.content.toText();
    return titles;
}

void addIncidentTitle(Settings& settings, const QString& title) {
    const QString text = title.trimmed();
    const QList<SettingEntry> entries = titleEntries(settings);
    if (text.isEmpty() || incidentTitles(settings).contains(text))
        return;
    const int next = entries.isEmpty() ? 1 : entries.last().name.toInt() + 1;
    const QString key = setting::keyOf(setting::IncidentTitles);
    settings.CreateRegistryKey(key);
    settings.WriteRegistryValue(key, QString::number(next), text);
}

void removeIncidentTitle(Settings& settings, const QString& title) {
    for (const SettingEntry& entry : titleEntries(settings)) {
        if (entry.content.toText() == title)
            settings.DeleteRegistryValue(setting::keyOf(setting::IncidentTitles), entry.name);
    }
}
