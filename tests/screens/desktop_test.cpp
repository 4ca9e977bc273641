#include "controls/declined_boxes.h"
#include "core/version.h"
#include "desktop/screens/desktop_prompts.h"
#include "desktop/screens/desktop_shell.h"
#include "desktop/screens/password_dialog.h"
#include "desktop/screens/progress_dialog.h"
#include "frame/screens/about_dialog.h"
#include "frame/screens/splash_window.h"
#include "support/engine_files.h"
#include "support/recording_seams.h"
#include "support/screen_checks.h"

#include <QAccessible>
#include <QFileDialog>
#include <QMessageBox>
#include <QProgressBar>

using namespace std::chrono_literals;

namespace {

class DesktopTest : public testing::Test {
protected:
    /// A file of this content in the test's own folder.
    QString write(const QString& name, const QByteArray& content) {
        return writeFile(m_folder.filePath(name), content);
    }

    QTemporaryDir m_folder;
    TestSeams m_seams;
    DesktopPrompts m_prompts{m_seams.clock};
};

/// A desktop whose opener ends with a code and notes what it was given.
class FakeDesktop {
public:
    FakeDesktop(const QString& folder, int code) : m_notes(folder + u"/opened"_s) {
        const QString opener = writeFile(
            folder + u"/xdg-open"_s,
            u"#!/bin/sh\necho \"$1\" >> '%1'\nexit %2\n"_s.arg(m_notes).arg(code).toUtf8());
        QFile::setPermissions(opener, QFile::permissions(opener) | QFile::ExeOwner);
        qputenv("PATH", folder.toLocal8Bit() + ':' + m_path);
    }
    ~FakeDesktop() { qputenv("PATH", m_path); }
    FakeDesktop(const FakeDesktop&) = delete;
    FakeDesktop& operator=(const FakeDesktop&) = delete;

    QString opened() const { return QString::fromUtf8(bytesOf(m_notes)); }

private:
    QByteArray m_path = qgetenv("PATH");
    QString m_notes;
};

} // namespace

TEST_F(DesktopTest, APlainBoxShowsItsFlagsAndAnswers) {
    const struct {
        int flags;
        QMessageBox::Icon icon;
        QMessageBox::StandardButtons buttons;
        Qt::Key key;
        PromptAnswer answer;
    } cases[] = {
        {OkButton | WarningIcon, QMessageBox::Warning, QMessageBox::Ok, Qt::Key_Escape, AnswerOk},
        {OkCancelButtons, QMessageBox::NoIcon, QMessageBox::Ok | QMessageBox::Cancel,
         Qt::Key_Return, AnswerOk},
        {AbortRetryIgnoreButtons | CriticalIcon | SecondButtonDefault, QMessageBox::Critical,
         QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore, Qt::Key_Return,
         AnswerRetry},
        {AbortRetryIgnoreButtons, QMessageBox::NoIcon,
         QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore, Qt::Key_Escape,
         AnswerAbort},
        {YesNoButtons | QuestionIcon | SecondButtonDefault, QMessageBox::Question,
         QMessageBox::Yes | QMessageBox::No, Qt::Key_Return, AnswerNo},
        {YesNoCancelButtons | InformationIcon, QMessageBox::Information,
         QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, Qt::Key_Escape, AnswerCancel},
        {RetryCancelButtons, QMessageBox::NoIcon, QMessageBox::Retry | QMessageBox::Cancel,
         Qt::Key_Escape, AnswerCancel},
    };
    for (const auto& c : cases) {
        whenAsked([&c](QWidget& window) {
            auto& box = dynamic_cast<QMessageBox&>(window);
            EXPECT_EQ(box.windowTitle(), u"Action canceled"_s);
            EXPECT_EQ(box.text(), u"<Text>"_s);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), c.icon);
            EXPECT_EQ(box.standardButtons(), c.buttons);
            press(box, c.key);
        });
        EXPECT_EQ(m_prompts.PlainBox(u"<Text>"_s, c.flags, u"Action canceled"_s), c.answer)
            << c.flags;
    }
}

TEST_F(DesktopTest, WithNobodyThereEveryBoxIsDeclined) {
    const DeclinedBoxes nobody;
    const int flags = YesNoButtons | WarningIcon;
    EXPECT_EQ(m_prompts.PlainBox(u"Text"_s, flags, u"Title"_s), AnswerNo);
    EXPECT_TRUE(m_prompts.msg_Box(u"Text"_s, flags, u"Title"_s, {}) == AnswerNo);
    EXPECT_TRUE(m_prompts.msg_Box(u"Text"_s, OkButton, u"Title"_s, {}) == AnswerOk);
}

TEST_F(DesktopTest, ThePasswordIsHiddenFromEyesAndReaders) {
    const auto ask = [this](Qt::Key key) {
        whenAsked([key](QWidget& window) {
            EXPECT_EQ(window.windowTitle(), u"Enter Password"_s);
            auto& field = control<QLineEdit>(window, u"txtPassword"_s);
            QTest::keyClicks(&field, u"geheim 7"_s);
            EXPECT_FALSE(field.displayText().contains(u"geheim"_s));
            QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&field);
            EXPECT_TRUE(accessible->state().passwordEdit);
            EXPECT_FALSE(accessible->text(QAccessible::Value).contains(u"geheim"_s));
            checkScreen(window, u"password"_s);
            press(window, key);
        });
        return m_prompts.PromptForPassword();
    };
    EXPECT_EQ(ask(Qt::Key_Return), u"geheim 7"_s);
    EXPECT_EQ(ask(Qt::Key_Escape), QString());
}

