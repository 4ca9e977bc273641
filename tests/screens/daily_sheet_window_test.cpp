// The daily planning sheet, driven through its own controls over a year's file: what is shown, what
// reaches the disk and when, what its commands do.

#include "calendar/class_colours.h"
#include "classes/class_creation.h"
#include "classes/class_removal.h"
#include "controls/date_field.h"
#include "planning/planning_settings.h"
#include "planning/screens/class_box.h"
#include "planning/screens/daily_sheet_window.h"
#include "support/screen_planning.h"

namespace {

class DailySheetTest : public PlanningScreen<DailySheetWindow, ToolWindow::DailySheet> {
protected:
    ClassBox& classBox(int index) { return control<ClassBox>(*window, u"text2(%1)"_s.arg(index)); }
    QAction& command(const QString& text) {
        for (QAction* action : window->findChildren<QAction*>()) {
            if (action->text() == text)
                return *action;
        }
        qFatal("no command %s", qPrintable(text));
    }
};

} // namespace

TEST_F(DailySheetTest, OpensOnToday) {
    open();
    EXPECT_EQ(window->windowTitle(), u"Quick Daily Planning Sheet"_s);
    EXPECT_EQ(label("LbDate"), u"24-09-09"_s);
    EXPECT_EQ(label("Label4"), u"Monday  -  Sep 09 2024"_s);
    EXPECT_EQ(label("L1"), u"4/13"_s);
    EXPECT_EQ(classBox(0).currentText(), u"7A"_s);
    EXPECT_EQ(classBox(1).currentText(), QString());
}

TEST_F(DailySheetTest, WhatIsTypedIsOnDiskAfterTwoSeconds) {
    open();
    type("Text1(0)", u"Read page 4"_s);
    EXPECT_TRUE(stored(u"24-09-09"_s, u"Lesson1"_s).isNull());
    seams.clock.advance(std::chrono::seconds(1));
    type("Text1(0)", u", then 5"_s);
    seams.clock.advance(std::chrono::seconds(1));
    EXPECT_EQ(storedText(u"24-09-09"_s, u"Lesson1"_s), u"Read page 4, then 5"_s);
    EXPECT_TRUE(stored(u"24-09-09"_s, u"Lesson2"_s).isNull());
}

TEST_F(DailySheetTest, EveryWayOfLeavingKeepsWhatIsTyped) {
    const std::vector<Way> all = ways({
        {"next", [&] { click("Command1(1)"); }},
        {"page key", [&] { press(*window, Qt::Key_PageDown); }},
        {"last", [&] { click("Command2(1)"); }},
        {"tomorrow", [&] { click("Command1(3)"); }},
        {"another sheet", [&] { window->ShowPlan(QDate(2024, 9, 11)); }},
    });
    QString typed;
    for (const Way& way : all) {
        SCOPED_TRACE(way.name);
        open();
        window->ShowPlan(QDate(2024, 9, 9));
        type("Text3(2)", u"x"_s);
        type("Text4(1)", u"'"_s);
        QTest::keyClicks(&classBox(4), u"9"_s);
        typed += u'x';
        way.leave();
        EXPECT_EQ(storedText(u"24-09-09"_s, u"Homework3"_s), typed);
        EXPECT_EQ(storedText(u"24-09-09"_s, u"AfterSchool"_s), QString(typed.size(), u'\''));
        EXPECT_EQ(stored(u"24-09-09"_s, u"Class5"_s).toText().size(), typed.size());
        close();
    }
}

TEST_F(DailySheetTest, MovesBetweenTheSheets) {
    open();
    click("Command2(0)");
    EXPECT_EQ(label("L1"), u"1/13"_s);
    EXPECT_FALSE(button("Command1(0)").isEnabled());
    EXPECT_FALSE(button("Command2(0)").isEnabled());
    press(*window, Qt::Key_PageUp);
    EXPECT_EQ(label("L1"), u"1/13"_s);
    press(*window, Qt::Key_PageDown);
    EXPECT_EQ(label("L1"), u"2/13"_s);
    click("Command2(1)");
    EXPECT_EQ(label("LbDate"), u"24-09-27"_s);
    EXPECT_FALSE(button("Command1(1)").isEnabled());
    click("Command1(2)");
    EXPECT_EQ(label("LbDate"), u"24-09-09"_s);
}

