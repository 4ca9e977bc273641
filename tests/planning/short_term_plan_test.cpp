// The short term plan of a period without a window: what a new one begins with, what its row holds
// and when there is none.

#include "planning/short_term_plan.h"

#include "planning/plan_choices.h"
#include "planning/planning_settings.h"
#include "support/plain_bound.h"
#include "support/planning_year.h"

#include <map>

namespace {

class ShortTermPlanTest : public PlanningYear {
protected:
    ShortTermPlanTest() {
        openYear(twoWeekAnswers());
        for (const QString& field : fields)
            plan.bind(field, boxes[field]);
    }
    void open(int period, const QString& date = u"24-09-09"_s) {
        ASSERT_TRUE(plan.open(date, period));
    }
    void close() {
        EXPECT_EQ(plan.leave(), Leaving::Done);
        plan.close();
    }
    /// What the boxes show, without those that show nothing.
    QString shown() {
        QStringList texts;
        for (const QString& field : fields) {
            if (!boxes[field].shown.isEmpty())
                texts += field + u'=' + boxes[field].shown;
        }
        return texts.join(u',');
    }
    /// The rows of the table: date, period, then what is not empty.
    QStringList table() {
        QStringList lines;
        for (dao::Recordset all = rows(u"STPdata"_s); !all.EOF_(); all.MoveNext()) {
            QStringList line;
            for (int column = 0; column < all.FieldCount(); ++column) {
                if (const QString text = all.Collect(column).toText(); !text.isEmpty())
                    line += text;
            }
            lines += line.join(u',');
        }
        return lines;
    }

    const QStringList fields =
        u"Subject,Term,Ability,POS,StartTime,MainTime,PlenaryTime,StartObj,LSA"_s.split(u',');
    std::map<QString, PlainBound> boxes;
    ShortTermPlan plan{session};
};

} // namespace

TEST_F(ShortTermPlanTest, ThereAreNineAndTheirListsAreFixed) {
    EXPECT_TRUE(ShortTermPlan::takes(1) && ShortTermPlan::takes(9));
    EXPECT_FALSE(ShortTermPlan::takes(0) || ShortTermPlan::takes(10));
    EXPECT_EQ(ShortTermPlan::longestText(u"Subject"), 25);
    EXPECT_EQ(termChoices(2), (QStringList{u"Term (1)"_s, u"Term (2)"_s}));
    for (const LessonPart part : LessonParts) {
        const bool isMain = part == LessonPart::Main;
        EXPECT_EQ(timingChoices(part).first(), isMain ? u"15 mins"_s : u"5 mins"_s);
        EXPECT_EQ(timingChoices(part).last(), isMain ? u"50 mins"_s : u"30 mins"_s);
        EXPECT_EQ(timingChoices(part).size(), isMain ? 8 : 6);
    }
}

TEST_F(ShortTermPlanTest, ANewOneBeginsWithTheDefaults) {
    const struct {
        QString set; ///< "name=value,..."
        QString shown;
    } cases[] = {
        {{}, {}},
        {u"LastUsedSubject=Music"_s, u"Subject=Music"_s},
        {u"LastUsedSubject=Music,STP_Subject=Art,STP_Ability=Set 2,STP_Unit=Clay"_s,
         u"Subject=Art,Ability=Set 2,POS=Clay"_s},
        {u"STP_Time=10 mins"_s, u"StartTime=10 mins"_s},
        {u"STP_Time=10 mins,STP_Time2=20 mins"_s, u"MainTime=20 mins"_s},
        {u"STP_Time1=5 mins,STP_Time2=20 mins,STP_Time3=15 mins"_s,
         u"StartTime=5 mins,MainTime=20 mins,PlenaryTime=15 mins"_s},
    };
    const QString key = setting::keyOf(setting::Planning);
    for (const auto& example : cases) {
        settings.ClearRegistryKey(key);
        for (const QString& entry : example.set.split(u',', Qt::SkipEmptyParts))
            settings.WriteRegistryValue(key, entry.section(u'=', 0, 0), entry.section(u'=', 1));
        open(1);
        EXPECT_EQ(shown(), example.shown);
    }
    settings.ClearRegistryKey(key);
    for (const qint32 index : {-1, int{session.TermCount}, session.TermCount - 1}) {
        settings.set(setting::STP_Term, index);
        open(1);
        EXPECT_EQ(shown().isEmpty(), index != session.TermCount - 1);
    }
    EXPECT_EQ(shown(), u"Term=Term (%1)"_s.arg(session.TermCount));
}

TEST_F(ShortTermPlanTest, OneWithNothingInItLeavesNoRow) {
    settings.set(setting::LastUsedSubject, u"Music"_s);
    open(3);
    EXPECT_TRUE(plan.flush());
    close();
    EXPECT_EQ(table(), QStringList());
    settings.ClearRegistryKey(setting::keyOf(setting::Planning));
    open(3);
    boxes[u"LSA"_s].type(u"{\\rtf1 x}"_s);
    EXPECT_TRUE(plan.flush());
    EXPECT_EQ(table().size(), 1);
    boxes[u"LSA"_s].type(u"{\\rtf1 }"_s);
    close();
    EXPECT_EQ(table(), QStringList());
    open(9);
    boxes[u"Term"_s].type(u"Term (1)"_s);
    close();
    EXPECT_EQ(table(), QStringList{u"24-09-09,9,Term (1)"_s});
    settings.set(setting::STP_Subject, u"Art"_s);
    open(4);
    close();
    EXPECT_EQ(table().value(1), u"24-09-09,4,Art"_s);
}

TEST_F(ShortTermPlanTest, AnEmptiedTextKeepsItsOldValueAndAMemoDoesNot) {
    settings.set(setting::LastUsedSubject, u"Art"_s);
    open(1);
    boxes[u"Ability"_s].type(u"Set 2"_s);
    boxes[u"LSA"_s].type(u"{\\rtf1 with Jo}"_s);
    close();
    EXPECT_EQ(table(), QStringList{u"24-09-09,1,Art,Set 2,{\\rtf1 with Jo}"_s});
    open(1, u"24-09-10"_s);
    EXPECT_EQ(shown(), u"Subject=Art"_s);
    open(1);
    for (const QString& field : {u"Subject"_s, u"Ability"_s, u"LSA"_s})
        boxes[field].type({});
    close();
    EXPECT_EQ(table(), QStringList{u"24-09-09,1,Art,Set 2"_s});
    open(1);
    boxes[u"Subject"_s].type(u"Drama"_s);
    close();
    EXPECT_EQ(settings.get(setting::LastUsedSubject), u"Drama"_s);
}

TEST_F(ShortTermPlanTest, GoesOnWhereItsRecordsetWasClosed) {
    open(2);
    const auto closeAll = [this] {
        for (dao::Recordset each : session.CurrentDB.Recordsets())
            each.Close();
    };
    closeAll();
    boxes[u"POS"_s].type(u"Clay"_s);
    EXPECT_TRUE(plan.flush());
    closeAll();
    boxes[u"Ability"_s].type(u"Set 1"_s);
    close();
    EXPECT_EQ(table(), QStringList{u"24-09-09,2,Set 1,Clay"_s});
}
