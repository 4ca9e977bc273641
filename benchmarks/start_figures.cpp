// The start of the program, from the fork to its end as soon as the window is shown.

#include "figures.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>

namespace {

/// A program run without a screen and with folders of its own in place of the person's.
class Start : public Work {
public:
    Start(const QString& program, const QStringList& arguments, const QString& home) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("HOME"), home);
        for (const char* kind : {"CONFIG", "DATA", "CACHE", "STATE"})
            environment.insert(QStringLiteral("XDG_%1_HOME").arg(QLatin1StringView(kind)),
                               home + u'/' + QLatin1StringView(kind));
        m_process.setProgram(QCoreApplication::applicationDirPath() + u'/' + program);
        m_process.setArguments(arguments);
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    }

    void run() override {
        m_process.start();
        m_process.waitForFinished(-1);
    }
    qint64 finish() override {
        const bool shown = m_process.error() == QProcess::UnknownError &&
                           m_process.exitStatus() == QProcess::NormalExit &&
                           m_process.exitCode() == 0;
        return shown ? 1
                     : throw std::runtime_error(
                           qPrintable(m_process.program() + QStringLiteral(" did not start")));
    }

private:
    QProcess m_process;
};

} // namespace

std::vector<Figure> startFigures(const QString& folder) {
    const QString home = folder + QStringLiteral("/home");
    QDir().mkpath(home);
    std::vector<Figure> figures;
    figures.push_back(
        {QStringLiteral("start the program"), 1.5, 25,
         std::make_unique<Start>(QStringLiteral("orva"),
                                 QStringList{QStringLiteral("--quit-when-shown")}, home),
         std::make_unique<Start>(QStringLiteral("bare_window"), QStringList(), home)});
    return figures;
}
