// "Archive a class" in the frame, from its command and from the class window, by keys.

#include "frame/screens/frame_menus.h"
#include "frame/screens/main_window.h"
#include "frame/screens/window_table.h"
#include "frame/year_roads.h"
#include "support/class_file.h"
#include "support/screen_checks.h"
#include "support/year_session.h"

#include <QFileInfo>
#include <QStackedWidget>

namespace {

class ArchiveDialogTest : public YearSession {
protected:
    ArchiveDialogTest() {
        session.Start(path(u"app"_s));
        session.FolderDefaults[SaveFolder].folder = folder.path() + u'/';
        frame = std::make_unique<MainWindow>(session, windowTable(), false);
        frame->show();
        openYear(twoWeekAnswers());
        session.DatabasePath = path();
    }
    /// Drives the dialog that something leads to, with a window open.
    void whileArchiving(const std::function<void()>& lead,
                        const std::function<void(QWidget&)>& act) {
        frame->open(ToolWindow::Timetable);
        whenAsked([&](QWidget& dialog) {
            EXPECT_EQ(dialog.objectName(), u"Archivefrm"_s);
            EXPECT_TRUE(frame->visible().isEmpty());
            EXPECT_FALSE(command().isEnabled());
            act(dialog);
        });
        lead();
        EXPECT_TRUE(command().isEnabled());
    }
    QAction& command() { return frame->menus().action(FrameCommand::ArchiveClass); }

    std::unique_ptr<MainWindow> frame;
};

} // namespace

TEST_F(ArchiveDialogTest, StandsInThePopupOfTheTools) {
    QMenu& tools = frame->menus().popup(FrameCommand::ToolsMenu);
    for (int opened = 0; opened < 2; ++opened)
        findWindow(windowTable(), ToolWindow::UserTools)->fill(session, tools);
    QStringList captions;
    for (const QAction* action : tools.actions())
        captions += action->isSeparator() ? u"-"_s : action->text();
    EXPECT_EQ(captions.join(u'|'), u"Shortcuts|-|Archive Class...|-|Change Week Allocations...|-|"
                                   "Batery Status...|System Standby"_s);
}

TEST_F(ArchiveDialogTest, ArchivesTheClassThatIsPickedAndOpensTheArchive) {
    whileArchiving([&] { command().trigger(); },
                   [&](QWidget& dialog) {
                       checkScreen(dialog, u"Archivefrm"_s);
                       auto& classes = control<QListWidget>(dialog, u"CL1"_s);
                       EXPECT_EQ(classes.count(), 3);
                       press(dialog, Qt::Key_Down);
                       press(dialog, Qt::Key_Return);
                       auto& name = control<QLineEdit>(dialog, u"Text1"_s);
                       EXPECT_EQ(name.text(), u"8X.mdb"_s);
                       checkScreen(dialog, u"Archivefrm_name"_s);
                       name.clear();
                       seams.prompts.expect(PromptKind::Plain, u"Invalid Filename"_s, AnswerOk);
                       press(dialog, Qt::Key_Return);
                       QTest::keyClicks(&name, u"year"_s); // the year's own name
                       seams.prompts.expect(PromptKind::Plain, u"Archive Class"_s, AnswerOk);
                       press(dialog, Qt::Key_Return);
                       EXPECT_TRUE(dialog.isVisible());
                       name.setText(u"old"_s);
                       seams.prompts.expect(PromptKind::Message, u"Archive Complete"_s, AnswerYes);
                       press(dialog, Qt::Key_Return);
                   });
    EXPECT_EQ(session.CurrentDB.Name(), path(u"old.mdb"_s));
    EXPECT_TRUE(frame->windowTitle().endsWith(u"old.mdb"_s));
}

TEST_F(ArchiveDialogTest, OfferedByTheDeletionOfAClassAndGivenUp) {
    frame->open(ToolWindow::Classes, u"9C"_s);
    whileArchiving([&] { ArchiveClassCommand(session, *frame, u"9C"_s); },
                   [&](QWidget& dialog) {
                       EXPECT_EQ(control<QListWidget>(dialog, u"CL1"_s).currentItem()->text(),
                                 u"9C"_s);
                       seams.prompts.expect(PromptKind::Plain, u"Cancel Archive"_s, AnswerNo);
                       press(dialog, Qt::Key_Escape);
                       EXPECT_TRUE(dialog.isVisible());
                       seams.prompts.expect(PromptKind::Plain, u"Cancel Archive"_s, AnswerYes);
                       press(dialog, Qt::Key_Escape);
                   });
    EXPECT_EQ(session.CurrentDB.Name(), path());
    EXPECT_FALSE(QFileInfo::exists(path(u"9C.mdb"_s)));
}