TEST_F(DailySheetTest, PicksADateInTheCalendar) {
    open();
    auto& field = *on<DateField>("Calendar1").findChild<QLineEdit*>();
    const auto enter = [&](const QString& date) {
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, date);
        QTest::keyClick(&field, Qt::Key_Return);
    };
    const QString saturday = QLocale().toString(QDate(2024, 9, 14), QLocale::ShortFormat);
    seams.prompts.expect(PromptKind::Message, u"Create Plan"_s, AnswerNo);
    enter(saturday);
    EXPECT_EQ(
        seams.prompts.last().text,
        u"A Plan for the date : Sep 14 2024 does not exist!\n\nWould you like to create one?"_s);
    EXPECT_EQ(on<DateField>("Calendar1").date(), QDate(2024, 9, 9));
    seams.prompts.expect(PromptKind::Message, u"Create Plan"_s, AnswerYes);
    enter(saturday);
    EXPECT_EQ(label("LbDate"), u"24-09-14"_s);
    EXPECT_EQ(label("L1"), u"9/14"_s);
}

TEST_F(DailySheetTest, SelectsThePeriodOfABox) {
    open();
    auto& add = on<QPushButton>("cmdAddLink");
    EXPECT_TRUE(box("Text1(0)").hasFocus());
    click("Label1(2)");
    EXPECT_TRUE(box("Text1(2)").hasFocus());
    EXPECT_TRUE(add.isEnabled());
    EXPECT_EQ(on<QLabel>("Label1(2)").backgroundRole(), QPalette::Highlight);
    box("Text3(0)").setFocus();
    EXPECT_TRUE(box("Text3(0)").hasFocus());
    EXPECT_EQ(on<QLabel>("Label1(2)").backgroundRole(), QPalette::Button);
    EXPECT_EQ(on<QLabel>("Label1(0)").backgroundRole(), QPalette::Highlight);
    click("Command1(1)");
    EXPECT_FALSE(add.isEnabled());
}

TEST_F(DailySheetTest, MaximisesALesson) {
    open();
    box("Text1(0)").setFocus();
    QToolButton& maximise = button("CMD2");
    EXPECT_EQ(maximise.toolTip(), u"Maximise Selected Activity"_s);
    EXPECT_EQ(session.CurrentClass, u"7A"_s);
    EXPECT_EQ(session.CurrentDate, u"Monday  -  Sep 09 2024"_s);
    window->resize(window->width() + 90, window->height());
    QApplication::processEvents();
    EXPECT_EQ(maximise.geometry().right(), box("Text1(0)").viewport()->rect().right());
    QTest::mouseClick(&maximise, Qt::LeftButton);
    EXPECT_EQ(label("Label2"), u"Period 1 - 7A    Monday  -  Sep 09 2024"_s);
    EXPECT_EQ(maximise.toolTip(), u"Restore"_s);
    EXPECT_FALSE(box("Text1(1)").isVisible());
    type("Text1(0)", u"Long plan"_s);
    QTest::mouseClick(&maximise, Qt::LeftButton);
    EXPECT_TRUE(box("Text1(1)").isVisible());
    EXPECT_EQ(box("Text1(0)").plainText(), u"Long plan"_s);
    QTest::mouseClick(&maximise, Qt::LeftButton);
    click("Command1(1)");
    EXPECT_TRUE(box("Text1(1)").isVisible());
    checkFocus(*window);
}

