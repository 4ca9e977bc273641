// The reminders' windows, driven through their own controls over a year's file.

#include "controls/date_field.h"
#include "controls/edit_menu.h"
#include "organiser/reminder_settings.h"
#include "organiser/screens/reminder_desk.h"
#include "organiser/screens/reminder_window.h"
#include "organiser/screens/reminders_window.h"
#include "organiser/screens/time_entry.h"
#include "support/screen_planning.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <QTableView>

namespace {

/// Its today is Monday 9 September 2024, half past eight.
class RemindersWindowTest : public PlanningScreen<RemindersWindow, ToolWindow::Reminders> {
protected:
    void TearDown() override {
        frame.reset();
        session.CloseAllDatabases(); // with it the reminders go
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QTableView& grid() { return on<QTableView>("dbg"); }
    QString cell(int row, int column) {
        return grid().model()->index(row, column).data().toString();
    }
    QPushButton& entry(const char* name) { return on<QPushButton>(name); }
    QLineEdit& title() { return on<QLineEdit>("txtCaption"); }
    QPlainTextEdit& message() { return on<QPlainTextEdit>("txtMemo"); }
    bool isWriting() { return title().isVisible(); }
    QString shownTime() {
        return label("Label7(0)") + u':' + label("Label7(1)") + u' ' + label("Label7(2)");
    }
    /// Adds an item at a time of today by the panel.
    void add(const QString& caption, QTime time) {
        entry("XPmenu(1)").click();
        QTest::keyClicks(&title(), caption);
        QTest::keyClicks(&message(), u"message of "_s + caption);
        on<TimeEntry>("TimeEntry").setTime(time);
        entry("cmdSave").click();
    }
    QStringList schedules() {
        return rowsOf(session.CurrentDB,
                      u"SELECT TaskTime, Caption, Active, Alarm, ContLoop, Type, Duration FROM "
                      "Schedules ORDER BY TaskDate, TaskTime"_s);
    }
};

} // namespace

TEST_F(RemindersWindowTest, AnItemIsWrittenFoundAndDeleted) {
    open();
    const QAbstractItemModelTester tester(grid().model());
    EXPECT_TRUE(label("lbDetails").startsWith(u"No Items available"_s));
    EXPECT_FALSE(entry("XPmenu(2)").isEnabled() || entry("XPmenu(3)").isEnabled());
    add(u"Dad's call"_s, QTime(12, 0));
    add(u"early"_s, QTime(9, 5));
    EXPECT_FALSE(isWriting());
    EXPECT_EQ(schedules(),
              QStringList({u"09:05:00|early|Yes|~|N|1|X"_s, u"12:00:00|Dad's call|Yes|~|N|1|X"_s}));
    EXPECT_EQ(cell(0, 3), u"early"_s);
    EXPECT_TRUE(label("lbDetails").startsWith(u"Date:   2024-09-09\nTime:   09:05:00"_s));
    grid().setFocus();
    press(*window, Qt::Key_Down);
    EXPECT_TRUE(label("lbDetails").contains(u"12:00:00"_s));
    seams.prompts.expect(PromptKind::Plain, u"Remove Task"_s, AnswerNo);
    press(*window, Qt::Key_Delete);
    seams.prompts.expect(PromptKind::Plain, u"Remove Task"_s, AnswerYes);
    entry("XPmenu(3)").click();
    EXPECT_EQ(schedules().size(), 1);
    seams.prompts.expect(PromptKind::Plain, u"Duplicate Task"_s, AnswerOk);
    add(u"again"_s, QTime(9, 5));
    EXPECT_TRUE(isWriting());
    seams.prompts.expect(PromptKind::Message, u"Not saved"_s, AnswerNo);
    close();
}

TEST_F(RemindersWindowTest, TheTimeIsChangedByItsLabelsKeysAndButtons) {
    open();
    entry("XPmenu(1)").click();
    EXPECT_EQ(shownTime(), u"08:30 AM"_s);
    auto& time = on<TimeEntry>("TimeEntry");
    click("Label7(1)");
    QTest::mouseClick(&button("cmd1(0)"), Qt::LeftButton);
    EXPECT_EQ(shownTime(), u"08:31 AM"_s);
    QTest::keyClick(&time, Qt::Key_Right);
    QTest::keyClick(&time, Qt::Key_Up);
    EXPECT_EQ(shownTime(), u"08:31 PM"_s);
    QTest::keyClick(&time, Qt::Key_Left);
    QTest::keyClick(&time, Qt::Key_Left);
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(&time, Qt::Key_Up);
    EXPECT_EQ(shownTime(), u"12:31 PM"_s);
    QTest::keyClick(&time, Qt::Key_Up);
    QTest::mouseClick(&button("cmd1(1)"), Qt::LeftButton);
    EXPECT_EQ(time.time(), QTime(12, 31));
    const auto isMarked = [&](const char* name) {
        return on<QLabel>(name).backgroundRole() == QPalette::Highlight;
    };
    EXPECT_TRUE(isMarked("Label7(0)"));
    QTest::keyClicks(&title(), u"x"_s);
    EXPECT_FALSE(isMarked("Label7(0)"));
    time.setFocus();
    QTest::keyClicks(&time, u"7"_s);
    QTest::keyClick(&time, Qt::Key_Right);
    QTest::keyClicks(&time, u"45a"_s);
    EXPECT_EQ(time.time(), QTime(7, 45));
    seams.prompts.expect(PromptKind::Message, u"Not saved"_s, AnswerNo);
    close();
}

TEST_F(RemindersWindowTest, NoneKeepsTheSoundAndSoundOnlyHasItsOwnMessage) {
    const QString sound = writeFile(path(u"bell.wav"_s), "RIFF");
    open();
    entry("XPmenu(1)").click();
    QTest::keyClicks(&title(), u"bell"_s);
    on<QCheckBox>("Check2").setChecked(true);
    on<QComboBox>("Combo1").setCurrentIndex(1);
    EXPECT_EQ(message().toPlainText(), u"Sound only reminder"_s);
    EXPECT_FALSE(on<QCheckBox>("Check2").isEnabled() || on<QCheckBox>("Check2").isChecked());
    seams.prompts.expect(PromptKind::File,
                         u" Select the Sound file to play when reminder is displayed:"_s, sound);
    entry("cmdBrowse").click();
    QTest::mouseClick(&on<QCheckBox>("Check1(0)"), Qt::LeftButton, {}, {5, 8});
    QTest::mouseClick(&on<QCheckBox>("Check1(1)"), Qt::LeftButton, {}, {5, 8});
    EXPECT_FALSE(on<QCheckBox>("Check1(0)").isChecked());
    entry("cmdSave").click();
    const QStringList saved{u"08:30:00|bell|Yes|%1|N|2|W"_s.arg(sound)};
    EXPECT_EQ(schedules(), saved);
    entry("XPmenu(2)").click();
    EXPECT_EQ(on<QComboBox>("cboS").currentText(), sound);
    on<QComboBox>("cboS").setCurrentIndex(0);
    EXPECT_EQ(on<QComboBox>("cboS").currentText(), u"< NONE >"_s);
    entry("cmdSave").click();
    EXPECT_EQ(schedules(), saved);
}

TEST_F(RemindersWindowTest, WhatIsWrittenIsNotLostSilently) {
    const std::vector<Way> all = ways({
        {"Escape", [&] { press(*window, Qt::Key_Escape); }},
        {"the list", [&] { entry("XPmenu(0)").click(); }},
        {"another new one", [&] { entry("XPmenu(1)").click(); }},
        {"leaving the year", [&] { frame->MayLeave(); }},
    });
    for (const Way& way : all) {
        SCOPED_TRACE(way.name);
        if (QByteArray(way.name) == "another window")
            continue; // it stays as it is
        open();
        entry("XPmenu(1)").click();
        QTest::keyClicks(&title(), u"kept"_s);
        QTest::keyClicks(&message(), u"text"_s);
        on<TimeEntry>("TimeEntry").setTime(QTime(23, 0));
        seams.prompts.expect(PromptKind::Message, u"Not saved"_s, AnswerYes);
        way.leave();
        EXPECT_EQ(schedules(), QStringList(u"23:00:00|kept|Yes|~|N|1|X"_s));
        close();
        session.CurrentDB.TableDefs().Delete(u"Schedules");
    }
    open();
    entry("XPmenu(1)").click();
    QTest::keyClicks(&title(), u"stays"_s);
    seams.prompts.expect(PromptKind::Message, u"Not saved"_s, AnswerCancel);
    window->parentWidget()->close();
    EXPECT_TRUE(isWriting());
    seams.prompts.expect(PromptKind::Message, u"Not saved"_s, AnswerNo);
    close();
}

TEST_F(RemindersWindowTest, TheTwoTogglesExcludeEachOtherAndTheListFollows) {
    ReminderDesk desk(session, *frame);
    open();
    add(u"soon"_s, QTime(8, 31));
    add(u"later"_s, QTime(9, 0));
    seams.clock.advance(std::chrono::minutes(2));
    EXPECT_EQ(cell(0, 2), u"No"_s) << "it was due";
    click("TB1(0)");
    EXPECT_EQ(grid().model()->rowCount(), 1);
    EXPECT_EQ(cell(0, 3), u"later"_s);
    click("TB1(1)");
    EXPECT_FALSE(button("TB1(0)").isChecked());
    EXPECT_EQ(cell(0, 3), u"soon"_s);
    click("TB1(1)");
    EXPECT_EQ(grid().model()->rowCount(), 2);
}

TEST_F(RemindersWindowTest, AReminderStandsInItsColoursUntilTheYearCloses) {
    settings.set(setting::SchedBackcolor, 0x80FFFF);
    settings.set(setting::SchedFontcolor, 0xFF0000);
    const ScheduleItem item{.date = u"2024-09-09"_s,
                            .time = u"12:00:00"_s,
                            .caption = u"Call"_s,
                            .memo = QString(u"a long message "_s).repeated(30),
                            .alarm = u"/bell.wav"_s,
                            .loops = true};
    ReminderWindow::present(session, item);
    QWidget* shown = nullptr;
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->objectName() == u"ReminderFrm"_s)
            shown = each;
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->windowTitle(),
              u"Call : "_s + QLocale().toString(QDate(2024, 9, 9), session.ShortDateFormat));
    EXPECT_EQ(shown->palette().color(QPalette::Window), QColor(0xFF, 0xFF, 0x80));
    EXPECT_EQ(control<QLabel>(*shown, u"lbMemo"_s).palette().color(QPalette::WindowText),
              QColor(Qt::blue));
    checkScreen(*shown, u"reminder"_s);
    EXPECT_EQ(seams.shell.sounds, QStringList(u"/bell.wav"_s));
    frame->CloseOpenForms();
    session.CloseAllDatabases();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(seams.shell.sounds.last(), QString()) << "what plays on and on is stopped";
}

TEST_F(RemindersWindowTest, AnEventOfTheCalendarBecomesANewItem) {
    frame->open(ToolWindow::Reminders, EventText{QDate(2024, 9, 20), u"Trip\nbring lunch"_s});
    window = frame->findChild<RemindersWindow*>();
    EXPECT_EQ(title().text(), u"Trip"_s);
    EXPECT_EQ(message().toPlainText(), u"Trip\nbring lunch"_s);
    entry("cmdSave").click();
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT TaskDate FROM Schedules"_s),
              QStringList(u"2024-09-20"_s));
}

TEST_F(RemindersWindowTest, IsLegibleAndReachable) {
    open();
    add(u"one"_s, QTime(12, 0));
    checkScreen(*window, u"schedulefrm"_s);
    entry("XPmenu(2)").click();
    QCoreApplication::processEvents();
    checkScreen(*window, u"schedulefrm_panel"_s);
}
