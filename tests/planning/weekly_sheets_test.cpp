// The weekly sheet's rules over a year's file: which lessons a week shows, and what is written back
// to which field, also where rows or fields are not what they were.

#include "planning/weekly_sheets.h"

#include "support/planning_year.h"

namespace {

const QString seventh = u"7A"_s;
const QString ninth = u"9C"_s;

class WeeklySheetsTest : public PlanningYear {
protected:
    WeeklySheetsTest() { open(twoWeekAnswers()); }

    void open(const YearAnswers& answers) {
        openYear(answers);
        EXPECT_TRUE(sheets.load());
    }
    dao::Recordset rowOf(const QString& planDate) { return rows(sheet(planDate)); }
    QStringList captions() {
        QStringList all;
        for (const LessonSlot& slot : sheets.lessons())
            all += slot.caption;
        return all;
    }
    QList<SlotTexts> texts() {
        QList<SlotTexts> all;
        for (const LessonSlot& slot : sheets.lessons())
            all += {u"L "_s + slot.caption, u"H "_s + slot.caption};
        return all;
    }

    WeeklySheets sheets{session};
};

TEST_F(WeeklySheetsTest, AWeekIsListedByItsFirstTeachingDay) {
    QStringList entries;
    for (const QDate day : sheets.weeks())
        entries += weekEntry(day);
    EXPECT_EQ(entries, (QStringList{u"Wednesday 04/09/2024"_s, u"Monday 09/09/2024"_s,
                                    u"Monday 23/09/2024"_s}));
    const struct {
        QDate today;
        int week;
    } cases[] = {{{2024, 9, 9}, 1},  {{2024, 9, 14}, 1}, {{2024, 9, 1}, 0},
                 {{2024, 9, 18}, 0}, {{2024, 9, 22}, 2}, {{2025, 1, 1}, 0}};
    for (const auto& each : cases) {
        seams.clock = ScriptedClock(each.today.startOfDay());
        EXPECT_EQ(sheets.currentWeek(), each.week) << qPrintable(each.today.toString());
    }
}

TEST_F(WeeklySheetsTest, TwoLessonsOnOneDayAreTwoSlotsWithFieldsOfTheirOwn) {
    store(u"24-09-09"_s, u"Class1"_s, ninth);
    store(u"24-09-09"_s, u"Class2"_s, ninth);
    store(u"24-09-09"_s, u"Lesson2"_s, u"second"_s);
    ASSERT_TRUE(sheets.showWeek(1, ninth));
    ASSERT_GE(sheets.lessons().size(), 2);
    const LessonSlot first = sheets.lessons()[0];
    const LessonSlot second = sheets.lessons()[1];
    EXPECT_EQ(first.caption, u"Monday 09/Sep/2024 : Lesson 1"_s);
    EXPECT_EQ(second.caption, u"Monday 09/Sep/2024 : Lesson 2"_s);
    EXPECT_EQ(first.planDate, u"24-09-09"_s);
    EXPECT_EQ(first.record, second.record);
    EXPECT_EQ(first.lesson, QString()); // Null
    EXPECT_EQ(second.lesson, u"second"_s);
    store(u"24-09-09"_s, u"Lesson3"_s, u"another class"_s);
    QList<SlotTexts> typed(sheets.lessons().size());
    typed[0] = {u"L "_s + first.caption, QString()};
    typed[1].homework = u"H "_s + second.caption;
    EXPECT_TRUE(sheets.writeLessons(typed));
    const dao::Recordset row = rowOf(u"24-09-09"_s);
    EXPECT_EQ(row.Collect(u"Lesson1").toText(), u"L "_s + first.caption);
    EXPECT_TRUE(row.Collect(u"Homework1").isNull()) << "empty again";
    EXPECT_EQ(row.Collect(u"Lesson2").toText(), u"second"_s);
    EXPECT_EQ(row.Collect(u"Homework2").toText(), u"H "_s + second.caption);
    EXPECT_EQ(row.Collect(u"Lesson3").toText(), u"another class"_s);
}

TEST_F(WeeklySheetsTest, AWeekWithoutTheClassHasNothingToWriteBack) {
    ASSERT_TRUE(sheets.showWeek(1, u"8X"_s));
    EXPECT_TRUE(sheets.hasSheets());
    EXPECT_TRUE(sheets.lessons().isEmpty());
    EXPECT_TRUE(sheets.writeLessons({}));
    ASSERT_TRUE(sheets.showWeek(1, {})); // free periods have no class either
    EXPECT_TRUE(sheets.lessons().isEmpty());
    ASSERT_TRUE(sheets.showWeek(30, seventh));
    EXPECT_FALSE(sheets.hasSheets());
    EXPECT_EQ(sheets.heading(), QString());
}

TEST_F(WeeklySheetsTest, SheetsAddedLaterShowInTheOrderOfTheirDates) {
    const int before = [&] {
        sheets.showWeek(1, seventh);
        return static_cast<int>(sheets.lessons().size());
    }();
    const auto add = [&](const QString& planDate, int week) {
        dao::Recordset all = rows(u"Planning"_s);
        all.AddNew();
        all.SetCollect(u"PlanDate", planDate);
        all.SetCollect(u"Week", week);
        all.SetCollect(u"Class5", seventh);
        all.Update();
    };
    add(u"24-09-17"_s, -1);
    add(u"24-09-08"_s, 2);
    sheets.showWeek(1, seventh);
    EXPECT_EQ(sheets.lessons().size(), before + 1);
    EXPECT_EQ(captions().value(0), u"Sunday 08/Sep/2024 : Lesson 5"_s);
    for (int week = 0; week < sheets.weeks().size(); ++week) {
        sheets.showWeek(week, seventh);
        EXPECT_FALSE(captions().contains(u"Tuesday 17/Sep/2024 : Lesson 5"_s));
    }
}

TEST_F(WeeklySheetsTest, TheHeadingTellsTheLetterOrTheNumber) {
    sheets.showWeek(1, seventh);
    EXPECT_EQ(sheets.heading(), u"Week A"_s);
    store(u"24-09-09"_s, u"ABWeek"_s, {});
    sheets.showWeek(1, seventh);
    EXPECT_EQ(sheets.heading(), u"Week "_s);
    open(oneWeekAnswers());
    sheets.showWeek(1, seventh);
    EXPECT_EQ(sheets.heading(), u"Weekly Plan 2"_s);
}

// The last digit of "Lesson 11" would lead to period 1, another lesson's.
TEST_F(WeeklySheetsTest, APeriodBeyondTheNinthIsNeverWritten) {
    YearAnswers answers = twoWeekAnswers();
    answers.periodsPerDay = 11;
    open(answers);
    for (const int period : {1, 9, 10, 11}) {
        store(u"24-09-09"_s, u"Class%1"_s.arg(period), period == 1 ? u"8X"_s : seventh);
        store(u"24-09-09"_s, u"Lesson%1"_s.arg(period), u"kept"_s);
    }
    for (int period = 2; period < 9; ++period)
        store(u"24-09-09"_s, u"Class%1"_s.arg(period), {});
    sheets.showWeek(1, seventh);
    ASSERT_EQ(captions().value(1), u"Monday 09/Sep/2024 : Lesson 10"_s);
    EXPECT_EQ(captionPeriod(captions()[1]), 0);
    EXPECT_TRUE(sheets.writeLessons(texts()));
    const dao::Recordset row = rowOf(u"24-09-09"_s);
    EXPECT_EQ(row.Collect(u"Lesson9").toText(), u"L Monday 09/Sep/2024 : Lesson 9"_s);
    for (const int period : {1, 10, 11})
        EXPECT_EQ(row.Collect(u"Lesson%1"_s.arg(period)).toText(), u"kept"_s) << period;
}

TEST_F(WeeklySheetsTest, ARowThatVanishedComesBackWithWhatWasTyped) {
    store(u"24-09-09"_s, u"Class1"_s, seventh);
    store(u"24-09-09"_s, u"Class2"_s, seventh);
    store(u"24-09-09"_s, u"Notes"_s, u"note"_s);
    const dao::Value number = rowOf(u"24-09-09"_s).Collect(u"ID");
    sheets.showWeek(1, seventh);
    rowOf(u"24-09-09"_s).Delete();
    QList<SlotTexts> typed(sheets.lessons().size());
    EXPECT_TRUE(sheets.writeLessons(typed));
    EXPECT_EQ(rowOf(u"24-09-09"_s).RecordCount(), 0);
    typed[0].lesson = u"typed"_s;
    EXPECT_TRUE(sheets.writeLessons(typed));
    const dao::Recordset row = rowOf(u"24-09-09"_s);
    ASSERT_EQ(row.RecordCount(), 1);
    EXPECT_EQ(row.Collect(u"ID"), number);
    EXPECT_EQ(row.Collect(u"Notes").toText(), u"note"_s);
    EXPECT_EQ(row.Collect(u"Lesson1").toText(), u"typed"_s);
}

TEST_F(WeeklySheetsTest, AFailureChangesNothingAndIsToldOnce) {
    store(u"24-09-09"_s, u"Class1"_s, seventh);
    sheets.showWeek(1, seventh);
    QList<SlotTexts> all = texts();
    for (SlotTexts& each : all)
        each.lesson = QString(400'000, u'x');
    seams.prompts.expect(PromptKind::Plain, u"Weekly Plan Error"_s, 1);
    {
        const FileSizeLimit fullDisk(200'000);
        EXPECT_FALSE(sheets.writeLessons(all));
        EXPECT_FALSE(sheets.writeLessons(all));
    }
    EXPECT_TRUE(rowOf(u"24-09-09"_s).Collect(u"Lesson1").isNull());
    EXPECT_TRUE(sheets.writeLessons(all));
    EXPECT_EQ(rowOf(u"24-09-09"_s).Collect(u"Lesson1").toText(), all[0].lesson);
}

} // namespace
