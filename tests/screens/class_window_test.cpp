// The class window: its first page, the list of names and the register, by mouse and keys.

#include "classes/register_lessons.h"
#include "core/window_placement.h"
#include "support/screen_register.h"

#include <QGroupBox>
#include <QSignalSpy>

TEST_F(RegisterScreenTest, OpensOnTheFirstClassAndLooksRight) {
    show();
    EXPECT_EQ(window->windowTitle(), u"Class lists, register & grades"_s);
    EXPECT_EQ(window->desk().classCode(), u"D"_s);
    EXPECT_EQ(names().model()->rowCount(), 3);
    checkScreen(*window, u"RegisterFrm_first"_s);
    window->showView(RegisterView);
    EXPECT_EQ(control<QLabel>(*window, u"Lblessons"_s).text(),
              u"3 Pupils.\n15 Total Lessons.\n7 Remaining."_s);
    checkScreen(*window, u"RegisterFrm_register"_s);
}

TEST_F(RegisterScreenTest, AKeyMarksOnTheDiskAndADoubleLessonTwice) {
    showRegister();
    // The current lesson, today's first, has the caret.
    QTest::keyClicks(&grid(), u"o"_s);
    EXPECT_EQ(marksOf(1), u".....OO........"_s);
    menuItem(u"Display Panel"_s).trigger();
    auto& key = control<QGroupBox>(*window, u"RegisterKey"_s);
    QTest::keyClicks(&grid(), u"x"_s); // means nothing
    EXPECT_TRUE(key.autoFillBackground()) << "it flashes";
    seams.clock.advance(std::chrono::seconds(1));
    EXPECT_FALSE(key.autoFillBackground());
    press(*window, Qt::Key_Return);
    QTest::keyClicks(&grid(), u"/"_s);
    EXPECT_EQ(marksOf(3), u".....//........"_s); // the next by surname
    press(*window, Qt::Key_Backspace);
    EXPECT_EQ(marksOf(3), u"....../........"_s);
    EXPECT_EQ(window->desk().currentRow(), 1);
    press(*window, Qt::Key_Right);
    press(*window, Qt::Key_Right); // Tuesday, periods 2 and 4
    QTest::keyClicks(&grid(), u"\\"_s);
    EXPECT_EQ(marksOf(3), u"....../\\......."_s);
}

TEST_F(RegisterScreenTest, ACellThatIsEditedMarksAsAKeyDoes) {
    showRegister();
    const int lesson = grid().currentIndex().column();
    const auto edit = [this](const QString& text) { // pasted, past the keys
        QLineEdit editor(text);
        grid().itemDelegate()->setModelData(&editor, grid().model(), grid().currentIndex());
    };
    edit(u"o"_s);
    const auto marks = [&] {
        return window->desk().sheet().text(0, lesson) + window->desk().sheet().text(0, lesson + 1);
    };
    EXPECT_EQ(marks(), u"OO"_s); // a double lesson
    edit(u"x"_s);                // no mark
    EXPECT_EQ(marks(), u"OO"_s);
    edit({});
    EXPECT_EQ(marks(), u"O"_s);
    grid().setColumnWidth(lesson + 1, 200);
    window->showView(RegisterView);
    EXPECT_EQ(grid().columnWidth(lesson + 1), MarkColumnWidth / TwipsPerPixel);
}

TEST_F(RegisterScreenTest, TheMenuFillsCountsAndOpensThePlan) {
    showRegister();
    QTest::keyClicks(&grid(), u"o"_s);
    menuItem(u"No mark"_s).trigger();
    EXPECT_EQ(marksOf(1).mid(5, 2), u".O"_s);
    menuItem(u"O = Absent"_s).trigger();
    menuItem(u"Present"_s).trigger();
    EXPECT_EQ(marksOf(1).mid(5, 2), u"OO"_s);
    EXPECT_EQ(marksOf(2).mid(5, 2), u"/."_s);
    menuItem(u"Show Planning for this lesson..."_s).trigger();
    EXPECT_EQ(frame.windows.last(), ToolWindow::DailySheet);
    EXPECT_EQ(frame.subject, WindowSubject(QDate(2024, 9, 9)));
    seams.prompts.expect(PromptKind::Plain, u"Attendance"_s, AnswerOk);
    menuItem(u"Calculate Attendance..."_s).trigger();
    seams.prompts.expect(PromptKind::Input, u"Enter a valid date"_s);
    menuItem(u"Lessons Remaining..."_s).trigger();
    grid().setCurrentIndex(grid().model()->index(0, PupilSheet::TutorColumn));
    QTest::keyClicks(&grid(), u"o"_s);
    EXPECT_EQ(grid().currentIndex().data().toString(), QString());
}

