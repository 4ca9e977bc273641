#include "incidents/incident_titles.h"

#include "core/settings.h"
#include "incidents/incident_settings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QStringList builtInTitles() {
    return {u"Rudeness to a member of staff"_s,
            u"Poor behaviour in the class room"_s,
            u"Poor behaviour around school"_s,
            u"Disruption of a lesson"_s,
            u"Bullying"_s,
            u"Fighting"_s,
            u"Accident"_s};
}

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

QStringList ownIncidentTitles(const Settings& settings) {
    QStringList titles;
    for (const SettingEntry& entry : titleEntries(settings))
        titles += entry.content.toText();
    return titles;
}

QStringList incidentTitles(const Settings& settings) {
    return builtInTitles() + ownIncidentTitles(settings);
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