TEST_F(DailySheetTest, ATextBeyondTheLimitKeepsTheOldOne) {
    open();
    type("Text1(0)", u"old"_s);
    click("Command1(1)");
    click("Command1(0)");
    box("Text1(0)").setFocus();
    box("Text1(0)").selectAll();
    box("Text1(0)").insertPlainText(QString(66000, u'a'));
    type("Text3(0)", u"kept"_s);
    seams.clock.advance(std::chrono::seconds(2));
    EXPECT_EQ(box("Text1(0)").plainText().size(), 66000);
    auto& notice = *box("Text1(0)").findChild<QLabel*>(u"Notice"_s);
    EXPECT_TRUE(notice.isVisible());
    EXPECT_EQ(box("Text1(0)").accessibleDescription(), notice.text());
    checkScreen(*window, u"daily_sheet_too_long"_s);
    seams.prompts.expect(PromptKind::Message, u"Too much data"_s, AnswerNo);
    EXPECT_FALSE(window->close());
    EXPECT_EQ(box("Text1(0)").plainText().size(), 66000);
    box("Text1(0)").undo();
    seams.clock.advance(std::chrono::seconds(2));
    EXPECT_FALSE(notice.isVisible());
    box("Text1(0)").redo();
    seams.prompts.expect(PromptKind::Message, u"Too much data"_s, AnswerYes);
    click("Command1(1)");
    EXPECT_TRUE(seams.prompts.last().text.startsWith(
        u"The data entered for Period 1 currently exceeds the database field limit.\nThis "
        "data will not be saved in order to avoid currupting the database!"_s));
    EXPECT_FALSE(notice.isVisible());
    EXPECT_EQ(storedText(u"24-09-09"_s, u"Lesson1"_s), u"old"_s);
    EXPECT_EQ(storedText(u"24-09-09"_s, u"Homework1"_s), u"kept"_s);
}

TEST_F(DailySheetTest, CarriesASelectionAcrossTheYear) {
    open();
    type("Text4(0)", u"Bring the globe"_s);
    box("Text4(0)").select(10, 5);
    seams.prompts.expect(PromptKind::Message, u"Make this a weekly Event"_s, AnswerYes);
    command(u"Create a weekly event..."_s).trigger();
    EXPECT_EQ(storedText(u"24-09-23"_s, u"Dinner"_s), u"globe"_s);
    EXPECT_EQ(storedText(u"24-09-09"_s, u"Dinner"_s), u"Bring the globe"_s);
    EXPECT_TRUE(stored(u"24-09-10"_s, u"Dinner"_s).isNull());
    seams.prompts.expect(PromptKind::Message, u"Make this a weekly Event"_s, AnswerYes);
    command(u"Remove  from  weekly events..."_s).trigger();
    EXPECT_EQ(box("Text4(0)").plainText(), u"Bring the "_s);
    EXPECT_EQ(storedText(u"24-09-23"_s, u"Dinner"_s), QString());
}

TEST_F(DailySheetTest, DeletesTheSheetsDownToTheLast) {
    for (dao::Recordset rows = session.CurrentDB.OpenRecordset(u"Planning"_s);
         rows.RecordCount() > 2; rows.MoveFirst())
        rows.Delete();
    seams.prompts.expect(PromptKind::Message, u"Today"_s, AnswerNo);
    open();
    EXPECT_EQ(label("L1"), u"1/2"_s);
    seams.prompts.expect(PromptKind::Message, u"Delete Record"_s, AnswerYes);
    command(u"Delete selected Sheet"_s).trigger();
    EXPECT_EQ(label("L1"), u"1/1"_s);
    type("Text1(0)", u"last"_s);
    seams.prompts.expect(PromptKind::Message, u"Delete Record"_s, AnswerYes);
    seams.prompts.expect(PromptKind::Message, u"The planning table is now empty!"_s, AnswerOk);
    command(u"Delete selected Sheet"_s).trigger();
    EXPECT_EQ(label("L1"), QString());
    EXPECT_FALSE(box("Text1(0)").isEnabled());
    EXPECT_EQ(box("Text1(0)").plainText(), QString());
    EXPECT_FALSE(on<QPushButton>("cmdAddLink").isEnabled());
    checkScreen(*window, u"ORVAfrm_empty"_s);
    command(u"Open\\Create for TODAY"_s).trigger();
    EXPECT_EQ(label("L1"), u"1/1"_s);
    EXPECT_TRUE(box("Text1(0)").isEnabled());
}

