#include "desktop/screens/desktop_shell.h"

#include "core/file_state.h"
#include "core/prompts.h"
#include "core/shell_services.h"
#include "desktop/screens/late/late_services.h"

#include <QApplication>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QPixmap>
#include <QPointer>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// An opener that ran longer has opened something, whatever became of it (milliseconds).
constexpr qint64 FailsWithin = 20000;

/// An address rather than a path: it begins with a scheme.
bool isAddress(const QString& file) {
    return !file.startsWith(u'/') && !QUrl(file).scheme().isEmpty();
}

/// A program as the linker makes it. A script is a text first, and is shown rather than run.
bool isProgram(const QString& file) {
    if (!QFileInfo(file).isFile() || !QFileInfo(file).isExecutable())
        return false;
    const QMimeType type = QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchContent);
    return type.inherits(u"application/x-executable"_s) ||
           type.inherits(u"application/x-sharedlib"_s) ||
           type.inherits(u"application/x-pie-executable"_s);
}

bool startDesktopFile(const QString& file) {
    LateServices* services = lateServices();
    return services && services->startDesktopFile(file);
}

/// Takes the program's own windows off the screen, and puts them back where they were.
class WindowsAway {
public:
    WindowsAway() : m_active(QApplication::activeWindow()), m_focus(QApplication::focusWidget()) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && !window->isMinimized())
                m_windows.append({window, window->pos()});
        }
        for (const Window& each : std::as_const(m_windows))
            each.widget->hide();
    }
    ~WindowsAway() {
        for (const Window& each : std::as_const(m_windows)) {
            if (!each.widget)
                continue;
            if (!(each.widget->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)))
                each.widget->move(each.place); // else the window manager looks for a place
            each.widget->show();
        }
        if (m_active)
            m_active->activateWindow();
        if (m_focus)
            m_focus->setFocus(); // what is hidden hands it on
    }
    WindowsAway(const WindowsAway&) = delete;
    WindowsAway& operator=(const WindowsAway&) = delete;

private:
    struct Window {
        QPointer<QWidget> widget;
        QPoint place;
    };
    QList<Window> m_windows;
    QPointer<QWidget> m_active;
    QPointer<QWidget> m_focus;
};

/// LibreOffice's word processor; empty where it is not installed.
QString writerProgram() {
    return QStandardPaths::findExecutable(u"lowriter"_s);
}

/// What is gone stands on the screen until the windows below it have been painted.
void letWindowsGo() {
    constexpr std::chrono::milliseconds enough(300);
    QEventLoop waiting;
    QTimer::singleShot(enough, &waiting, &QEventLoop::quit);
    waiting.exec(QEventLoop::ExcludeUserInputEvents);
}

} // namespace

DesktopShell::DesktopShell(Prompts& prompts) : m_prompts(prompts) {}

DesktopShell::~DesktopShell() = default;

void DesktopShell::ShellRun(const QString&, const QString& file, const QString& parameters,
                            const QString& folder) {
    if (isStarter(file) && startDesktopFile(file))
        return;
    if (!parameters.isEmpty() || isProgram(file)) {
        if (!QProcess::startDetached(file, QProcess::splitCommand(parameters), folder))
            showFailure(file);
    } else if (isAddress(file) || FileExists(file)) {
        handToDesktop(file, folder);
    } else {
        showFailure(file);
    }
}

/// The desktop's opener tells by its exit code that it found no program. It may also run as long as
/// the program that it opened; it is left alone then, and outlives us.
void DesktopShell::handToDesktop(const QString& target, const QString& folder) {
    const QString opener = QStandardPaths::findExecutable(u"xdg-open"_s);
    if (opener.isEmpty()) {
        const QUrl url = isAddress(target) ? QUrl(target) : QUrl::fromLocalFile(target);
        if (!QDesktopServices::openUrl(url))
            showFailure(target);
        return;
    }
    auto* process = new QProcess;
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setWorkingDirectory(folder);
    QElapsedTimer running;
    running.start();
    connect(process, &QProcess::finished, this, [this, target, running](int code) {
        if (code != 0 && !running.hasExpired(FailsWithin))
            showFailure(target);
    });
    connect(process, &QProcess::errorOccurred, this, [this, target](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            showFailure(target);
    });
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    connect(process, &QProcess::errorOccurred, process, &QObject::deleteLater);
    process->start(opener, {target});
}

void DesktopShell::showFailure(const QString& file) {
    m_prompts.PlainBox(u"This file could not be opened, please make sure that the file \n"
                       "below can be found on your system in the folders shown.\n\n"_s +
                           file,
                       OkButton | WarningIcon, u"File/Folder execution error:"_s);
}

bool DesktopShell::HasWordProcessor() {
    if (!writerProgram().isEmpty())
        return true;
    LateServices* services = lateServices();
    return services && (services->opens("application/rtf") || services->opens("text/rtf"));
}

void DesktopShell::OpenNewDocument(const QString& path) {
    const QString writer = writerProgram();
    if (writer.isEmpty())
        handToDesktop(path, {});
    else if (!QProcess::startDetached(writer, {u"-n"_s, path}))
        showFailure(path);
}

void DesktopShell::PlaySoundFile(const QString& path, bool loop,
                                 const std::function<void()>& ended) {
    const bool plays = FileExists(path);
    m_mayPlay = m_mayPlay || plays;
    LateServices* services = m_mayPlay ? lateServices() : nullptr; // else none plays to be ended
    if (services)
        services->playSound(plays ? path : QString(), loop, plays ? ended : nullptr);
    if (ended && !(services && plays))
        ended();
}

void DesktopShell::Notify(const QString& text) {
    if (LateServices* services = lateServices())
        services->notify(text);
}

void DesktopShell::WhenWoken(const std::function<void()>& act) {
    if (LateServices* services = lateServices())
        services->whenWoken(act);
}

PowerStatus DesktopShell::GetSystemPowerStatus() {
    LateServices* services = lateServices();
    const std::optional<PowerSupply> told = services ? services->power() : std::nullopt;
    return powerStatus(told ? *told : readKernelPower(u"/sys/class/power_supply"_s));
}

QString DesktopShell::SetSystemPowerState(bool suspend, bool force) {
    LateServices* services = lateServices();
    return services ? services->sleep(suspend, force) : u"A part of the program is missing."_s;
}

QImage DesktopShell::CaptureScreen() {
    const WindowsAway away;
    letWindowsGo();
    LateServices* services = lateServices();
    const std::optional<QImage> portal = services ? services->captureByPortal() : std::nullopt;
    // Where there is a portal its answer stands: a person who has said no is not got round.
    return portal ? *portal : QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

QByteArray DesktopShell::FetchText(const QString& address) {
    LateServices* services = lateServices();
    return services ? services->fetch(address) : QByteArray();
}