TEST_F(RegisterScreenTest, PicksPupilsAndShowsThemAlone) {
    showRegister();
    clickName(0, Qt::ControlModifier);
    EXPECT_TRUE(tool(5).isChecked());
    clickName(2);
    tool(0).click();
    EXPECT_EQ(grid().model()->rowCount(), 2);
    EXPECT_EQ(names().model()->rowCount(), 2);
    tool(5).click();
    EXPECT_FALSE(tool(5).isChecked());
    EXPECT_EQ(grid().model()->rowCount(), 3);
}

TEST_F(RegisterScreenTest, GridAndNamesMoveTogether) {
    showRegister();
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents(); // the layout settles, then the names follow
    press(*window, Qt::Key_Down);
    EXPECT_EQ(names().currentIndex().row(), 1);
    clickName(2);
    EXPECT_EQ(grid().currentIndex().row(), 2);
    EXPECT_EQ(grid().selectionModel()->selectedIndexes(), QModelIndexList{grid().currentIndex()});
    names().setFocus();
    QTest::keyClicks(&names(), u"\\"_s); // the chosen pupil's mark, and leads to no other
    EXPECT_EQ(marksOf(2).mid(5, 2), u"\\\\"_s);
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_EQ(names().rowHeight(0), grid().rowHeight(0));
    EXPECT_EQ(names().viewport()->mapTo(window.get(), QPoint()).y(),
              grid().viewport()->mapTo(window.get(), QPoint()).y());
    EXPECT_EQ(names().viewport()->height(), grid().viewport()->height());
}

TEST_F(RegisterScreenTest, ClassesWithoutPupilsOrLessonsSayWhatIsMissing) {
    show();
    control<QListWidget>(*window, u"ClassList"_s).setCurrentRow(1);
    EXPECT_EQ(window->desk().classCode(), u"E"_s);
    seams.prompts.expect(PromptKind::Plain, u"No Pupils"_s, AnswerOk);
    control<QToolButton>(*window, u"ViewButton(1)"_s).click();
    tool(1).click(); // the toolbar shows a view without pupils
    EXPECT_EQ(window->desk().view(), GradesView);
    control<QListWidget>(*window, u"ClassList"_s).setCurrentRow(0);
    window->showFirstPage();
    addPupils(session.CurrentDB, u"E"_s, {u"Ames,Ann"_s});
    seams.prompts.expect(PromptKind::Plain, u"No Register available"_s, AnswerOk);
    window->AutoRegistration(u"E"_s);
    EXPECT_FALSE(window->desk().view());
    window->AutoRegistration(u"D"_s);
    EXPECT_EQ(window->desk().view(), RegisterView);
    window->AutoRegistration(u"not there"_s);
    EXPECT_EQ(window->desk().classCode(), u"D"_s);
}

TEST_F(RegisterScreenTest, DeletesAClassAndThenThereIsNone) {
    show();
    const QSignalSpy changes(&session.GetNotices(), &Notices::classesChanged);
    seams.prompts.expect(PromptKind::Message, u"Delete Class:"_s, BoxAnswer{AnswerYes, true});
    auto& tasks = control<QListWidget>(*window, u"TaskList"_s);
    tasks.setCurrentItem(tasks.findItems(u"Delete Current Class"_s, Qt::MatchExactly).first());
    tasks.setFocus();
    press(*window, Qt::Key_Return);
    EXPECT_EQ(window->desk().classCode(), u"E"_s);
    EXPECT_EQ(tasks.currentRow(), 0) << "another Return deletes nothing";
    tasks.setCurrentItem(tasks.findItems(u"Delete Current Class"_s, Qt::MatchExactly).first());
    press(*window, Qt::Key_Return); // not asked again
    EXPECT_EQ(window->desk().classCode(), QString());
    EXPECT_EQ(control<QListWidget>(*window, u"ClassList"_s).count(), 0);
    EXPECT_EQ(changes.size(), 2);
    seams.prompts.expect(PromptKind::Plain, u"NO CLASS CODES"_s, AnswerOk);
    tasks.setCurrentItem(tasks.findItems(u"Delete Current Class"_s, Qt::MatchExactly).first());
    press(*window, Qt::Key_Return);
    window.reset();
    seams.prompts.expect(PromptKind::Plain, u"NO CLASS CODES"_s, AnswerOk);
    frame.windows = {ToolWindow::Classes};
    show();
    QApplication::processEvents();
    EXPECT_TRUE(frame.windows.isEmpty());
}

TEST_F(RegisterScreenTest, KeepsItsPanel) {
    showRegister();
    menuItem(u"Display Panel"_s).trigger();
    EXPECT_TRUE(settings.get(setting::DisplayKey));
    EXPECT_TRUE(control<QListWidget>(*window, u"List1"_s).isVisible());
    EXPECT_TRUE(window->close());
    EXPECT_GT(settings.get(setting::DisplayPnlLeft), 0);
    showRegister();
    EXPECT_TRUE(control<QListWidget>(*window, u"List1"_s).isVisible());
}
