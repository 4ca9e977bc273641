// The timetable, driven by mouse and keys over a year with two timetables.

#include "calendar/screens/timetable_window.h"
#include "calendar/timetable_settings.h"
#include "frame/screens/main_window.h"
#include "frame/screens/window_table.h"
#include "frame/year_roads.h"
#include "support/engine_places.h"
#include "support/screen_checks.h"
#include "support/year_session.h"
#include "year/year_answers_json.h"

#include <QFrame>
#include <QImage>

#include <memory>

namespace {

constexpr qint32 blue = 0xFF0000;

YearAnswers sampleYear() {
    return readYearAnswers(bytesOf(test::sample(u"year.json"_s)), QLocale::c()).answers;
}

class TimetableScreenTest : public YearSession {
protected:
    TimetableScreenTest() { openYear(sampleYear()); }

    void show() {
        window = std::make_unique<TimetableWindow>(session);
        window->resize(800, 560);
        window->show();
        QApplication::setActiveWindow(window.get());
        label(u"T1(0)").setFocus();
    }
    QLabel& label(QStringView name) { return control<QLabel>(*window, name.toString()); }
    QLineEdit& box(QStringView name) { return control<QLineEdit>(*window, name.toString()); }
    QFrame& editor() { return control<QFrame>(*window, u"PicX"_s); }
    void click(QStringView name) { QTest::mouseClick(&label(name), Qt::LeftButton); }
    void edit(QStringView name) { QTest::mouseDClick(&label(name), Qt::LeftButton); }
    QRect frame() { return control<QFrame>(*window, u"SelectionFrame"_s).geometry(); }
    TimetableGrid stored(int week) {
        TimetableGrid grid(session.PeriodsPerDay);
        LoadTT(session.CurrentDB, week, grid);
        return grid;
    }

