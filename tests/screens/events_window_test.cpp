// The calendar of events, driven through its own controls over a year's file: which month it shows
// and in which colours, how the keys lead through it, and that nothing typed is lost.

#include "calendar/event_settings.h"
#include "calendar/screens/day_box.h"
#include "calendar/screens/events_window.h"
#include "controls/date_field.h"
#include "controls/edit_menu.h"
#include "planning/screens/daily_sheet_window.h"
#include "support/screen_planning.h"

#include <QFileInfo>
#include <QScrollArea>

namespace {

/// Its today is Monday 9 September 2024, in a year whose first term ends on the 13th.
class EventsWindowTest : public PlanningScreen<EventsWindow, ToolWindow::CalendarOfEvents> {
protected:
    DayBox& day(int day) { return control<DayBox>(*window, u"T1(%1)"_s.arg(day - 1)); }
    QString caption(int day) { return control<QLabel>(*window, u"L1(%1)"_s.arg(day - 1)).text(); }
    QColor ground(int day) { return this->day(day).paper(); }
    /// Of the whole window: 0 where the caret is in no day.
    int focused() {
        const auto* box = qobject_cast<DayBox*>(window->focusWidget());
        return box ? box->objectName().sliced(3).chopped(1).toInt() + 1 : 0;
    }
    QString month() { return label("Label1").replace(u'\n', u' '); }
    QAction& command(const QString& text) {
        for (QAction* action : window->findChildren<QAction*>()) {
            if (action->text() == text)
                return *action;
        }
        qFatal("no command %s", qPrintable(text));
    }
    QString event(const QString& key, const QString& field) {
        const dao::Recordset row = rows(u"SELECT * FROM Calendar WHERE Month = '%1'"_s.arg(key));
        return row.EOF_() ? u"no row"_s : richtext::plainText(row.Collect(field).toText());
    }
};

} // namespace

TEST_F(EventsWindowTest, OpensOnToday) {
    open();
    EXPECT_EQ(month(), u"September 2024"_s);
    EXPECT_EQ(caption(9), u" Monday   09 "_s);
    EXPECT_EQ(focused(), 9);
    EXPECT_TRUE(day(30).isVisible());
    EXPECT_FALSE(day(31).isVisible());
    EXPECT_EQ(day(9).accessibleName(), QLocale().toString(QDate(2024, 9, 9), QLocale::LongFormat));
    window->SelectDate(QDate(2025, 2, 28));
    EXPECT_EQ(month(), u"February 2025"_s);
    EXPECT_EQ(focused(), 28);
    EXPECT_FALSE(day(29).isVisible());
    window->SelectDate(QDate(2024, 2, 1)); // outside the year, and a leap year's
    EXPECT_TRUE(day(29).isVisible());
    EXPECT_FALSE(day(30).isVisible());
}

TEST_F(EventsWindowTest, ButtonsStayInTheYearOfTheHeadingAndSelectNoDay) {
    open();
    for (const QString& expected :
         {u"October 2024"_s, u"November 2024"_s, u"December 2024"_s, u"January 2024"_s}) {
        click("CmdMove(1)");
        EXPECT_EQ(month(), expected);
        EXPECT_EQ(focused(), 0);
    }
    click("CmdMove(0)");
    EXPECT_EQ(month(), u"December 2024"_s);
    press(*window, Qt::Key_Down);
    EXPECT_EQ(focused(), 1);
    command(u"September"_s).trigger();
    EXPECT_EQ(month(), u"September 2024"_s);
    on<DateField>("Calendar1").setDate(QDate(2025, 5, 7));
    QTest::keyClick(&on<QLineEdit>("txtDate"), Qt::Key_Return);
    EXPECT_EQ(month(), u"May 2025"_s);
    EXPECT_EQ(focused(), 7);
}

TEST_F(EventsWindowTest, KeysLeadFromDayToDayAndOnToOtherMonths) {
    open();
    const struct {
        Qt::Key key;
        QString month;
        int day;
    } steps[] = {
        {Qt::Key_Down, u"September 2024"_s, 10},
        {Qt::Key_PageDown, u"September 2024"_s, 11},
        {Qt::Key_Up, u"September 2024"_s, 10},
        {Qt::Key_PageUp, u"September 2024"_s, 9},
    };
    for (const auto& [key, heading, expected] : steps) {
        press(*window, key);
        EXPECT_EQ(month(), heading);
        EXPECT_EQ(focused(), expected);
    }
    day(30).setFocus();
    press(*window, Qt::Key_Down);
    EXPECT_EQ(month(), u"October 2024"_s);
    EXPECT_EQ(focused(), 1);
    press(*window, Qt::Key_Up);
    EXPECT_EQ(month(), u"September 2024"_s);
    EXPECT_EQ(focused(), 30);
}

