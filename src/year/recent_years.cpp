#include "year/recent_years.h"

#include "core/settings.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView RecentKey = u"Recent";

QString recentValue(qsizetype place) {
    return u"Year%1"_s.arg(place + 1);
}

QStringList notedYears(const Settings& settings) {
    QStringList paths;
    for (qsizetype place = 0; place < MostRecentYears; ++place) {
        const QString path = settings.get(Setting<QString>{RecentKey, recentValue(place)});
        if (!path.isEmpty())
            paths += path;
    }
    return paths;
}

} // namespace

QStringList RecentYears(const Settings& settings) {
    QStringList paths = notedYears(settings);
    paths.removeIf([](const QString& path) { return !QFileInfo::exists(path); });
    return paths;
}

void NoteRecentYear(Settings& settings, const QString& path) {
    QStringList paths = notedYears(settings);
    if (paths.value(0) == path)
        return;
    paths.removeAll(path);
    paths.prepend(path);
    const Settings::Batch whole(settings);
    for (qsizetype place = 0; place < MostRecentYears && place < paths.size(); ++place)
        settings.set(Setting<QString>{RecentKey, recentValue(place)}, paths[place]);
}
