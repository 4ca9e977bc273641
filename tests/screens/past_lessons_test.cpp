// The find box and the history viewer beside the daily sheet, driven through their own controls.

#include "classes/class_removal.h"
#include "planning/screens/daily_sheet_window.h"
#include "planning/screens/history_window.h"
#include "planning/screens/search_window.h"
#include "support/screen_planning.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QSplitter>

namespace {

class PastLessonsTest : public PlanningScreen<DailySheetWindow, ToolWindow::DailySheet> {
protected:
    void openSearch() {
        open();
        button("ORVA_Btns(0)").click();
        QCoreApplication::processEvents();
        search = frame->findChild<SearchWindow*>();
        ASSERT_TRUE(search);
    }
    QComboBox& text() { return control<QComboBox>(*search, u"Combo1"_s); }
    QPushButton& find() { return control<QPushButton>(*search, u"ButtonEx1(0)"_s); }
    void look() {
        press(*search, Qt::Key_Return);
        while (search->isLooking())
            QCoreApplication::processEvents();
    }
    /// The sheet, and what is selected in a box of it: "24-09-11|1|quiz".
    QString selected(const char* name) {
        return u"%1|%2|%3"_s.arg(label("LbDate"))
            .arg(box(name).selectionStart())
            .arg(box(name).selectedText());
    }

    void openHistory() {
        open();
        click("Label1(0)");
        button("ORVA_Btns(2)").click();
        viewer = frame->findChild<HistoryWindow*>();
        ASSERT_TRUE(viewer);
    }
    /// What the viewer shows: "Sep 09 2024|first|(3/5)".
    QString shown() {
        return u"%1|%2|%3"_s.arg(control<QComboBox>(*viewer, u"Combo1"_s)
                                     .currentText()
                                     .section(u" --- "_s, 0, 0)
                                     .trimmed(),
                                 control<RichTextBox>(*viewer, u"Text1(0)"_s).plainText(),
                                 viewer->windowTitle().section(u' ', -1));
    }
    void step(int element) {
        control<QToolButton>(*viewer, u"Command2(%1)"_s.arg(element)).click();
    }
    static void letGo() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    QPointer<SearchWindow> search;
    QPointer<HistoryWindow> viewer;
};

} // namespace

TEST_F(PastLessonsTest, FindsOneLessonAfterTheOther) {
    store(u"24-09-11"_s, u"Lesson2"_s, u"{\\rtf1\\ansi\\pard\\plain a q{\\b ui}z\\par }"_s);
    store(u"24-09-27"_s, u"Lesson5"_s, u"Quiz"_s);
    store(u"24-09-12"_s, u"Homework1"_s, u"\U0001F600 QUIZ"_s);
    openSearch();
    EXPECT_FALSE(find().isEnabled());
    QTest::keyClicks(&text(), u"quiz"_s);
    EXPECT_EQ(find().text(), u"Find First"_s);
    look();
    EXPECT_EQ(selected("Text1(1)"), u"24-09-11|2|quiz"_s);
    EXPECT_EQ(session.CurrentClass, QString());
    EXPECT_EQ(find().text(), u"Find Next"_s);
    look();
    EXPECT_EQ(selected("Text1(4)"), u"24-09-27|0|Quiz"_s);
    seams.prompts.expect(PromptKind::Message, u"Find"_s, AnswerOk);
    look();
    EXPECT_EQ(seams.prompts.last().text, u"No further occurances have been found."_s);
    EXPECT_EQ(find().text(), u"Find First"_s);
    click("Command2(0)");
    control<QRadioButton>(*search, u"Opt1(1)"_s).click();
    text().setFocus();
    look();
    EXPECT_EQ(selected("Text3(0)"), u"24-09-12|3|QUIZ"_s);
    control<QCheckBox>(*search, u"Check2"_s).click();
    EXPECT_EQ(find().text(), u"Find First"_s);
    text().setFocus();
    seams.prompts.expect(PromptKind::Message, u"Find"_s, AnswerOk);
    look();
    EXPECT_EQ(seams.prompts.last().text, u"No occurances have been found."_s);
}

