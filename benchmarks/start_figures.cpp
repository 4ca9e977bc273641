// The start of the program, from the fork to its end as soon as its window is shown.

#include "figures.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// A program run without a screen and with folders of its own in place of the person's.
class Start : public Work {
public:
    Start(const QString& program, const QStringList& arguments, const QString& home) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.insert(u"HOME"_s, home);
        for (const char* kind :
             {"CONFIG_HOME", "DATA_HOME", "CACHE_HOME", "STATE_HOME", "RUNTIME_DIR"})
            environment.insert(u"XDG_"_s + QLatin1StringView(kind), home);
        m_process.setProgram(QCoreApplication::applicationDirPath() + u'/' + program);
        m_process.setArguments(arguments);
        m_process.setProcessEnvironment(environment);
    }

    void run() override {
        m_process.start();
        m_process.waitForFinished(-1);
    }
    qint64 finish() override {
        if (m_process.error() != QProcess::UnknownError ||
            m_process.exitStatus() != QProcess::NormalExit || m_process.exitCode() != 0)
            throw std::runtime_error(m_process.program().toStdString() + " did not start:\n" +
                                     m_process.readAllStandardError().toStdString());
        return 1;
    }

private:
    QProcess m_process;
};

} // namespace

std::vector<Figure> startFigures(const QString& folder) {
    const QString home = folder + u"/home"_s;
    QDir().mkpath(home);
    QFile::setPermissions(home, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    std::vector<Figure> figures;
    figures.push_back(
        {u"start the program"_s, 1.5, 40,
         std::make_unique<Start>(u"orva"_s, QStringList{u"--quit-when-shown"_s}, home),
         std::make_unique<Start>(u"bare_window"_s, QStringList(), home)});
    return figures;
}
