// Wires the seams and starts the main window.
//
// The program reads no command line of the person's. Four words serve the project's own commands:
// `--tour FOLDER` plays the tour; `--sample FOLDER` opens the `sample.mdb` of that folder, where
// everything else is kept too that otherwise is the person's; for ./bench, `--quit-when-shown` ends
// once the frame stands and `--quit-when-opened` once what the start opens is painted too.

#include "controls/family_style.h"
#include "controls/icons.h"
#include "core/core_settings.h"
#include "core/program_settings.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/system_clock.h"
#include "core/termination_signals.h"
#include "core/toolkit_settings.h"
#include "core/version.h"
#include "desktop/screens/desktop_prompts.h"
#include "desktop/screens/desktop_shell.h"
#include "desktop/screens/progress_dialog.h"
#include "frame/screens/accessible_program.h"
#include "frame/screens/main_window.h"
#include "frame/screens/splash_window.h"
#include "frame/screens/window_table.h"
#include "office/late_mail_client.h"
#include "office/word_document.h"
#include "organiser/screens/reminder_desk.h"
#include "tour/screens/tour.h"
#include "year/year_opening.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPointer>
#include <QStandardPaths>
#include <QStyle>

#include <cstdlib>
#include <optional>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

/// Everything that is kept for a person lies in one folder, and the start opens the sample there.
void keepSampleIn(const QString& folder, Settings& settings) {
    const Settings::Batch whole(settings);
    settings.set(setting::DefaultDatabasePath, folder + u"/sample.mdb"_s);
    settings.set(setting::DontShowStartup, true);
    settings.set(setting::Open_Planning, true);
    for (const Setting<QString>& kept :
         {setting::DefaultOpenFolder, setting::DefaultSaveFolder, setting::DefaultBackupFolder})
        settings.set(kept, folder + u'/');
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    // The longest part of a start, which the first text waits for: until then there is enough to
    // do.
    std::jthread fonts([] { QFontDatabase::families(); });
    QApplication::setStyle(new FamilyStyle(QApplication::style()->name())); // the desktop's own
    QCoreApplication::setApplicationName(u"ORVA"_s);
    QCoreApplication::setApplicationVersion(programVersion());
    QApplication::setWindowIcon(icon(u"orva"_s));
    showContextMenusToAssistiveTools();
    const QStringList arguments = QCoreApplication::arguments();

    KeepToolkitSettingsPrivate();
    dao::DBEngine engine;
    const QString sample = arguments.value(1) == u"--sample" ? arguments.value(2) : QString();
    Settings settings(sample.isEmpty() ? Settings::defaultFile() : sample + u"/settings.ini"_s);
    if (!sample.isEmpty())
        keepSampleIn(sample, settings);
    SystemClock clock;
    DesktopPrompts prompts(clock);
    DesktopProgress progress;
    DesktopShell shell(prompts);
    LateMailClient mail;
    Session session(engine, settings, {prompts, progress, shell, clock, mail}, yearOpening());

    const bool playsTour = arguments.value(1) == u"--tour";
    QPointer<SplashWindow> splash = playsTour ? nullptr : new SplashWindow(clock);
    session.Start(sample.isEmpty()
                      ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
                      : sample);
    RemoveHandedDocuments(session.AppPath);
    MainWindow frame(session, windowTable(), !playsTour, splash);
    std::optional<ReminderDesk> reminders;
    if (!playsTour)
        reminders.emplace(session, frame);
    prompts.SetMainWindow(&frame);
    progress.SetMainWindow(&frame);
    const TerminationSignals termination;
    QObject::connect(&termination, &TerminationSignals::terminated, &frame, &MainWindow::Terminate);
    if (arguments.value(1) == u"--quit-when-shown")
        QObject::connect(&frame, &MainWindow::shown, &application, [] { QApplication::exit(); });
    if (arguments.value(1) == u"--quit-when-opened")
        QObject::connect(&frame, &MainWindow::started, &application, [] {
            QCoreApplication::sendPostedEvents(); // lays out and paints what has been opened
            std::_Exit(0);                        // closing it is no part of the start
        });
    fonts.join(); // from here on there is one thread
    if (playsTour) {
        frame.show();
        return playTour(session, frame, arguments.value(2)) ? 0 : 1;
    }
    frame.showMaximized(); // one size on one place, as large as the screen allows
    return QApplication::exec();
}
