// What a person sees happen at once: the main window drawn at another size, the next page of the
// wizard. On the platform without a screen, whose pictures are drawn in memory by the processor.

#include "core/clock.h"
#include "core/console_prompts.h"
#include "core/progress.h"
#include "core/screens/mdiorva.h"
#include "core/screens/tour_wizard.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/shell.h"
#include "core/system_clock.h"
#include "figures.h"
#include "store/screens/startupwiz.h"
#include "store/wizard_rules.h"
#include "store/year_answers_json.h"

#include <QApplication>
#include <QFile>

#include <stdexcept>

namespace {

class NoProgress : public Progress {
public:
    void open(const QString&) override {}
    void UpdateProgress(int, const QString&, const QString&) override {}
    void close() override {}
};

class NoShell : public Shell {
public:
    void ShellRun(const QString&, const QString&, const QString&, const QString&) override {}
    void PlaySoundFile(const QString&, bool) override {}
    QByteArray FetchText(const QString&) override { return {}; }
};

YearAnswers sampleAnswers() {
    QFile file(QStringLiteral(ORVA_SAMPLES "/year.json"));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("no samples");
    return readYearAnswers(file.readAll(), QLocale::c()).answers;
}

/// The frame over a folder of its own, as it stands without a year.
class Screen {
public:
    explicit Screen(const QString& folder)
        : m_settings(folder + QStringLiteral("/settings.ini"))
        , m_session(m_engine, m_settings, {m_prompts, m_progress, m_shell, m_clock}) {
        m_session.Start(folder);
        frame = std::make_unique<mdiORVA>(m_session, false);
        frame->show();
        QApplication::processEvents();
    }

private:
    dao::DBEngine m_engine;
    Settings m_settings;
    ConsolePrompts m_prompts;
    NoProgress m_progress;
    NoShell m_shell;
    SystemClock m_clock;
    Session m_session;

public:
    std::unique_ptr<mdiORVA> frame;
};

/// Lets everything be laid out that waits for it, and the whole frame be drawn.
void draw(mdiORVA& frame) {
    QApplication::sendPostedEvents();
    frame.repaint();
    QApplication::processEvents();
}

class Resize : public Work {
public:
    explicit Resize(const QString& folder) : m_screen(folder) {}
    void run() override {
        m_isLarge = !m_isLarge;
        m_screen.frame->resize(m_isLarge ? QSize(1280, 800) : QSize(1270, 790));
        draw(*m_screen.frame);
    }
    qint64 finish() override { return 1; }

private:
    Screen m_screen;
    bool m_isLarge = false;
};

/// From the classes to the first timetable, which is built anew: the longest step of the wizard.
class PageChange : public Work {
public:
    explicit PageChange(const QString& folder) : m_screen(folder) {
        m_screen.frame->ShowStartupWizard();
        m_wizard = m_screen.frame->findChild<StartupWiz*>();
        fillWizard(*m_wizard, sampleAnswers(), [](int) {});
    }
    void prepare() override {
        m_wizard->NextInSetup(QString::number(ClassesFrame));
        draw(*m_screen.frame);
    }
    void run() override {
        m_wizard->NextInSetup({});
        draw(*m_screen.frame);
    }
    qint64 finish() override { return 1; }

private:
    Screen m_screen;
    StartupWiz* m_wizard;
};

} // namespace

std::vector<Figure> screenFigures(const QString& folder) {
    constexpr int rounds = 40;
    std::vector<Figure> figures;
    figures.push_back({QStringLiteral("resize the main window"), 1, rounds,
                       std::make_unique<Resize>(folder + QStringLiteral("/resize")), nullptr});
    figures.push_back({QStringLiteral("wizard page change"), 1, rounds,
                       std::make_unique<PageChange>(folder + QStringLiteral("/wizard")), nullptr});
    return figures;
}
