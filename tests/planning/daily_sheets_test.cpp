// The sheets of a year without a window: which one is shown, how rows come and go, what a piece of
// text carried across the year reaches, and what the boxes write.

#include "planning/daily_sheets.h"
#include "planning/sheet_making.h"

#include "store/schema.h"
#include "support/plain_bound.h"
#include "support/planning_year.h"

namespace {

/// A year from 4 to 13 and 23 to 27 September 2024 (thirteen sheets, week 1 is a B week); today is
/// Monday the 9th, in week 2.
class SheetsTest : public PlanningYear {
protected:
    explicit SheetsTest(const YearAnswers& answers = twoWeekAnswers()) {
        openYear(answers);
        sheets.binding().bind(u"Lesson1"_s, lesson, u"Period 1"_s);
        sheets.binding().bind(u"Homework1"_s, homework);
        sheets.binding().bind(u"Class1"_s, classBox);
    }

    void setToday(QDate date) {
        seams.clock.advance(QDateTime(date, QTime(9, 0)) - seams.clock.now());
    }
    void deleteAllBut(int count) {
        dao::Recordset rows = YearSession::rows(u"Planning"_s);
        while (rows.RecordCount() > count) {
            rows.MoveLast();
            rows.Delete();
        }
    }
    QStringList columns(const QString& what) {
        return rowsOf(session.CurrentDB, u"SELECT %1 FROM Planning ORDER BY PlanDate"_s.arg(what));
    }
    /// The dates of the sheets whose field holds text.
    QStringList filled(const QString& field) {
        QStringList dates;
        for (const QString& row : columns(u"PlanDate, "_s + field)) {
            if (!richtext::plainText(row.section(u'|', 1)).isEmpty() && !row.endsWith(u"|~"_s))
                dates += row.section(u'|', 0, 0);
        }
        return dates;
    }

    DailySheets sheets{session};
    PlainBound lesson;
    PlainBound homework;
    PlainBound classBox;
};

class OneWeekSheetsTest : public SheetsTest {
protected:
    OneWeekSheetsTest() : SheetsTest(oneWeekAnswers()) {}
};

} // namespace

TEST_F(SheetsTest, OpensOnTodayOrTheNextOrTheLast) {
    const struct {
        QDate today;
        QString shown;
        bool isAsked;
    } cases[] = {
        {QDate(2024, 9, 9), u"24-09-09"_s, false}, {QDate(2024, 9, 14), u"24-09-23"_s, true},
        {QDate(2024, 8, 1), u"24-09-04"_s, true},  {QDate(2024, 9, 27), u"24-09-27"_s, false},
        {QDate(2024, 12, 1), u"24-09-27"_s, true},
    };
    for (const auto& example : cases) {
        setToday(example.today);
        if (example.isAsked)
            seams.prompts.expect(PromptKind::Message, u"Today"_s, AnswerNo);
        sheets.showFirst();
        EXPECT_EQ(sheets.planDate(), example.shown);
    }
    EXPECT_EQ(seams.prompts.last().look.captions, (QStringList{u"Yes please"_s, u"No thanks"_s}));
}

TEST_F(SheetsTest, AnEmptyTableComesAlive) {
    deleteAllBut(0);
    seams.prompts.expect(PromptKind::Message, u"The planning table is empty!"_s, AnswerOk);
    sheets.showFirst();
    EXPECT_TRUE(sheets.isEmpty());
    EXPECT_EQ(sheets.positionText(), QString());
    EXPECT_EQ(sheets.heading(), QString());
    EXPECT_EQ(sheets.eventText(), QString());
    sheets.move(SheetMove::Next);
    sheets.deleteSheet();
    EXPECT_FALSE(sheets.ShowPlan(QDate(2024, 9, 9)));
    EXPECT_TRUE(sheets.pickDate(QDate(2024, 9, 10)));
    EXPECT_EQ(sheets.positionText(), u"1/1"_s);
}

