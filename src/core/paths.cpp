#include "core/paths.h"

#include "core/core_settings.h"
#include "core/settings.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

QString ShortenPath(const QString& path, int limit) {
    constexpr int headLength = 3;
    const QString ellipsis = u"..."_s;
    const QString trimmed = path.trimmed();
    if (trimmed.size() <= limit)
        return trimmed;
    const qsizetype room = std::max<qsizetype>(limit - headLength - ellipsis.size(), 0);
    qsizetype tail = std::max<qsizetype>(trimmed.size() - room, headLength);
    const qsizetype separator = trimmed.indexOf(QDir::separator(), tail);
    const bool endsInName = separator >= 0 && separator < trimmed.size() - 1;
    if (endsInName)
        tail = separator;
    return trimmed.left(headLength) + ellipsis + trimmed.mid(tail);
}

FolderDefaults ReadFolderDefaults(const Settings& settings) {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString years = QDir::toNativeSeparators(documents + u"/ORVA/"_s);
    const auto row = [&](const QString& label, const Setting<QString>& kept,
                         const QString& below = {}) -> FolderDefault {
        const QString set = settings.get(kept);
        const QString folder = set.isEmpty() ? years + below : set;
        return {label, folder, set.isEmpty(), ShortenPath(folder.toLower())};
    };
    return {row(u"Open File Directory:"_s, setting::DefaultOpenFolder),
            row(u"Save File Directory:"_s, setting::DefaultSaveFolder),
            row(u"Backup File Directory:"_s, setting::DefaultBackupFolder,
                u"Backups"_s + QDir::separator())};
}

void MakeProposedFolder(const FolderDefault& row) {
    if (row.isProposed)
        QDir().mkpath(row.folder);
}
