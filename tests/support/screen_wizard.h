#pragma once

#include "core/core_settings.h"
#include "frame/screens/main_window.h"
#include "frame/screens/window_table.h"
#include "support/screen_checks.h"
#include "support/year_session.h"
#include "year/screens/startup_wizard.h"

#include <QCheckBox>
#include <QPointer>
#include <QSignalSpy>

/// The frame without a year, and in it the start-up wizard as a person with a keyboard drives it.
class WizardTest : public YearSession {
protected:
    WizardTest() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
        for (const Setting<QString>& kept :
             {setting::DefaultOpenFolder, setting::DefaultSaveFolder, setting::DefaultBackupFolder})
            settings.set(kept, path(u"app/"_s));
        session.Start(path(u"app"_s));
    }
    ~WizardTest() override { QLocale::setDefault(QLocale::c()); }

    /// Where the wizard puts a file by itself.
    QString saved(const QString& name) const {
        return session.FolderDefaults[SaveFolder].folder + name;
    }

    /// Shows the frame and waits for the end of its start.
    void start() {
        frame = std::make_unique<MainWindow>(session, windowTable());
        QSignalSpy started(frame.get(), &MainWindow::started);
        frame->show();
        ASSERT_TRUE(!started.isEmpty() || started.wait());
        wizard = frame->findChild<StartupWizard*>();
        ASSERT_TRUE(wizard);
    }
    /// Lets windows go that were closed.
    static void settle() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    template<typename Control>
    Control& on(const char* name) {
        return control<Control>(*wizard, QString::fromLatin1(name));
    }
    QStringList items(const char* list) {
        QStringList texts;
        for (int row = 0; row < on<QListWidget>(list).count(); ++row)
            texts += on<QListWidget>(list).item(row)->text();
        return texts;
    }
    /// The number of the frame of the set-up that is shown; -1 on the first page.
    int shownFrame() {
        for (int number = 0; number < 7; ++number) {
            if (on<QWidget>(qPrintable(u"f1(%1)"_s.arg(number))).isVisible())
                return number;
        }
        return -1;
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        press(*frame, key, modifiers);
    }
    void type(const QString& text) { QTest::keyClicks(frame->focusWidget(), text); }
    void click(const char* button) { on<QPushButton>(button).click(); }
    /// Presses Tab until a control has the focus.
    void tabTo(const QString& name) {
        constexpr int mostControls = 40;
        for (int presses = 0; presses < mostControls; ++presses) {
            if (frame->focusWidget()->objectName() == name)
                return;
            key(Qt::Key_Tab);
        }
        ADD_FAILURE() << "Tab never comes to " << name.toStdString();
    }
    /// Picks an item of the combo box that has the focus.
    void pick(const QString& text) {
        auto* combo = qobject_cast<QComboBox*>(frame->focusWidget());
        ASSERT_TRUE(combo && combo->findText(text) >= 0) << text.toStdString();
        key(Qt::Key_Home);
        while (combo->currentText() != text)
            key(Qt::Key_Down);
    }

    void answerTeacher(const YearAnswers& answers) {
        tabTo(u"Combo1"_s);
        key(Qt::Key_A, Qt::ControlModifier);
        type(answers.title);
        key(Qt::Key_Tab);
        type(answers.name);
        key(Qt::Key_Tab);
        pick(answers.year);
        key(Qt::Key_Tab);
        pick(QString::number(answers.periodsPerDay));
        key(Qt::Key_Tab);
        if (answers.twoWeeks)
            key(Qt::Key_Space);
        key(Qt::Key_Return);
    }
    void answerClasses(const YearAnswers& answers) {
        for (auto code = answers.classes.crbegin(); code != answers.classes.crend(); ++code) {
            type(code->toLower());
            key(Qt::Key_Return);
        }
        EXPECT_EQ(items("List1"), answers.classes);
        key(Qt::Key_Return);
    }
    void answerWeek(const YearAnswers& answers, QChar letter) {
        const QString lists[] = {u"lbMon"_s, u"lbTue"_s, u"lbWed"_s, u"lbThu"_s, u"lbFri"_s};
        const QString suffix = letter == u'B' ? u"B"_s : QString();
        for (const QString& code : answers.classes) {
            tabTo(letter == u'B' ? u"Combo5"_s : u"Combo4"_s);
            pick(code);
            for (int day = 0; day < 5; ++day) {
                tabTo(lists[day] + suffix);
                key(Qt::Key_Home);
                for (int period = 1; period <= answers.periodsPerDay; ++period) {
                    if (classAt(answers.week(letter), day, period) == code)
                        key(Qt::Key_Space);
                    key(Qt::Key_Down);
                }
            }
        }
        key(Qt::Key_Return);
    }
    void answerTerms(const YearAnswers& answers) {
        for (auto term = answers.terms.crbegin(); term != answers.terms.crend(); ++term) {
            type(term->first.toString(u"d/M/yyyy"_s));
            key(Qt::Key_Tab);
            type(term->last.toString(u"d/M/yyyy"_s));
            key(Qt::Key_Return);
        }
        key(Qt::Key_Return);
    }
    /// From the first page to the last, by keys alone.
    void answerAll(const YearAnswers& answers) {
        key(Qt::Key_Return);
        answerTeacher(answers);
        answerClasses(answers);
        answerWeek(answers, u'A');
        if (answers.twoWeeks)
            answerWeek(answers, u'B');
        answerTerms(answers);
        if (answers.twoWeeks) {
            pick(answers.startWeek);
            key(Qt::Key_Return);
        }
    }

    std::unique_ptr<MainWindow> frame;
    QPointer<StartupWizard> wizard;
};
