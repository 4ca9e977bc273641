// The weekly planning sheet, driven through its own controls over a year's file: which lessons it
// shows, and that nothing typed is lost whichever way it is left.

#include "classes/class_removal.h"
#include "controls/layout_toolbar.h"
#include "controls/rich_text_box.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "frame/screens/main_window.h"
#include "frame/screens/window_table.h"
#include "planning/screens/weekly_sheet_window.h"
#include "richtext/plain_text.h"
#include "store/engine/names.h"
#include "support/engine_files.h"
#include "support/screen_checks.h"
#include "support/year_file.h"
#include "year/year_opening.h"

#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QListView>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The program with an open year; its today is Monday 9 September 2024, in the second week, where
/// 7A has Monday's periods 1 and 3 and Friday's period 2.
class WeeklySheetTest : public testing::Test {
protected:
    WeeklySheetTest() {
        createYear(twoWeekAnswers(), path(), seams);
        session.Start(folder.filePath(u"app"_s));
        frame = std::make_unique<MainWindow>(session, windowTable(), false);
        frame->show();
        session.DatabasePath = path();
        EXPECT_EQ(session.OpenDatabaseFile(path(), {}), OpenDone);
        frame->EnableInput(true);
    }

    QString path() const { return folder.filePath(u"year.mdb"_s); }
    void open() {
        frame->open(ToolWindow::WeeklySheet);
        sheet = frame->findChild<WeeklySheetWindow*>();
        ASSERT_TRUE(sheet);
        sheet->parentWidget()->resize(900, 600);
        QCoreApplication::processEvents();
    }
    void close() {
        frame->CloseOpenForms();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    RichTextBox& box(const char* name) {
        return control<RichTextBox>(*sheet, QString::fromLatin1(name));
    }
    QString label(const char* name) {
        return control<QLabel>(*sheet, QString::fromLatin1(name)).text();
    }
    QComboBox& selector(const char* name) {
        return control<QComboBox>(*sheet, QString::fromLatin1(name));
    }
    QToolButton& button(const char* name) {
        return control<QToolButton>(*sheet, QString::fromLatin1(name));
    }
    void click(const char* name) { QTest::mouseClick(&button(name), Qt::LeftButton); }
    void type(const char* name, const QString& text) {
        box(name).setFocus();
        box(name).moveCursor(QTextCursor::End);
        QTest::keyClicks(&box(name), text);
    }
    dao::Value stored(const QString& planDate, const QString& field) {
        return session.CurrentDB
            .OpenRecordset(u"SELECT %1 FROM Planning WHERE PlanDate = '%2'"_s.arg(field, planDate))
            .Collect(0);
    }
    QString storedText(const QString& planDate, const QString& field) {
        return richtext::plainText(stored(planDate, field).toText());
    }

    QTemporaryDir folder;
    TestSeams seams;
    dao::DBEngine engine;
    Settings settings{folder.filePath(u"settings.ini"_s)};
    Session session{engine, settings, seams.seams(), yearOpening()};
    std::unique_ptr<MainWindow> frame;
    WeeklySheetWindow* sheet = nullptr;
};

TEST_F(WeeklySheetTest, AClassThatGoesLeavesItsLists) {
    open();
    auto& classes = control<QComboBox>(*sheet, u"SelClass"_s);
    const QString shown = classes.currentText();
    const QString week = control<QComboBox>(*sheet, u"SelWeek"_s).currentText();
    ASSERT_TRUE(Delete_Class(session.CurrentDB, shown, seams.prompts));
    emit session.GetNotices().classesChanged();
    EXPECT_LT(classes.findText(shown), 0);
    EXPECT_EQ(classes.currentIndex(), 0);
    EXPECT_EQ(control<QComboBox>(*sheet, u"SelWeek"_s).currentText(), week);
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
    EXPECT_FALSE(sheet->findChild<QLabel*>(u"lb1(3)"_s));
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
    const struct {
        const char* way;
        std::function<void()> leave;
    } cases[] = {
        {"next week", [&] { click("ButtonEx1(1)"); }},
        {"week list", [&] { selector("SelWeek").setCurrentIndex(0); }},
        {"class list", [&] { QTest::keyClick(&selector("SelClass"), Qt::Key_Down); }},
        {"reading anew", [&] { sheet->reload(); }},
        {"the window's own close", [&] { sheet->parentWidget()->close(); }},
        {"all windows closed", [&] { close(); }},
        {"the daily sheet", [&] { frame->open(ToolWindow::DailySheet); }},
        {"another window",
         [&] {
             frame->open(ToolWindow::StartupWizard);
             QCoreApplication::processEvents();
         }},
    };
    QString typed;
    for (const auto& way : cases) {
        SCOPED_TRACE(way.way);
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
    auto& add = control<QPushButton>(*sheet, u"cmdAddLink"_s);
    EXPECT_FALSE(add.isEnabled());
    EXPECT_TRUE(button("cmd1").isHidden());
    auto& caption = control<QLabel>(*sheet, u"lb1(2)"_s);
    EXPECT_EQ(caption.toolTip(), u"Right-Click for Options"_s);
    QTest::mouseClick(&caption, Qt::LeftButton);
    EXPECT_TRUE(box("RTF(2)").hasFocus());
    EXPECT_EQ(caption.backgroundRole(), QPalette::Highlight);
    seams.prompts.expect(PromptKind::Link, u"Create a File Link"_s,
                         LinkAnswer{u"Slides"_s, u"/tmp/a.odp"_s});
    add.click();
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT PlanDate, Period, LinkName FROM FileLinks"_s),
              QStringList(u"24-09-13|2|Slides"_s));
    EXPECT_EQ(control<QComboBox>(*sheet, u"Combo3"_s).currentText(), u"Slides"_s);
    box("HWrtf(0)").setFocus();
    EXPECT_EQ(caption.backgroundRole(), QPalette::Button);
    EXPECT_EQ(control<QComboBox>(*sheet, u"Combo3"_s).count(), 0);
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
    press(*sheet, Qt::Key_M, Qt::ControlModifier);
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
        sheet->parentWidget()->close();
        EXPECT_TRUE(sheet->isVisible());
        EXPECT_TRUE(box("RTF(0)").plainText().startsWith(u"precious"));
    }
    click("ButtonEx1(1)");
    EXPECT_EQ(selector("SelWeek").currentIndex(), 2);
    EXPECT_TRUE(storedText(u"24-09-09"_s, u"Lesson1"_s).startsWith(u"precious"));
}

TEST_F(WeeklySheetTest, TheToolbarInsertsObjectsOnly) {
    open();
    auto& toolbar = control<LayoutToolbar>(*sheet, u"ORVA2_Btns"_s);
    ASSERT_EQ(toolbar.buttonCount(), 3);
    box("RTF(0)").setFocus();
    toolbar.button(0)->trigger();
    toolbar.button(1)->trigger();
    EXPECT_EQ(frame->visible(), QList({ToolWindow::WeeklySheet}));
    EXPECT_FALSE(box("RTF(0)").dataChanged());
}

TEST_F(WeeklySheetTest, IsLegibleAndReachable) {
    open();
    box("RTF(0)").setFocus();
    checkScreen(*sheet, u"orva2frm"_s);
    sheet->parentWidget()->resize(420, 320);
    QCoreApplication::processEvents();
    checkScreen(*sheet, u"orva2frm_narrow"_s);
    selector("SelClass").setCurrentIndex(1);
    sheet->parentWidget()->resize(900, 600);
    QCoreApplication::processEvents();
    checkScreen(*sheet, u"orva2frm_notice"_s);
}

} // namespace