TEST_F(SheetsTest, OneSheetHasNowhereToGo) {
    deleteAllBut(1);
    setToday(QDate(2024, 9, 4));
    sheets.showFirst();
    for (const SheetMove move :
         {SheetMove::First, SheetMove::Previous, SheetMove::Next, SheetMove::Last}) {
        EXPECT_FALSE(sheets.canMove(move));
        lesson.type(u"kept"_s);
        sheets.move(move);
        EXPECT_EQ(sheets.planDate(), u"24-09-04"_s);
        EXPECT_EQ(lesson.shown, u"kept"_s);
    }
}

TEST_F(SheetsTest, ANewSheetHasTheClassesOfItsDay) {
    deleteAllBut(0);
    seams.prompts.expect(PromptKind::Message, u"The planning table is empty!"_s, AnswerOk);
    sheets.showFirst();
    dao::Recordset clone = rows(u"Planning"_s);
    const QStringList dates{u"24-09-09"_s, u"24-09-23"_s, u"24-09-04"_s,
                            u"24-09-14"_s, u"24-09-08"_s, u"24-09-18"_s};
    for (const QString& date : dates)
        AddNewPlan(session.CurrentDB, clone, date);
    EXPECT_EQ(columns(u"PlanDate, Week, ABWeek, Class1, Class2, Class3, Class5"_s),
              (QStringList{
                  u"24-09-04|1|~|~|~|~|7A"_s, // Wednesday of a B week
                  u"24-09-08|2|~|~|~|~|~"_s,  // Sunday: its week's number and no classes
                  u"24-09-09|2|~|7A|~|7A|~"_s,
                  u"24-09-14|2|~|~|~|~|~"_s,  // Saturday: the same
                  u"24-09-18|-1|~|~|~|~|~"_s, // in a week of holidays
                  u"24-09-23|3|~|9C|9C|~|~"_s,
              }));
}

TEST_F(OneWeekSheetsTest, AYearWithoutLettersHasClassesToo) {
    setToday(QDate(2024, 9, 9));
    sheets.showFirst();
    rows(sheet(u"24-09-13"_s)).Delete();
    sheets.reopenOn(u"Last"_s);
    seams.prompts.expect(PromptKind::Message, u"Create Plan"_s, AnswerYes);
    sheets.pickDate(QDate(2024, 9, 13));
    EXPECT_EQ(sheets.classOf(2), u"7A"_s);
    EXPECT_EQ(sheets.classOf(1), QString());
}

TEST_F(SheetsTest, RebindsToADateOrTheNextOne) {
    sheets.showFirst();
    const struct {
        QString target;
        QString shown;
    } cases[] = {
        {u"First"_s, u"24-09-04"_s},    {u"Last"_s, u"24-09-27"_s},
        {u"24-09-10"_s, u"24-09-10"_s}, {u"24-09-14"_s, u"24-09-23"_s},
        {u"24-10-02"_s, u"24-09-27"_s}, {u"nonsense"_s, u"24-09-04"_s},
    };
    for (const auto& example : cases) {
        sheets.reopenOn(example.target);
        EXPECT_EQ(sheets.planDate(), example.shown) << example.target.toStdString();
    }
}

TEST_F(SheetsTest, AsksForASheetThatIsMissing) {
    sheets.showFirst();
    EXPECT_TRUE(sheets.ShowPlan(QDate(2024, 9, 24)));
    EXPECT_EQ(sheets.planDate(), u"24-09-24"_s);
    seams.prompts.expect(PromptKind::Message, u"Doesn't Exist"_s, AnswerOk);
    EXPECT_FALSE(sheets.ShowPlan(QDate(2024, 9, 14)));
    EXPECT_EQ(sheets.planDate(), u"24-09-24"_s);
    EXPECT_TRUE(sheets.pickDate(QDate(2024, 9, 24)));
    EXPECT_TRUE(sheets.pickDate(QDate()));
    seams.prompts.expect(PromptKind::Message, u"Create Plan"_s, AnswerNo);
    EXPECT_FALSE(sheets.pickDate(QDate(2024, 9, 14)));
    setToday(QDate(2024, 9, 13));
    sheets.showTomorrow(); // without asking
    EXPECT_EQ(sheets.positionText(), u"9/14"_s);
}