TEST_F(DesktopTest, ASaveDialogTakesANameThatIsThereWithoutAsking) {
    const QString path = write(u"plan.bmp"_s, "x");
    whenAsked([](QWidget& window) {
        auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.nameFilters(),
                  (QStringList{u"Pictures (*.bmp *.png)"_s, u"All file types (*)"_s}));
        control<QLineEdit>(dialog, u"fileNameEdit"_s).setText(u"plan.bmp"_s);
        press(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(m_prompts.OpenFileDialog(
                  u" Save file as :"_s,
                  {{u"Pictures"_s, u"*.bmp;*.png"_s}, {u"All file types"_s, u"*.*"_s}},
                  m_folder.path(), ExplorerStyle | PathMustExist, true),
              path);
}

TEST_F(DesktopTest, TheShellTellsWhatCanNotBeOpened) {
    const QString page = write(u"lesson plan.html"_s, "<p>Maps</p>");
    const QString missing = m_folder.filePath(u"gone.doc"_s);
    const QString title = u"File/Folder execution error:"_s;
    DesktopShell shell(m_seams.prompts);
    {
        const FakeDesktop desktop(m_folder.path(), 0);
        m_seams.prompts.expect(PromptKind::Plain, title, AnswerOk);
        shell.ShellRun(u"Open"_s, missing, {}, {});
        EXPECT_EQ(m_seams.prompts.last().text,
                  u"This file could not be opened, please make sure that the file \nbelow can be "
                  "found on your system in the folders shown.\n\n"_s +
                      missing);
        shell.ShellRun(u"Open"_s, page, {}, {});
        shell.SendMail(u"head@school.example"_s, u"Week 3 & 4"_s, u"Dear all,\nsee you"_s);
        EXPECT_TRUE(QTest::qWaitFor([&] { return desktop.opened().count(u'\n') == 2; }));
        EXPECT_TRUE(desktop.opened().contains(page));
        EXPECT_TRUE(desktop.opened().contains(
            u"mailto:head@school.example?subject=Week%203%20%26%204&body=Dear%20all%2C%0Asee%20you"_s));
    }
    const FakeDesktop noProgram(m_folder.path(), 3);
    m_seams.prompts.expect(PromptKind::Plain, title, AnswerOk);
    shell.ShellRun(u"Open"_s, page, {}, {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_seams.prompts.seen().size() == 2; }));
}

TEST_F(DesktopTest, ASoundThatIsMissingOrNoneIsSilent) {
    DesktopShell shell(m_seams.prompts);
    int ended = 0;
    const auto end = [&ended] { ++ended; };
    shell.PlaySoundFile(m_folder.filePath(u"gone.wav"_s), true, end);
    EXPECT_EQ(ended, 1);
    shell.PlaySoundFile(write(u"broken.wav"_s, "RIFF"), false, end);
    shell.PlaySoundFile({}, false, {}); // what could play has to give way
    EXPECT_EQ(ended, 2);
}

TEST_F(DesktopTest, ProgressBlocksInputAndOutlivesWorkWithinWork) {
    QWidget main;
    main.show();
    DesktopProgress progress(&main);
    progress.UpdateProgress(10, u"before it is open"_s, {});
    {
        const ProgressWindow outer(progress, u"Creating the database"_s);
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_TRUE(window);
        progress.UpdateProgress(40, u"Planning sheets"_s, u"Week 12"_s);
        {
            const ProgressWindow inner(progress, u"Backup"_s);
            EXPECT_EQ(window->windowTitle(), u"Backup"_s);
        }
        EXPECT_EQ(window->windowTitle(), u"Creating the database"_s);
        bool ran = false;
        QMetaObject::invokeMethod(
            window, [&] { ran = true; }, Qt::QueuedConnection);
        progress.UpdateProgress(80, {}, u"Week 30"_s);
        EXPECT_TRUE(ran);
        EXPECT_EQ(control<QProgressBar>(*window, u"ProgressBar1"_s).value(), 80);
        EXPECT_EQ(control<QLabel>(*window, u"lblLine1"_s).text(), u"Planning sheets"_s);
        EXPECT_FALSE(window->close());
        checkScreen(*window, u"progress"_s);
    }
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST_F(DesktopTest, TheSplashGoesByItsTimerAndNeverTakesTheFocus) {
    SplashWindow splash(m_seams.clock);
    m_seams.clock.advance(0s);
    EXPECT_TRUE(splash.isVisible());
    EXPECT_FALSE(splash.isModal());
    EXPECT_TRUE(splash.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(splash.testAttribute(Qt::WA_ShowWithoutActivating));
    checkScreen(splash, u"splash"_s);
    m_seams.clock.advance(1min);
    EXPECT_FALSE(splash.isVisible());
}

TEST_F(DesktopTest, TheAboutBoxTellsTheVersion) {
    AboutDialog about;
    about.show();
    EXPECT_TRUE(about.accessibleDescription().contains(programVersion()));
    checkScreen(about, u"about"_s);
    press(about, Qt::Key_Return);
    EXPECT_FALSE(about.isVisible());
}
