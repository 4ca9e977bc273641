#include "organiser/sound_list.h"

#include "core/settings.h"
#include "organiser/reminder_settings.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>
#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString soundValue(qsizetype place) {
    return u"Sound%1"_s.arg(place + 1);
}

QStringList notedSounds(const Settings& settings) {
    QStringList paths;
    for (qsizetype place = 0; place < MostKeptSounds; ++place) {
        const QString path =
            settings.get(Setting<QString>{setting::ReminderSounds, soundValue(place)});
        if (!path.isEmpty())
            paths += path;
    }
    return paths;
}

struct RecentSound {
    QString path;
    QDateTime used;
};

/// The wave files in a list of the desktop's, as far as it can be read.
QStringList recentSounds(const QString& recentlyUsed) {
    QFile file(recentlyUsed);
    QList<RecentSound> sounds;
    if (file.open(QIODevice::ReadOnly)) {
        QXmlStreamReader xml(&file);
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"bookmark"_s)
                continue;
            const QXmlStreamAttributes attributes = xml.attributes();
            const QString path = QUrl(attributes.value(u"href"_s).toString()).toLocalFile();
            if (path.endsWith(u".wav"_s, Qt::CaseInsensitive))
                sounds += {path, QDateTime::fromString(attributes.value(u"modified"_s).toString(),
                                                       Qt::ISODate)};
        }
    }
    std::stable_sort(sounds.begin(), sounds.end(),
                     [](const RecentSound& a, const RecentSound& b) { return a.used > b.used; });
    QStringList paths;
    for (const RecentSound& sound : sounds)
        paths += sound.path;
    return paths;
}

} // namespace

QStringList ReminderSounds(const Settings& settings, const QString& recentlyUsed) {
    QStringList paths = notedSounds(settings) + recentSounds(recentlyUsed);
    paths.removeDuplicates();
    paths.removeIf([](const QString& path) { return !QFileInfo(path).isFile(); });
    return paths;
}

QString recentlyUsedFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           u"/recently-used.xbel"_s;
}

void NoteReminderSound(Settings& settings, const QString& path) {
    QStringList paths = notedSounds(settings);
    if (paths.value(0) == path)
        return;
    paths.removeAll(path);
    paths.prepend(path);
    const Settings::Batch whole(settings);
    for (qsizetype place = 0; place < MostKeptSounds && place < paths.size(); ++place)
        settings.set(Setting<QString>{setting::ReminderSounds, soundValue(place)}, paths[place]);
}