TEST_F(SheetsTest, DeletingBetweenTwoShowsTheNext) {
    sheets.showFirst();
    seams.prompts.expect(PromptKind::Message, u"Delete Record"_s, AnswerNo);
    sheets.deleteSheet();
    EXPECT_EQ(sheets.count(), 13);
    for (const QString& next : {u"24-09-10"_s, u"24-09-11"_s}) {
        seams.prompts.expect(PromptKind::Message, u"Delete Record"_s, AnswerYes);
        sheets.deleteSheet();
        EXPECT_EQ(sheets.planDate(), next);
    }
    EXPECT_EQ(seams.prompts.last().text,
              u"You are about to delete the record for Tuesday  -  Sep 10 2024\nYou will not be "
              "able to recover this record! are you sure you wish to continue?"_s);
    sheets.move(SheetMove::Last);
    seams.prompts.expect(PromptKind::Message, u"Delete Record"_s, AnswerYes);
    sheets.deleteSheet();
    EXPECT_EQ(sheets.planDate(), u"24-09-26"_s);
}

TEST_F(SheetsTest, TheLimitOfALesson) {
    sheets.showFirst();
    lesson.type(QString(65535, u'a'));
    sheets.move(SheetMove::Next);
    EXPECT_EQ(stored(u"24-09-09"_s, u"Lesson1"_s).toText().size(), 65535);
    sheets.move(SheetMove::Previous);
    lesson.type(QString(65536, u'b'));
    homework.type(QString(70000, u'h'));
    classBox.type(u"O'Hara"_s);
    EXPECT_TRUE(sheets.binding().flush());
    EXPECT_TRUE(lesson.changed);
    seams.prompts.expect(PromptKind::Message, u"Too much data"_s, AnswerNo);
    sheets.move(SheetMove::Next);
    EXPECT_EQ(sheets.planDate(), u"24-09-09"_s);
    EXPECT_TRUE(lesson.changed);
    seams.prompts.expect(PromptKind::Message, u"Too much data"_s, AnswerYes);
    sheets.move(SheetMove::Next);
    EXPECT_EQ(stored(u"24-09-09"_s, u"Lesson1"_s).toText(), QString(65535, u'a'));
    EXPECT_EQ(stored(u"24-09-09"_s, u"Homework1"_s).toText().size(), 70000);
    EXPECT_EQ(stored(u"24-09-09"_s, u"Class1"_s).toText(), u"O'Hara"_s);
}

TEST_F(SheetsTest, OnlyWhatWasChangedIsWritten) {
    sheets.showFirst();
    store(u"24-09-09"_s, u"Homework1"_s, u"theirs"_s);
    lesson.type(u"mine"_s);
    sheets.move(SheetMove::Next);
    EXPECT_EQ(stored(u"24-09-09"_s, u"Homework1"_s).toText(), u"theirs"_s);
    EXPECT_TRUE(stored(u"24-09-10"_s, u"Lesson1"_s).isNull());
}

TEST_F(SheetsTest, AFailedWriteKeepsTheRowAndTheText) {
    sheets.showFirst();
    lesson.type(u"mine"_s);
    classBox.type(QString(56, u'c')); // beyond its field
    seams.prompts.expect(PromptKind::Plain, u"Validate Data Error"_s, AnswerOk);
    EXPECT_FALSE(sheets.binding().flush());
    EXPECT_FALSE(sheets.binding().flush()); // told once
    seams.prompts.expect(PromptKind::Plain, u"Validate Data Error"_s, AnswerOk);
    sheets.move(SheetMove::Next);
    EXPECT_TRUE(seams.prompts.last().text.startsWith(u"validate data error : 3163"_s));
    EXPECT_EQ(sheets.planDate(), u"24-09-09"_s);
    EXPECT_EQ(lesson.shown, u"mine"_s);
    EXPECT_TRUE(lesson.changed && classBox.changed);
    classBox.type(u"9C"_s);
    sheets.move(SheetMove::Next);
    EXPECT_EQ(stored(u"24-09-09"_s, u"Lesson1"_s).toText(), u"mine"_s);
}