    std::unique_ptr<TimetableWindow> window;
};

TEST_F(TimetableScreenTest, ShowsTheCurrentWeek) {
    seams.clock = ScriptedClock(QDateTime(QDate(2026, 9, 7), QTime(9, 0)));
    show();
    EXPECT_EQ(window->windowTitle(), u"Timetable for :Mrs A Morrow"_s);
    EXPECT_EQ(control<QComboBox>(*window, u"cboWeek"_s).currentText(), u"Week B"_s);
    EXPECT_EQ(label(u"T1(0)").text(), u"7M2"_s);
    control<QComboBox>(*window, u"cboWeek"_s).setCurrentIndex(0);
    EXPECT_EQ(label(u"T1(0)").text(), u"9M4"_s);
    EXPECT_EQ(label(u"T1(0)").accessibleName(), u"Monday, period 1, 9M4"_s);
    EXPECT_EQ(label(u"L1(5)").text(), u"Period\n6"_s);
    EXPECT_EQ(label(u"Label2(4)").text(), u"Fri"_s);
}

TEST_F(TimetableScreenTest, EditsACellInItsPlaceAndSavesAsItCloses) {
    show();
    edit(u"T1(0)");
    ASSERT_TRUE(editor().isVisible());
    EXPECT_EQ(box(u"Tx1").text(), u"9M4"_s);
    box(u"Tx1").setText({});
    QTest::keyClicks(&box(u"Tx1"), u"Year 9"_s);
    press(*window, Qt::Key_Tab);
    QTest::keyClicks(&box(u"tx2"), u"Room 12"_s);
    seams.prompts.expect(PromptKind::Colour, {}, blue);
    control<QPushButton>(*window, u"cmdCol"_s).click();
    EXPECT_EQ(editor().palette().color(QPalette::Window), QColor(Qt::blue));
    click(u"T2(0)");
    EXPECT_FALSE(editor().isVisible());
    EXPECT_EQ(label(u"T1(0)").text(), u"Year 9"_s);
    EXPECT_EQ(label(u"lbT1(0)").text(), u"Room 12"_s);
    EXPECT_EQ(label(u"T3(2)").text(), u"Year 9"_s); // the same class
    EXPECT_EQ(label(u"lbT3(2)").text(), QString());
    EXPECT_EQ(stored(0).at(1, 1).caption, u"9M4"_s);
    EXPECT_TRUE(window->close());
    EXPECT_EQ(stored(0).at(1, 1), (TimetableCell{u"Year 9"_s, blue, u"9M4"_s, u"Room 12"_s}));
}

TEST_F(TimetableScreenTest, TheKeyboardReachesEverything) {
    show();
    press(*window, Qt::Key_Right);
    press(*window, Qt::Key_Down);
    EXPECT_EQ(frame(), label(u"T2(1)").geometry());
    for (int i = 0; i < 9; ++i)
        press(*window, Qt::Key_Down);
    press(*window, Qt::Key_Home);
    EXPECT_EQ(frame(), label(u"T1(5)").geometry());
    press(*window, Qt::Key_F2);
    QTest::keyClicks(&box(u"Tx1"), u"kept"_s);
    press(*window, Qt::Key_Return);
    EXPECT_EQ(label(u"T1(5)").text(), u"kept"_s);
    press(*window, Qt::Key_Return);
    QTest::keyClicks(&box(u"Tx1"), u"dropped"_s);
    press(*window, Qt::Key_Escape);
    EXPECT_FALSE(editor().isVisible());
    press(*window, Qt::Key_Escape);
    EXPECT_EQ(label(u"T1(5)").text(), u"kept"_s);
    EXPECT_EQ(window->focusWidget(), &label(u"T1(5)"));
}

TEST_F(TimetableScreenTest, CopiesToOneCell) {
    show();
    QMenu& popup = control<QMenu>(*window, u"mnuPopup"_s);
    const auto action = [&popup](QStringView name) -> QAction& {
        return *popup.findChild<QAction*>(name.toString());
    };
    EXPECT_FALSE(action(u"mnuPaste").isEnabled());
    action(u"mnuCopy").trigger();
    click(u"T3(1)");
    action(u"mnuPaste").trigger();
    action(u"mnuEdit").trigger();
    EXPECT_TRUE(editor().isVisible());
    press(*window, Qt::Key_Escape);
    EXPECT_EQ(label(u"T3(1)").text(), u"9M4"_s);
    EXPECT_EQ(label(u"T3(1)").palette().color(QPalette::Window),
              label(u"T1(0)").palette().color(QPalette::Window));
    press(*window, Qt::Key_Right);
    press(*window, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(label(u"T4(1)").text(), u"9M4"_s);
    EXPECT_EQ(label(u"T2(3)").text(), u"13FM"_s);
}

TEST_F(TimetableScreenTest, WhatWasChangedIsSavedBeforeSomethingElseShows) {
    show();
    edit(u"T1(2)");
    box(u"Tx1").setText(u"changed"_s);
    click(u"T1(0)");
    edit(u"T1(3)");
    box(u"Tx1").setText(u"typed"_s);
    auto& weeks = control<QComboBox>(*window, u"cboWeek"_s);
    weeks.setCurrentIndex(1);
    EXPECT_FALSE(editor().isVisible());
    EXPECT_EQ(label(u"T1(3)").text(), QString());
    weeks.setCurrentIndex(0);
    EXPECT_EQ(label(u"T1(2)").text(), u"changed"_s);
    EXPECT_EQ(label(u"T1(3)").text(), u"typed"_s);
    edit(u"T1(2)");
    box(u"Tx1").setText(u"again"_s);
    click(u"T1(0)");
    emit session.GetNotices().classesChanged();
    EXPECT_EQ(stored(0).at(1, 3).caption, u"again"_s);
    EXPECT_EQ(label(u"T1(2)").text(), u"again"_s);
}

TEST_F(TimetableScreenTest, TheToolbarSavesAndTakesAPicture) {
    show();
    edit(u"T1(2)");
    box(u"Tx1").setText(u"Free"_s);
    click(u"T1(0)");
    control<QAction>(*window, u"TT_Btns(0)"_s).trigger();
    EXPECT_EQ(stored(0).at(1, 3).caption, u"Free"_s);
    const QString picture = folder.filePath(u"week.bmp"_s);
    seams.prompts.expect(PromptKind::File, u" Save file as :"_s, picture);
    control<QAction>(*window, u"TT_Btns(2)"_s).trigger();
    EXPECT_EQ(QImage(picture).size(), control<QWidget>(*window, u"Picture2"_s).size());
    EXPECT_EQ(window->findChild<QAction*>(u"TT_Btns(3)"_s), nullptr);
    seams.shell.hasWordProcessor = false;
    seams.prompts.expect(PromptKind::Selector, u"Export Timetable"_s, u"Both weeks"_s);
    seams.prompts.expect(PromptKind::Message, u"Document creation cancelled"_s, AnswerOk);
    control<QAction>(*window, u"TT_Btns(1)"_s).trigger();
}

TEST_F(TimetableScreenTest, ADamagedClassIsToldAndTheWindowStays) {
    put(u"SELECT * FROM Classcodes WHERE Classcode = '8M1'"_s, u"Mon"_s, u"0"_s);
    seams.prompts.expect(PromptKind::Plain, u"Load Timetable Error"_s, AnswerOk);
    show();
    EXPECT_TRUE(seams.prompts.last().text.endsWith(u"Error number: 3265"_s));
    EXPECT_EQ(label(u"T1(1)").text(), u"7M2"_s);
    EXPECT_TRUE(window->close());
}

TEST_F(TimetableScreenTest, WhatCannotBeSavedIsNotThrownAwayUnasked) {
    show();
    session.CurrentDB.TableDefs().Delete(ExtraTTinfoTable);
    for (const int answer : {AnswerNo, AnswerYes}) {
        if (answer == AnswerNo) // told once
            seams.prompts.expect(PromptKind::Plain, u"Save Timetable Error"_s, AnswerOk);
        seams.prompts.expect(PromptKind::Message, u"Not saved"_s, answer);
        EXPECT_EQ(window->close(), answer == AnswerYes);
    }
}

TEST_F(TimetableScreenTest, LeavingTheDatabaseSavesItAndKeepsItsPlace) {
    MainWindow frame(session, windowTable(), false);
    frame.show();
    frame.open(ToolWindow::Timetable);
    QTest::mouseDClick(&control<QLabel>(frame, u"T1(2)"_s), Qt::LeftButton);
    control<QLineEdit>(frame, u"Tx1"_s).setText(u"Free"_s);
    QTest::mouseClick(&control<QLabel>(frame, u"T1(0)"_s), Qt::LeftButton);
    EXPECT_TRUE(LeaveDatabase(session, frame));
    EXPECT_EQ(frame.findChild<TimetableWindow*>(), nullptr);
    EXPECT_TRUE(settings.find(Setting<qint32>{setting::Timetable, u"Width"}));
    ASSERT_EQ(session.OpenDatabaseFile(path(), {}), OpenDone);
    EXPECT_EQ(stored(0).at(1, 3).caption, u"Free"_s);
}

TEST_F(TimetableScreenTest, LooksRightInBothSchemesAndSizes) {
    put(AdminTable, u"Break1"_s, 2);
    put(AdminTable, u"Break2"_s, 4);
    for (const int size : {8, 16}) {
        settings.WriteFontRecord(setting::keyOf(setting::Timetable), {.bold = true, .size = size});
        TimetableGrid grid = stored(0);
        grid.at(1, 1).room = u"Room 12"_s;
        grid.at(1, 3) = {
            u"Planning, preparation and assessment in the staff room"_s, 0x800000, {}, u"S1"_s};
        grid.at(2, 5) = {u"Year 11 duty"_s, 0x404040, {}, {}};
        SaveTTinfo(session, 0, grid);
        show();
        checkScreen(*window, u"TTfrm_%1"_s.arg(size));
        const int line = control<QWidget>(*window, u"Line1"_s).geometry().center().y();
        EXPECT_GE(line, label(u"T1(1)").geometry().bottom() - 2);
        EXPECT_LE(line, label(u"T1(2)").geometry().top() + 2);
        window->resize(window->minimumSizeHint());
        checkScreen(*window, u"TTfrm_%1_narrow"_s.arg(size));
        edit(u"T5(5)");
        checkScreen(*window, u"TTfrm_%1_editor"_s.arg(size));
        window.reset();
    }
}

} // namespace
