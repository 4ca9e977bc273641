// What a person sees happen at once: the main window drawn at another size, the next page of the
// wizard. On the platform without a screen, whose pictures are drawn in memory by the processor.

#include "figures.h"
#include "frame/screens/main_window.h"
#include "frame/screens/window_table.h"
#include "quiet_session.h"
#include "sample_year.h"
#include "tour/screens/tour_wizard.h"
#include "year/screens/startup_wizard.h"
#include "year/wizard_rules.h"

#include <QApplication>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// The frame over a folder of its own, as it stands without a year.
class Screen {
public:
    explicit Screen(const QString& folder) : m_quiet(folder) {
        m_quiet.session().Start(folder);
        frame = std::make_unique<MainWindow>(m_quiet.session(), windowTable(), false);
        frame->show();
        QApplication::processEvents();
    }

private:
    QuietSession m_quiet;

public:
    std::unique_ptr<MainWindow> frame;
};

/// Lets everything be laid out that waits for it, and the whole frame be drawn.
void draw(MainWindow& frame) {
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
        m_screen.frame->open(ToolWindow::StartupWizard);
        m_wizard = m_screen.frame->findChild<StartupWizard*>();
        fillWizard(*m_wizard, sampleAnswers(), [](int) {});
    }
    void prepare() override {
        m_wizard->nextInSetup(QString::number(ClassesFrame));
        draw(*m_screen.frame);
    }
    void run() override {
        m_wizard->nextInSetup({});
        draw(*m_screen.frame);
    }
    qint64 finish() override { return 1; }

private:
    Screen m_screen;
    StartupWizard* m_wizard;
};

} // namespace

std::vector<Figure> screenFigures(const QString& folder) {
    constexpr int rounds = 40;
    std::vector<Figure> figures;
    figures.push_back({u"resize the main window"_s, 1, rounds,
                       std::make_unique<Resize>(folder + u"/resize"_s), nullptr});
    figures.push_back({u"wizard page change"_s, 1, rounds,
                       std::make_unique<PageChange>(folder + u"/wizard"_s), nullptr});
    return figures;
}
