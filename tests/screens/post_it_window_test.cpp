// Post-it notes, from the menu of the main window to their rows.

#include "organiser/post_it_rows.h"
#include "organiser/post_it_settings.h"
#include "organiser/screens/post_it_window.h"
#include "richtext/plain_text.h"
#include "support/screen_planning.h"

namespace {

class PostItWindowTest : public PlanningScreen<PostItWindow, ToolWindow::Postits> {
protected:
    void TearDown() override {
        frame.reset();
        session.CloseAllDatabases();
    }
    void choose(FrameCommand command) {
        frame->run(ToolWindow::Postits, command, {});
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QList<PostItWindow*> notes() { return frame->findChildren<PostItWindow*>(); }
    static RichTextBox& body(PostItWindow& note) { return control<RichTextBox>(note, u"RT1"_s); }
    QStringList stored() {
        QStringList texts;
        for (const PostIt& note : readPostIts(session.CurrentDB))
            texts += richtext::plainText(note.memo).remove(u'\r');
        return texts;
    }
    PostIt first() { return readPostIts(session.CurrentDB).value(0); }
    /// A new note with a text, which is not saved yet.
    PostItWindow& written(const QString& text) {
        choose(FrameCommand::PostitNew);
        PostItWindow& note = *notes().last();
        body(note).setFocus();
        QTest::keyClicks(&body(note), text);
        return note;
    }
    bool isOffered(FrameCommand command) {
        QMenu menu;
        auto* action = menu.addAction(u"note"_s);
        action->setObjectName(commandEntry(command).name.toString());
        findWindow(windowTable(), ToolWindow::Postits)->fill(session, menu);
        return action->isEnabled();
    }
};

} // namespace

TEST_F(PostItWindowTest, ANewNoteSaysWhatItIsForUntilSomebodyWrites) {
    EXPECT_FALSE(isOffered(FrameCommand::PostitShowAll));
    choose(FrameCommand::PostitNew);
    ASSERT_EQ(notes().size(), 1);
    PostItWindow& note = *notes().first();
    EXPECT_TRUE(isNewNoteText(first().memo));
    EXPECT_EQ(body(note).plainText().remove(u'\r'), newNoteText().remove(u'\r'));
    EXPECT_FALSE(body(note).hasFocus());
    EXPECT_TRUE(isOffered(FrameCommand::PostitDeleteAll));
    press(note, Qt::Key_Tab);
    ASSERT_TRUE(body(note).hasFocus());
    QTest::keyClicks(&body(note), u"Dad's call"_s);
    seams.clock.advance(std::chrono::seconds(2));
    EXPECT_EQ(stored(), QStringList(u"Dad's call"_s));
    checkScreen(note, u"PostitFrm"_s);
}

TEST_F(PostItWindowTest, PlaceAndShrinkingAreKept) {
    PostItWindow& note = written(u"place"_s);
    note.move(300, 200);
    control<QAbstractButton>(note, u"Shrink"_s).click();
    EXPECT_FALSE(body(note).isVisible());
    choose(FrameCommand::PostitHideAll);
    EXPECT_TRUE(notes().isEmpty());
    EXPECT_EQ(first().top, 200 * 15);
    EXPECT_EQ(first().left, 300 * 15);
    EXPECT_TRUE(first().isShrunk);
    choose(FrameCommand::PostitShowAll);
    choose(FrameCommand::PostitShowAll);
    ASSERT_EQ(notes().size(), 1);
    EXPECT_EQ(notes().first()->pos(), QPoint(300, 200));
    EXPECT_FALSE(body(*notes().first()).isVisible());
    control<QAbstractButton>(*notes().first(), u"Shrink"_s).click();
    EXPECT_EQ(notes().first()->height() * 15, FullNoteHeight);
}

TEST_F(PostItWindowTest, DeletingAsksAndTakesTheWindowsAlong) {
    PostItWindow& note = written(u"one"_s);
    written(u"two"_s);
    seams.prompts.expect(PromptKind::Message, u"Delete ALL Post-it's"_s, AnswerNo);
    choose(FrameCommand::PostitDeleteAll);
    EXPECT_EQ(notes().size(), 2);
    const auto erase = [&](PostItWindow& from, PromptAnswer answer) {
        seams.prompts.expect(PromptKind::Message, u"Delete Post-it"_s, answer);
        QContextMenuEvent wish(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QApplication::sendEvent(&control<QWidget>(from, u"Picture1"_s), &wish);
        control<QMenu>(from, u"mnuMain"_s).actions().at(1)->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    erase(note, AnswerNo); // closes it, and keeps it
    EXPECT_EQ(notes().size(), 1);
    EXPECT_EQ(stored(), QStringList({u"one"_s, newNoteText().remove(u'\r')}));
    erase(*notes().first(), AnswerYes);
    EXPECT_EQ(stored(), QStringList(u"one"_s));
    written(u"three"_s);
    seams.prompts.expect(PromptKind::Message, u"Delete ALL Post-it's"_s, AnswerYes);
    choose(FrameCommand::PostitDeleteAll);
    EXPECT_TRUE(seams.prompts.last().text.contains(u"remove all 2 currently"_s));
    EXPECT_TRUE(notes().isEmpty() && stored().isEmpty());
    EXPECT_FALSE(isOffered(FrameCommand::PostitHideAll));
}

TEST_F(PostItWindowTest, TextOfANoteWithoutARowIsOffered) {
    written(u"lost?"_s);
    deleteAllPostIts(session.CurrentDB);
    seams.clock.advance(std::chrono::seconds(2));
    EXPECT_TRUE(control<QLabel>(*notes().first(), u"Notice"_s).isVisible());
    seams.prompts.expect(PromptKind::Message, u"Post-it"_s, AnswerYes);
    choose(FrameCommand::PostitHideAll);
    EXPECT_EQ(stored(), QStringList(u"lost?"_s));
}

TEST_F(PostItWindowTest, TwentyNotesAreSavedAsTheirYearCloses) {
    for (int i = 0; i < 20; ++i)
        written(u"note %1"_s.arg(i));
    close();
    EXPECT_EQ(stored().size(), 20);
    EXPECT_EQ(stored().last(), u"note 19"_s);
    EXPECT_TRUE(first().memo.startsWith(u"{\\rtf1"_s));
    session.GetSettings().set(setting::AutoloadPostits, true);
    frame->RunCurrentStartup();
    EXPECT_EQ(notes().size(), 20);
}

TEST_F(PostItWindowTest, NotesComeFromTheMailClientAndGoThere) {
    for (const QStringList& none : {QStringList(), QStringList{QString()}}) {
        seams.mail.notes.items = none;
        seams.prompts.expect(PromptKind::Message, u"No notes found"_s, AnswerOk);
        choose(FrameCommand::PostitImport);
    }
    seams.prompts.expect(PromptKind::Message, u"No Post-its"_s, AnswerOk);
    choose(FrameCommand::PostitExport);

    seams.mail.notes.items = {u"Milk\neggs"_s, QString()};
    choose(FrameCommand::PostitImport);
    ASSERT_EQ(notes().size(), 2);
    EXPECT_EQ(first(), (PostIt{.id = 1, .memo = u"Milk\neggs"_s, .top = 1000, .left = 1000}));
    EXPECT_EQ(readPostIts(session.CurrentDB)[1].left, 1003);
    EXPECT_EQ(body(*notes().first()).plainText(), u"Milk\neggs"_s);
    EXPECT_TRUE(isOffered(FrameCommand::PostitDeleteAll));

    QTest::keyClicks(&body(*notes().last()), u"{typed}"_s);
    seams.prompts.expect(PromptKind::Message, u"Export Complete"_s, AnswerOk);
    choose(FrameCommand::PostitExport);
    EXPECT_EQ(seams.mail.added, (QStringList{u"Milk\neggs"_s, u"{typed}"_s}));
    seams.mail.noteFault = u"No server."_s;
    seams.prompts.expect(PromptKind::Message, u"Post-it Notes Error"_s, AnswerOk);
    choose(FrameCommand::PostitExport);
    EXPECT_TRUE(seams.prompts.last().text.contains(u"0 of 2"_s));
}