TEST_F(EventsWindowTest, ABoxGrowsForMoreLinesAndGoesBack) {
    open();
    const QRect line = day(9).geometry();
    press(*window, Qt::Key_A);
    EXPECT_EQ(day(9).geometry(), line);
    press(*window, Qt::Key_Return);
    EXPECT_EQ(day(9).height(), 10 * line.height());
    EXPECT_EQ(day(9).y(), line.y());
    press(*window, Qt::Key_Up); // within the text
    EXPECT_EQ(focused(), 9);
    press(*window, Qt::Key_Escape);
    EXPECT_EQ(day(9).geometry(), line);
    press(*window, Qt::Key_Left);
    EXPECT_TRUE(day(9).isGrown());
    day(12).setFocus();
    press(*window, Qt::Key_Return, Qt::ShiftModifier); // a line of the same paragraph
    press(*window, Qt::Key_Escape);
    press(*window, Qt::Key_Left);
    EXPECT_TRUE(day(12).isGrown());
    day(30).setFocus();
    EXPECT_EQ(day(9).geometry(), line);
    press(*window, Qt::Key_Return);
    EXPECT_EQ(day(30).geometry().bottom() + 1, day(30).parentWidget()->height());
    QTest::mouseClick(&control<QLabel>(*window, u"L1(28)"_s), Qt::LeftButton);
    EXPECT_FALSE(day(30).isGrown());
    EXPECT_EQ(focused(), 29);
}

TEST_F(EventsWindowTest, EveryWayOfLeavingKeepsWhatIsTyped) {
    const std::vector<Way> all = ways({
        {"two seconds", [&] { seams.clock.advance(std::chrono::seconds(2)); }},
        {"next month", [&] { click("CmdMove(1)"); }},
        {"month list", [&] { command(u"May"_s).trigger(); }},
        {"a date", [&] { window->SelectDate(QDate(2025, 9, 1)); }},
        {"the key out of the month",
         [&] {
             day(30).setFocus();
             press(*window, Qt::Key_Down);
         }},
    });
    QString typed;
    for (const Way& way : all) {
        SCOPED_TRACE(way.name);
        open();
        type("T1(29)", u"'"_s);
        typed += u'\'';
        way.leave();
        EXPECT_EQ(event(u"Sep1"_s, u"D30"_s), typed);
        close();
    }
}

TEST_F(EventsWindowTest, TheDailySheetFollowsAtOnce) {
    frame->open(ToolWindow::DailySheet);
    auto& dinner = control<RichTextBox>(*frame, u"Text4(0)"_s);
    EXPECT_EQ(dinner.toolTip(), QString());
    open();
    type("T1(8)", u"Open evening"_s);
    seams.clock.advance(std::chrono::seconds(2));
    EXPECT_EQ(dinner.toolTip(), u"Open evening"_s);
}

TEST_F(EventsWindowTest, ExtraRowsStayWhereSomethingIsWritten) {
    open();
    window->SelectDate(QDate(2025, 9, 3));
    type("T1(2)", u"kept"_s);
    window->SelectDate(QDate(2025, 10, 3));
    EXPECT_EQ(event(u"Oct2025"_s, u"D1"_s), QString());
    window->parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(event(u"Oct2025"_s, u"D1"_s), u"no row"_s);
    EXPECT_EQ(event(u"Sep2025"_s, u"D3"_s), u"kept"_s);
    open();
    window->SelectDate(QDate(2025, 9, 3));
    day(3).selectAll();
    press(*window, Qt::Key_Delete);
    close();
    EXPECT_EQ(event(u"Sep2025"_s, u"D3"_s), u"no row"_s);
}

TEST_F(EventsWindowTest, WeekendsAndHolidaysHaveTheirColours) {
    const QColor weekend(0xC0, 0xFF, 0xC0);
    const QColor holiday(0xC0, 0xC0, 0xFF);
    open();
    const auto expect = [&](const QColor& ofHoliday, const QColor& ofWeekend) {
        EXPECT_EQ(ground(13), QColor(Qt::white)); // the term's last day
        EXPECT_EQ(ground(16), ofHoliday);
        EXPECT_EQ(ground(14), ofWeekend);
        EXPECT_EQ(ground(15), ofWeekend);
    };
    expect(Qt::white, weekend);
    QAction& show = command(u"Show Holidays"_s);
    show.trigger();
    expect(holiday, weekend);
    settings.set(setting::WeekendCol, 0x80FFFF);
    expect(holiday, QColor(0xFF, 0xFF, 0x80));
    close();
    EXPECT_TRUE(settings.get(setting::ShowHolidays));
    open();
    expect(holiday, QColor(0xFF, 0xFF, 0x80));
    command(u"Show Holidays"_s).trigger();
    expect(Qt::white, QColor(0xFF, 0xFF, 0x80));
}