TEST_F(SheetsTest, ASheetDeletedElsewhereComesBackWithWhatIsTyped) {
    store(u"24-09-09"_s, u"Notes"_s, u"old note"_s);
    sheets.showFirst();
    lesson.type(u"typed"_s);
    rows(sheet(u"24-09-09"_s)).Delete();
    EXPECT_TRUE(sheets.binding().flush());
    EXPECT_EQ(columns(u"PlanDate, Lesson1, Notes"_s).at(3), u"24-09-09|typed|old note"_s);
    rows(sheet(u"24-09-10"_s)).Delete();
    sheets.move(SheetMove::Next); // nothing was typed on that one
    EXPECT_EQ(sheets.count(), 12);
    EXPECT_EQ(sheets.planDate(), u"24-09-09"_s);
}

TEST_F(SheetsTest, ASheetMadeElsewhereIsNotMadeAgain) {
    sheets.showFirst();
    dao::Recordset planning = rows(u"Planning"_s);
    AddNewPlan(session.CurrentDB, planning, u"24-09-14"_s);
    setToday(QDate(2024, 9, 14));
    sheets.showToday();
    EXPECT_EQ(sheets.positionText(), u"9/14"_s);
    EXPECT_EQ(sheets.planDate(), u"24-09-14"_s);
}

TEST_F(SheetsTest, AnEventReachesExactlyItsRows) {
    dao::Recordset planning = rows(u"Planning"_s);
    for (const QString& date : {u"24-09-16"_s, u"24-09-30"_s}) // Mondays of no teaching week
        AddNewPlan(session.CurrentDB, planning, date);
    store(u"24-09-23"_s, u"Homework2"_s, u"{\\rtf1 sheet}"_s);
    SheetSelection item{{SheetBox::Homework, 2}, u"it's"_s, u"{\\rtf1 it's}"_s, u"24-09-09"_s, 2};
    addToEveryWeek(session.CurrentDB, item);
    EXPECT_EQ(filled(u"Homework2"_s), (QStringList{u"24-09-16"_s, u"24-09-23"_s, u"24-09-30"_s}));
    EXPECT_EQ(storedText(u"24-09-23"_s, u"Homework2"_s), u"sheetit's"_s);
    EXPECT_EQ(stored(u"24-09-16"_s, u"Homework2"_s).toText(), item.rtf);

    item.place = {SheetBox::Lesson, 1};
    addToEveryOtherWeek(session.CurrentDB, item); // from week 2; 3 and -1 are odd
    EXPECT_EQ(filled(u"Lesson1"_s), QStringList());
    item.week = 1;
    item.planDate = u"24-09-02"_s;
    addToEveryOtherWeek(session.CurrentDB, item);
    EXPECT_EQ(filled(u"Lesson1"_s), (QStringList{u"24-09-16"_s, u"24-09-23"_s, u"24-09-30"_s}));

    item.place = {SheetBox::Homework, 2};
    store(u"24-09-16"_s, u"Homework2"_s, u"{\\rtf1 it's \\b i\\b0 t's IT'S}"_s);
    removeFromEveryWeek(session.CurrentDB, item); // the first occurrence of each
    EXPECT_EQ(storedText(u"24-09-16"_s, u"Homework2"_s), u" it's IT'S"_s);
    EXPECT_EQ(storedText(u"24-09-23"_s, u"Homework2"_s), u"sheet"_s);
}