TEST_F(DailySheetTest, ShowsWhatAnotherWindowHasWritten) {
    open();
    type("Text1(0)", u"mine"_s);
    box("Text1(0)").clearFocus();
    store(u"24-09-09"_s, u"Notes"_s, u"theirs"_s);
    box("Text1(0)").setFocus();
    EXPECT_EQ(box("Text4(2)").plainText(), u"theirs"_s);
    type("Text1(0)", u" too"_s);
    rows(sheet(u"24-09-09"_s)).Delete();
    click("Command1(1)");
    EXPECT_EQ(storedText(u"24-09-09"_s, u"Lesson1"_s), u"mine too"_s);
    EXPECT_EQ(label("LbDate"), u"24-09-10"_s);
}

TEST_F(DailySheetTest, ShowsClassesThatComeAndGo) {
    open();
    NewClass made = readNewClass(session.CurrentDB);
    made.code = u"P"_s; // stands in the text that the sheets are opened with
    constexpr int tuesday = 1;
    for (const int period : {1, 2})
        ASSERT_TRUE(
            toggleCell(made, u'A', (period - 1) * DaysOfTimetable + tuesday, seams.prompts));
    click("Command1(1)");
    ASSERT_EQ(label("LbDate"), u"24-09-10"_s);
    ASSERT_TRUE(createClass(session.CurrentDB, made, seams.prompts));
    LoadClassColours(session);
    emit session.GetNotices().classesChanged();
    EXPECT_EQ(classBox(1).text(), u"P"_s);
    EXPECT_GE(classBox(0).findText(u"P"_s), 0);
    type("Text1(0)", u"before"_s);
    box("Text1(0)").clearFocus();
    ASSERT_TRUE(Delete_Class(session.CurrentDB, u"P"_s, seams.prompts));
    LoadClassColours(session);
    emit session.GetNotices().classesChanged();
    EXPECT_EQ(classBox(1).text(), QString());
    EXPECT_LT(classBox(0).findText(u"P"_s), 0);
    type("Text1(0)", u" and after"_s);
    close();
    EXPECT_EQ(storedText(u"24-09-10"_s, u"Lesson1"_s), u"before and after"_s);
}

TEST_F(DailySheetTest, KeepsLinksOfAPeriod) {
    open();
    box("Text1(1)").setFocus();
    seams.prompts.expect(PromptKind::Link, u"Create a File Link"_s,
                         LinkAnswer{u"Maths' site"_s, u"http://example.org/a"_s});
    click("cmdAddLink");
    EXPECT_EQ(on<QComboBox>("Combo1").currentText(), u"Maths' site"_s);
    click("cmdOpenLink");
    ASSERT_EQ(seams.shell.runs.size(), 1);
    EXPECT_EQ(seams.shell.runs[0].file, u"http://example.org/a"_s);
    click("cmdToggle");
    EXPECT_FALSE(on<QWidget>("linkpnl").isVisible());
    click("cmdToggle");
    box("Text1(0)").setFocus();
    EXPECT_EQ(on<QComboBox>("Combo1").count(), 0);
}

TEST_F(DailySheetTest, ADocumentHoldsWhatWasTypedAMomentAgo) {
    session.AppPath = path(u"app/"_s);
    open();
    type("Text1(0)", u"Read page 4"_s);
    for (const QString& document : {u"Daily Planning Sheet"_s, u"Short Term Plan"_s}) {
        command(document).trigger();
        ASSERT_FALSE(seams.shell.runs.isEmpty());
        QFile made(seams.shell.runs.last().file);
        ASSERT_TRUE(made.open(QIODevice::ReadOnly));
        EXPECT_TRUE(made.readAll().contains("Read page 4")) << qPrintable(document);
    }
}

TEST_F(DailySheetTest, ReadsInBothSchemesAtEverySize) {
    settings.set(setting::ShowClassCoding, true);
    open();
    type("Text1(0)", u"Starter: recap fractions"_s);
    EXPECT_EQ(classBox(0).palette().color(QPalette::Base), QColor(0, 128, 255));
    checkScreen(*window, u"ORVAfrm_wide"_s);
    const QSize smallest = window->parentWidget()->minimumSizeHint();
    resize(smallest.width(), smallest.height());
    checkScreen(*window, u"ORVAfrm_narrow"_s);
}