TEST_F(PastLessonsTest, AHitIsShownWhateverTheSheetShows) {
    store(u"24-09-09"_s, u"Homework5"_s, u"a quiz"_s);
    openSearch();
    resize(500, 330);
    click("Label1(0)");
    click("CMD2");
    type("Text1(0)", u"not yet on disk"_s);
    control<QRadioButton>(*search, u"Opt1(1)"_s).click();
    text().setEditText(u"quiz"_s);
    text().setFocus();
    look();
    EXPECT_EQ(selected("Text3(4)"), u"24-09-09|2|quiz"_s);
    EXPECT_FALSE(box("Text3(4)").visibleRegion().isEmpty());
    EXPECT_EQ(box("Text1(0)").plainText(), u"not yet on disk"_s);
}

TEST_F(PastLessonsTest, TheHuntIsCalledOffAndTheBoxGoesWithTheSheet) {
    store(u"24-09-27"_s, u"Lesson1"_s, u"quiz"_s);
    openSearch();
    text().setEditText(u"quiz"_s);
    find().click();
    EXPECT_TRUE(search->isLooking());
    press(*search, Qt::Key_Escape);
    EXPECT_FALSE(search->isLooking());
    find().click();
    QTest::keyClicks(&text(), u"z"_s); // another text is another hunt
    EXPECT_FALSE(search->isLooking());
    QCoreApplication::processEvents();
    EXPECT_EQ(label("LbDate"), u"24-09-09"_s);
    find().click();
    window->parentWidget()->close();
    letGo();
    EXPECT_FALSE(search);
    openSearch();
    EXPECT_EQ(text().count(), 2);
    EXPECT_EQ(text().itemText(0), u"quizz"_s);
    EXPECT_EQ(text().currentText(), QString());
    close();
    session.CloseAllDatabases();
    EXPECT_TRUE(session.EarlierSearches.isEmpty());
}

TEST_F(PastLessonsTest, TheViewerFollowsThePeriodAndClosesWithItsClass) {
    store(u"24-09-04"_s, u"Lesson5"_s, u"before"_s);
    openHistory();
    EXPECT_EQ(shown(), u"Sep 04 2024|before|(5/5)"_s);
    step(0); // there is none further back
    EXPECT_EQ(shown(), u"Sep 04 2024|before|(5/5)"_s);
    step(1);
    EXPECT_EQ(shown(), u"Sep 09 2024||(4/5)"_s);
    click("Command1(1)");
    EXPECT_FALSE(viewer->isVisible()); // no period is selected
    window->ShowPlan(QDate(2024, 9, 25));
    click("Label1(4)");
    EXPECT_TRUE(viewer->isVisible());
    EXPECT_EQ(shown(), u"Sep 13 2024||(2/5)"_s);
    EXPECT_TRUE(box("Text1(4)").hasFocus());
    window->ShowPlan(QDate(2024, 9, 23));
    click("Label1(0)");
    EXPECT_EQ(viewer->windowTitle(), u"Planning history for : 9C    (2/2)"_s);
    ASSERT_TRUE(Delete_Class(session.CurrentDB, u"9C"_s, seams.prompts));
    emit session.GetNotices().classesChanged();
    EXPECT_FALSE(viewer->isVisible());
    letGo();
    EXPECT_FALSE(viewer);
}

TEST_F(PastLessonsTest, TheViewerIsOfferedForAClassAndKeepsItsPlace) {
    openHistory();
    control<QSplitter>(*viewer, u"PSplit"_s).setSizes({120, 200});
    const QList<int> sizes = control<QSplitter>(*viewer, u"PSplit"_s).sizes();
    EXPECT_TRUE(control<RichTextBox>(*viewer, u"Text1(0)"_s).isReadOnly());
    press(*viewer, Qt::Key_Escape);
    letGo();
    click("Label1(1)");
    EXPECT_FALSE(button("ORVA_Btns(2)").isEnabled());
    QTest::keyClicks(&control<QComboBox>(*window, u"text2(1)"_s), u"9C"_s);
    EXPECT_TRUE(button("ORVA_Btns(2)").isEnabled());
    button("ORVA_Btns(2)").click();
    viewer = frame->findChild<HistoryWindow*>();
    EXPECT_EQ(viewer->windowTitle(), u"Planning history for : 9C    (3/3)"_s);
    EXPECT_EQ(control<QSplitter>(*viewer, u"PSplit"_s).sizes(), sizes);
}

TEST_F(PastLessonsTest, BothAreLegibleAndReachable) {
    store(u"24-09-04"_s, u"Lesson5"_s, u"before"_s);
    openHistory();
    checkScreen(*viewer, u"cplanfrm"_s);
    openSearch();
    text().setEditText(u"quiz"_s);
    checkScreen(*search, u"searchfrm"_s);
}
