#pragma once

#include "classes/class_settings.h"
#include "classes/screens/class_window.h"
#include "support/class_file.h"
#include "support/screen_checks.h"
#include "support/scripted_frame.h"
#include "support/year_session.h"

#include <QTableView>

#include <memory>

/// Three weeks of September 2024 and two classes: D with three pupils, taught Monday 2 and 3 (a
/// double lesson), Tuesday 2 and 4 and Thursday 5; E without pupils or lessons. Today is Monday,
/// the 9th.
class RegisterScreenTest : public YearSession {
protected:
    RegisterScreenTest() {
        session.SetWindows(&frame);
        openYear(answers());
        addPupils(session.CurrentDB, u"D"_s, {u"Ames,Ann"_s, u"O'Brien,Zoë"_s, u"Cole,Ed"_s});
    }
    ~RegisterScreenTest() override { session.SetWindows(nullptr); }

    static YearAnswers answers() {
        YearAnswers answers = oneWeekAnswers();
        answers.terms = {{QDate(2024, 9, 2), QDate(2024, 9, 20)}};
        const QString d = u"D"_s;
        answers.classes = {d, u"E"_s};
        answers.colours.clear();
        answers.colours[d] = 0x99FFCC;
        answers.weekA = {QStringList{{}, d, d}, {{}, d, {}, d}, {}, {{}, {}, {}, {}, d}, {}};
        return answers;
    }
    void show() {
        window = std::make_unique<ClassWindow>(session);
        window->resize(900, 480);
        window->show();
        QApplication::setActiveWindow(window.get());
    }
    void showRegister() {
        show();
        window->showView(RegisterView);
        grid().setFocus();
    }
    QTableView& grid() { return control<QTableView>(*window, u"RegisterGrid"_s); }
    QTableView& names() { return control<QTableView>(*window, u"DBGrid2"_s); }
    QToolButton& tool(int index) {
        return control<QToolButton>(*window, u"RegisterTools(%1)"_s.arg(index));
    }
    void clickName(int row, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(names().viewport(), Qt::LeftButton, modifiers,
                          names().visualRect(names().model()->index(row, 0)).center());
    }
    QAction& menuItem(const QString& caption) {
        for (QMenu* menu : window->findChildren<QMenu*>()) {
            for (QAction* action : menu->actions()) {
                if (action->text() == caption)
                    return *action;
            }
        }
        qFatal("no item %s", qPrintable(caption));
    }
    QString marksOf(int pupil) { return marksInFile(session.CurrentDB, u"D"_s, pupil); }

    ScriptedFrame frame;
    std::unique_ptr<ClassWindow> window;
};
