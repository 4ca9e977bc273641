// The weekly planning sheet, driven through its own controls over a year's file: which lessons it
// shows, and that nothing typed is lost whichever way it is left.

#include "classes/class_removal.h"
#include "planning/screens/weekly_sheet_window.h"
#include "support/screen_planning.h"

#include <QFileInfo>
#include <QListView>

namespace {

class WeeklySheetTest : public PlanningScreen<WeeklySheetWindow, ToolWindow::WeeklySheet> {
protected:
    QComboBox& selector(const char* name) { return on<QComboBox>(name); }
};

TEST_F(WeeklySheetTest, AClassThatGoesLeavesItsLists) {
    open();
    auto& classes = selector("SelClass");
    const QString shown = classes.currentText();
    const QString week = selector("SelWeek").currentText();
    ASSERT_TRUE(Delete_Class(session.CurrentDB, shown, seams.prompts));
    emit session.GetNotices().classesChanged();
    EXPECT_LT(classes.findText(shown), 0);
    EXPECT_EQ(classes.currentIndex(), 0);
    EXPECT_EQ(selector("SelWeek").currentText(), week);
}

TEST_F(WeeklySheetTest, ShowsTheLessonsOfTheFirstClassInTodaysWeek) {
    open();
    EXPECT_EQ(selector("SelWeek").currentText(), u"Monday 09/09/2024"_s);
    EXPECT_EQ(selector("SelClass").currentText(), u"7A"_s);
    EXPECT_EQ(label("Heading"), u"Week A"_s);
    EXPECT_EQ(label("lb1(0)"), u"Monday 09/Sep/2024 : Lesson 1"_s);
    EXPECT_EQ(label("lb1(1)"), u"Monday 09/Sep/2024 : Lesson 3"_s);
    EXPECT_EQ(label("lb1(2)"), u"Friday 13/Sep/2024 : Lesson 2"_s);
    EXPECT_EQ(label("HWlb(2)"), u"Homework"_s);
    EXPECT_FALSE(window->findChild<QLabel*>(u"lb1(3)"_s));
    EXPECT_EQ(selector("SelClass").itemData(0, Qt::BackgroundRole).value<QColor>(),
              QColor(0, 128, 255));
    EXPECT_EQ(selector("SelClass").view()->objectName(), u"List2"_s);
}

TEST_F(WeeklySheetTest, GoesFromWeekToWeekWithinTheYear) {
    open();
    click("ButtonEx1(0)");
    EXPECT_EQ(selector("SelWeek").currentIndex(), 0);
    EXPECT_FALSE(button("ButtonEx1(0)").isEnabled());
    EXPECT_EQ(label("Heading"), u"Week B"_s);
    click("ButtonEx1(1)");
    click("ButtonEx1(1)");
    EXPECT_EQ(selector("SelWeek").currentIndex(), 2);
    EXPECT_FALSE(button("ButtonEx1(1)").isEnabled());
    EXPECT_TRUE(button("ButtonEx1(0)").isEnabled());
}

TEST_F(WeeklySheetTest, WhatIsTypedIsOnDiskAfterTwoSeconds) {
    open();
    type("RTF(1)", u"Read page 4"_s);
    seams.clock.advance(std::chrono::seconds(1));
    EXPECT_TRUE(stored(u"24-09-09"_s, u"Lesson3"_s).isNull());
    type("RTF(1)", u", then 5"_s);
    seams.clock.advance(std::chrono::seconds(1));
    EXPECT_EQ(storedText(u"24-09-09"_s, u"Lesson3"_s), u"Read page 4, then 5"_s);
    EXPECT_EQ(box("RTF(1)").plainText(), u"Read page 4, then 5"_s);
}

TEST_F(WeeklySheetTest, EveryWayOfLeavingKeepsWhatIsTyped) {
    const std::vector<Way> all = ways({
        {"next week", [&] { click("ButtonEx1(1)"); }},
        {"week list", [&] { selector("SelWeek").setCurrentIndex(0); }},
        {"class list", [&] { QTest::keyClick(&selector("SelClass"), Qt::Key_Down); }},
        {"reading anew", [&] { window->reload(); }},
        {"the daily sheet", [&] { frame->open(ToolWindow::DailySheet); }},
    });
    QString typed;
    for (const Way& way : all) {
        SCOPED_TRACE(way.name);
        open();
        type("RTF(0)", u"x"_s);
        type("HWrtf(1)", u"'"_s);
        typed += u'x';
        way.leave();
        EXPECT_EQ(storedText(u"24-09-09"_s, u"Lesson1"_s), typed);
        EXPECT_EQ(storedText(u"24-09-09"_s, u"Homework3"_s), QString(typed.size(), u'\''));
        close();
    }
}

TEST_F(WeeklySheetTest, AClassWithoutLessonsShowsANoticeThatIsNeverWritten) {
    open();
    const QStringList before = rowsOf(session.CurrentDB, u"SELECT * FROM Planning"_s);
    selector("SelClass").setCurrentIndex(1);
    EXPECT_EQ(box("RTF(0)").plainText(), u"THERE ARE NO LESSONS \n\tFOR THIS CLASS THIS WEEK"_s);
    EXPECT_EQ(label("lb1(0)"), QString());
    type("RTF(0)", u"nothing"_s);
    EXPECT_TRUE(box("RTF(0)").isReadOnly());
    click("ButtonEx1(0)");
    close();
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT * FROM Planning"_s), before);
}

TEST_F(WeeklySheetTest, ThePlanningSheetsCloseEachOther) {
    frame->open(ToolWindow::DailySheet);
    control<RichTextBox>(*frame, u"Text1(0)"_s).setFocus();
    QTest::keyClicks(&control<RichTextBox>(*frame, u"Text1(0)"_s), u"daily"_s);
    open();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(frame->visible(), QList({ToolWindow::WeeklySheet}));
    EXPECT_EQ(box("RTF(0)").plainText(), u"daily"_s);
    type("RTF(0)", u", weekly"_s);
    frame->open(ToolWindow::DailySheet);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(frame->visible(), QList({ToolWindow::DailySheet}));
    EXPECT_EQ(control<RichTextBox>(*frame, u"Text1(0)"_s).plainText(), u"daily, weekly"_s);
}

TEST_F(WeeklySheetTest, SelectsASlotAndItsLinks) {
    open();
    auto& add = on<QPushButton>("cmdAddLink");
    EXPECT_FALSE(add.isEnabled());
    EXPECT_TRUE(button("cmd1").isHidden());
    auto& caption = on<QLabel>("lb1(2)");
    EXPECT_EQ(caption.toolTip(), u"Right-Click for Options"_s);
    QTest::mouseClick(&caption, Qt::LeftButton);
    EXPECT_TRUE(box("RTF(2)").hasFocus());
    EXPECT_EQ(caption.backgroundRole(), QPalette::Highlight);
    seams.prompts.expect(PromptKind::Link, u"Create a File Link"_s,
                         LinkAnswer{u"Slides"_s, u"/tmp/a.odp"_s});
    add.click();
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT PlanDate, Period, LinkName FROM FileLinks"_s),
              QStringList(u"24-09-13|2|Slides"_s));
    EXPECT_EQ(selector("Combo3").currentText(), u"Slides"_s);
    box("HWrtf(0)").setFocus();
    EXPECT_EQ(caption.backgroundRole(), QPalette::Button);
    EXPECT_EQ(selector("Combo3").count(), 0);
    click("ButtonEx1(1)");
    EXPECT_FALSE(add.isEnabled());
}

