#include "office/libre_office.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>

using namespace Qt::StringLiterals;

bool ConvertByLibreOffice(const QStringList& files, const QString& format, const QString& folder) {
    const QString program = QStandardPaths::findExecutable(u"soffice"_s);
    const QTemporaryDir profile;
    if (program.isEmpty() || !profile.isValid())
        return false;
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, QStringList{u"-env:UserInstallation="_s +
                                           QUrl::fromLocalFile(profile.path()).toString(),
                                       u"--headless"_s, u"--norestore"_s, u"--convert-to"_s, format,
                                       u"--outdir"_s, folder} +
                               files);
    constexpr int enough = 60000; // milliseconds; a first start makes the profile
    if (process.waitForFinished(enough))
        return true;
    process.kill();
    process.waitForFinished();
    return false;
}
