#include "office/libre_office.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>

#include <unistd.h>

#include <csignal>

using namespace Qt::StringLiterals;

bool ConvertByLibreOffice(const QStringList& files, const QString& format, const QString& folder) {
    const QString program = QStandardPaths::findExecutable(u"soffice"_s);
    const QTemporaryDir profile;
    if (program.isEmpty() || !profile.isValid())
        return false;
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setChildProcessModifier([] { setpgid(0, 0); }); // what it starts itself ends with it
    process.start(program, QStringList{u"-env:UserInstallation="_s +
                                           QUrl::fromLocalFile(profile.path()).toString(),
                                       u"--headless"_s, u"--norestore"_s, u"--convert-to"_s, format,
                                       u"--outdir"_s, folder} +
                               files);
    constexpr int enough = 60000; // milliseconds; a first start makes the profile
    if (process.waitForFinished(enough))
        return true;
    if (process.processId() > 0)
        kill(-static_cast<pid_t>(process.processId()), SIGKILL);
    process.waitForFinished();
    return false;
}