TEST_F(WeeklySheetTest, MaximisesTheSelectedLesson) {
    open();
    box("RTF(1)").setFocus();
    EXPECT_EQ(button("cmd1").toolTip(), u"Maximise Lesson"_s);
    const int height = box("RTF(1)").height();
    click("cmd1");
    QCoreApplication::processEvents();
    EXPECT_FALSE(box("RTF(0)").isVisible());
    EXPECT_FALSE(box("HWrtf(1)").isVisible());
    EXPECT_GT(box("RTF(1)").height(), 2 * height);
    EXPECT_EQ(button("cmd1").geometry().right(), box("RTF(1)").viewport()->rect().right());
    type("RTF(1)", u"wide"_s);
    press(*window, Qt::Key_M, Qt::ControlModifier);
    EXPECT_TRUE(box("RTF(0)").isVisible());
    EXPECT_TRUE(box("HWrtf(1)").isVisible());
    click("cmd1");
    click("ButtonEx1(0)");
    QCoreApplication::processEvents();
    EXPECT_EQ(storedText(u"24-09-09"_s, u"Lesson3"_s), u"wide"_s);
    EXPECT_TRUE(box("HWrtf(0)").isVisible());
}

TEST_F(WeeklySheetTest, WhatCannotBeWrittenStaysWhereItIs) {
    open();
    type("RTF(0)", u"precious"_s);
    box("RTF(0)").setSelectedText(QString(60'000, u'x'));
    seams.prompts.expect(PromptKind::Plain, u"Weekly Plan Error"_s, 1);
    {
        const FileSizeLimit fullDisk(QFileInfo(path()).size());
        click("ButtonEx1(1)");
        EXPECT_EQ(selector("SelWeek").currentIndex(), 1);
        selector("SelClass").setCurrentIndex(2);
        EXPECT_EQ(selector("SelClass").currentIndex(), 0);
        seams.prompts.expect(PromptKind::Message, u"Not saved"_s, AnswerNo);
        window->parentWidget()->close();
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(box("RTF(0)").plainText().startsWith(u"precious"));
    }
    click("ButtonEx1(1)");
    EXPECT_EQ(selector("SelWeek").currentIndex(), 2);
    EXPECT_TRUE(storedText(u"24-09-09"_s, u"Lesson1"_s).startsWith(u"precious"));
}

TEST_F(WeeklySheetTest, IsLegibleAndReachable) {
    open();
    box("RTF(0)").setFocus();
    checkScreen(*window, u"orva2frm"_s);
    resize(420, 320);
    checkScreen(*window, u"orva2frm_narrow"_s);
    selector("SelClass").setCurrentIndex(1);
    resize(900, 600);
    checkScreen(*window, u"orva2frm_notice"_s);
}

} // namespace