TEST_F(EventsWindowTest, ASelectionReplacesABlockOfThePlanningSheet) {
    store(u"24-09-09"_s, u"AfterSchool"_s, u"old"_s);
    frame->open(ToolWindow::DailySheet);
    open();
    type("T1(8)", u"Fair at 5"_s);
    day(9).select(0, 4);
    command(u"Add to Planning: 'After School'"_s).trigger();
    EXPECT_EQ(storedText(u"24-09-09"_s, u"AfterSchool"_s), u"Fair"_s);
    EXPECT_EQ(control<RichTextBox>(*frame, u"Text4(1)"_s).plainText(), u"Fair"_s);
    EXPECT_TRUE(stored(u"24-09-09"_s, u"Dinner"_s).isNull());
    type("T1(13)", u"Saturday"_s);
    day(14).selectAll();
    command(u"Add to Planning: 'Notes'"_s).trigger(); // has no sheet: nothing is said

    command(u"Schedule this event..."_s).trigger();
    EXPECT_EQ(control<QLineEdit>(*frame, u"txtCaption"_s).text(), u"Saturday"_s);
    seams.prompts.expect(PromptKind::Message, u"Not saved"_s, AnswerNo);
    EXPECT_TRUE(frame->close(ToolWindow::Reminders));

    window->SelectDate(QDate(2024, 9, 11));
    command(u"Show Planning..."_s).trigger();
    EXPECT_EQ(control<QLabel>(*frame, u"LbDate"_s).text(), u"24-09-11"_s);
    click("CmdMove(1)");
    EXPECT_FALSE(command(u"Show Planning..."_s).isEnabled());
}

TEST_F(EventsWindowTest, AnImportAsksFirstAndShowsToday) {
    const QString other = path(u"other.mdb"_s);
    createYear(oneWeekAnswers(), other, seams);
    changeRecord(engine.OpenDatabase(other), u"SELECT * FROM Calendar WHERE Month = 'Sep1'"_s,
                 u"D9"_s, u"theirs"_s);
    open();
    type("T1(8)", u"ours"_s);
    window->SelectDate(QDate(2024, 10, 1));
    QAction& import = command(u"Import from ORVA database"_s);
    seams.prompts.expect(PromptKind::Message, u"Import COE"_s, AnswerNo);
    import.trigger();
    seams.prompts.expect(PromptKind::Message, u"Import COE"_s, AnswerYes);
    seams.prompts.expect(PromptKind::File, u"Select the file to import term dates from:"_s);
    import.trigger();
    EXPECT_EQ(month(), u"October 2024"_s);
    seams.prompts.expect(PromptKind::Message, u"Import COE"_s, AnswerYes);
    seams.prompts.expect(PromptKind::File, u"Select the file to import term dates from:"_s, other);
    import.trigger();
    EXPECT_EQ(month(), u"September 2024"_s);
    EXPECT_EQ(focused(), 9);
    EXPECT_EQ(day(9).plainText(), u"theirs"_s);
    type("T1(8)", u" and ours"_s);
    close();
    EXPECT_EQ(event(u"Sep1"_s, u"D9"_s), u"theirs and ours"_s);
}

TEST_F(EventsWindowTest, WhatCannotBeWrittenStaysWhereItIs) {
    open();
    day(9).setSelectedText(u"precious"_s + QString(60'000, u'x'));
    seams.prompts.expect(PromptKind::Plain, u"Validate Data Error"_s, 1);
    {
        const FileSizeLimit fullDisk(QFileInfo(path()).size());
        click("CmdMove(1)");
        EXPECT_EQ(month(), u"September 2024"_s);
        seams.prompts.expect(PromptKind::Plain, u"Validate Data Error"_s, 1);
        seams.prompts.expect(PromptKind::Message, u"Not saved"_s, AnswerNo);
        window->parentWidget()->close();
        EXPECT_TRUE(window->isVisible());
    }
    click("CmdMove(1)");
    EXPECT_EQ(month(), u"October 2024"_s);
    EXPECT_TRUE(event(u"Sep1"_s, u"D9"_s).startsWith(u"precious"));
}

TEST_F(EventsWindowTest, IsLegibleAndReachable) {
    open();
    command(u"Show Holidays"_s).trigger();
    checkScreen(*window, u"coefrm"_s);
    press(*window, Qt::Key_Return);
    resize(480, 320);
    checkScreen(*window, u"coefrm_narrow"_s);
}
