#pragma once

#include "controls/rich_text_box.h"
#include "frame/screens/main_window.h"
#include "frame/screens/window_table.h"
#include "support/planning_year.h"
#include "support/screen_checks.h"

#include <QMdiSubWindow>

#include <memory>

/// The program with an open year, and one of its planning sheets driven as a person does. Its today
/// is Monday 9 September 2024, in week 2, where 7A has Monday's periods 1 and 3 and Friday's 2.
template<typename Window, ToolWindow which>
class PlanningScreen : public PlanningYear {
protected:
    PlanningScreen() {
        session.Start(path(u"app"_s));
        frame = std::make_unique<MainWindow>(session, windowTable(), false);
        frame->show();
        session.DatabasePath = path();
        openYear(twoWeekAnswers());
        frame->EnableInput(true);
    }

    void open() {
        frame->open(which);
        window = frame->template findChild<Window*>();
        ASSERT_TRUE(window);
        resize(900, 600);
    }
    void resize(int width, int height) {
        window->parentWidget()->resize(width, height);
        QCoreApplication::processEvents();
    }
    void close() {
        frame->CloseOpenForms();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    template<typename Control>
    Control& on(const char* name) {
        return control<Control>(*window, QString::fromLatin1(name));
    }
    RichTextBox& box(const char* name) { return on<RichTextBox>(name); }
    QToolButton& button(const char* name) { return on<QToolButton>(name); }
    QString label(const char* name) { return on<QLabel>(name).text(); }
    void click(const char* name) { QTest::mouseClick(&on<QWidget>(name), Qt::LeftButton); }
    void type(const char* name, const QString& text) {
        box(name).setFocus();
        box(name).moveCursor(QTextCursor::End);
        QTest::keyClicks(&box(name), text);
    }

    /// A way of leaving what is shown.
    struct Way {
        const char* name;
        std::function<void()> leave;
    };
    /// Every way that both sheets have, behind those of one's own.
    std::vector<Way> ways(std::vector<Way> own) {
        own.push_back({"the window's own close", [this] { window->parentWidget()->close(); }});
        own.push_back({"all windows closed", [this] { close(); }});
        own.push_back({"another window", [this] {
                           frame->open(ToolWindow::StartupWizard);
                           QCoreApplication::processEvents();
                       }});
        return own;
    }

    std::unique_ptr<MainWindow> frame;
    Window* window = nullptr;
};
