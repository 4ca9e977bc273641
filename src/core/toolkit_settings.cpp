#include "core/toolkit_settings.h"

#include "store/engine/error.h"
#include "store/engine/files.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

using namespace Qt::StringLiterals;

void KeepToolkitSettingsPrivate() {
    const QFileInfo file(QSettings(u"QtProject"_s).fileName());
    if (file.exists())
        return dao::makePrivate(file.filePath());
    try {
        QDir().mkpath(file.path());
        dao::makePrivateFile(file.filePath());
    } catch (const dao::EngineError&) {
        // Where nothing can be written the toolkit keeps nothing either.
    }
}