TEST_F(SheetsTest, AnEventIsAskedForInItsOwnWords) {
    const SheetSelection lessonItem{{SheetBox::Lesson, 2}, u"quiz"_s, {}, u"24-09-09"_s, 2};
    const SheetSelection homeworkItem{{SheetBox::Homework, 3}, u"quiz"_s, {}, u"24-09-10"_s, 2};
    const SheetSelection noteItem{{SheetBox::AfterSchool, 0}, u"quiz"_s, {}, u"24-09-14"_s, 2};
    const QString weekly = u"Make this a weekly Event"_s;
    const QString fortnightly = u"Make this a fortnightly Event"_s;
    const struct {
        SheetEvent event;
        SheetSelection item;
        QString title;
        QString lines;
    } cases[] = {
        {SheetEvent::AddWeekly, lessonItem, weekly, u"to all Monday lesson 2 Periods"_s},
        {SheetEvent::AddWeekly, homeworkItem, weekly,
         u"to all Tuesday lesson 3 Homework sections."_s},
        {SheetEvent::AddWeekly, noteItem, weekly, u"to all Saturday After School sections."_s},
        {SheetEvent::AddFortnightly, lessonItem, fortnightly,
         u"to all Monday lesson 2 Periods every other week."_s},
        {SheetEvent::AddFortnightly, homeworkItem, fortnightly,
         u"to all Tuesday lesson 3 Homework sections every other week.."_s},
        {SheetEvent::AddFortnightly, noteItem, fortnightly,
         u"to all Saturday After School sections every other week."_s},
        {SheetEvent::Remove, lessonItem, weekly, u"to all Monday lesson 2 Periods"_s},
    };
    for (const auto& example : cases) {
        seams.prompts.expect(PromptKind::Message, example.title, AnswerNo);
        EXPECT_FALSE(confirmEvent(seams.prompts, example.event, example.item));
        const QString lead = example.event == SheetEvent::Remove
                                 ? u"You have selected to remove any occurance of:"_s
                                 : u"You have selected to add the following item:"_s;
        EXPECT_EQ(seams.prompts.last().text,
                  lead + u"\nquiz\n"_s + example.lines + u"\nAre you sure you wish to continue?"_s);
    }
}

TEST_F(SheetsTest, PostsACalendarEntryInPlaceOfABlock) {
    store(u"24-09-09"_s, u"Dinner"_s, u"old"_s);
    Add_to_Planning(session.CurrentDB, QDate(2024, 9, 9), SheetBox::Dinner, u"{\\rtf1 fair}"_s);
    Add_to_Planning(session.CurrentDB, QDate(2024, 9, 14), SheetBox::Notes, u"{\\rtf1 fair}"_s);
    EXPECT_EQ(stored(u"24-09-09"_s, u"Dinner"_s).toText(), u"{\\rtf1 fair}"_s);
    EXPECT_EQ(columns(u"ID"_s).size(), 13);
}

TEST_F(SheetsTest, ShowsClassesAndEvents) {
    put(u"SELECT * FROM Calendar WHERE Month = 'Sep1'"_s, u"D9"_s, u"{\\rtf1 Open \\b evening}"_s);
    sheets.showFirst();
    EXPECT_EQ(sheets.eventText(), u"Open evening"_s);
    EXPECT_EQ(sheets.classCoding(true).at(0).colour, 16744448);
    EXPECT_FALSE(sheets.classCoding(true).at(1).colour);
    EXPECT_FALSE(sheets.classCoding(false).at(0).colour);
    session.CurrentDB.TableDefs().Append(schemaTableDef(Table::STPdata));
    dao::Recordset plans = rows(u"STPdata"_s);
    for (const QString& date : {u"24-09-09"_s, u"24-09-10"_s}) {
        plans.AddNew();
        plans.SetCollect(u"PlanDate", date);
        plans.SetCollect(u"Period", date.last(1) == u"9" ? u"3"_s : u"5"_s);
        plans.Update();
    }
    QList<int> planned;
    for (int period = 1; period <= 5; ++period) {
        if (sheets.classCoding(false).at(period - 1).hasShortTermPlan)
            planned += period;
    }
    EXPECT_EQ(planned, QList<int>{3});
    sheets.move(SheetMove::Next);
    EXPECT_EQ(sheets.eventText(), QString());
}
