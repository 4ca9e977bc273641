// What a class has done so far: which lessons that is, and which of them the viewer shows first.

#include "planning/class_history.h"

#include "support/planning_year.h"

namespace {

/// 7A has the fifth period of 24-09-04, the first and third of the 9th, the second of the 13th and
/// the fifth of the 25th.
class ClassHistoryTest : public PlanningYear {
protected:
    ClassHistoryTest() { openYear(twoWeekAnswers()); }
};

} // namespace

TEST_F(ClassHistoryTest, HasALessonForEachPeriodOfTheClass) {
    store(u"24-09-09"_s, u"Lesson1"_s, u"first"_s);
    store(u"24-09-09"_s, u"Homework3"_s, u"third"_s);
    store(u"24-09-09"_s, u"Lesson2"_s, u"another class"_s);
    QStringList found;
    for (const HistoryEntry& entry : LoadClassHistory(session, u"7A"_s))
        found += entry.planDate + u'|' + entry.lesson + u'|' + entry.homework;
    EXPECT_EQ(found, QStringList({u"24-09-04||"_s, u"24-09-09|first|"_s, u"24-09-09||third"_s,
                                  u"24-09-13||"_s, u"24-09-25||"_s}));
    EXPECT_TRUE(LoadClassHistory(session, u"8X"_s).isEmpty());
    EXPECT_TRUE(LoadClassHistory(session, {}).isEmpty());
    store(u"24-09-10"_s, u"Class4"_s, u"O'B"_s);
    EXPECT_EQ(LoadClassHistory(session, u"O'B"_s).size(), 1);
}

TEST_F(ClassHistoryTest, BeginsWithTheLessonBeforeTheOneOnTheSheet) {
    const ClassHistory history = LoadClassHistory(session, u"7A"_s);
    EXPECT_EQ(listText(listEntry(history, 0)), u"   Sep 25 2024 --- Wednesday"_s);
    const struct {
        QString sheet;
        qsizetype place;
    } cases[] = {
        {u"Wednesday  -  Sep 25 2024"_s, 1},
        {u"Monday  -  Sep 09 2024"_s, 4},
        {u"Wednesday  -  Sep 04 2024"_s, 4},
        {u"Tuesday  -  Sep 10 2024"_s, 0},
        {{}, 0},
    };
    for (const auto& each : cases) {
        session.CurrentDate = each.sheet;
        EXPECT_EQ(previousLesson(session, history), each.place) << qPrintable(each.sheet);
    }
    EXPECT_EQ(historyTitle(u"7A"_s, 2, 5), u"Planning history for : 7A    (2/5)"_s);
}
