// The documents of the planning sheets: which lessons go into them, in which order, and what is
// refused.

#include "planning/cover_sheets.h"
#include "planning/plan_document.h"
#include "planning/quick_plan.h"
#include "planning/short_term_plan.h"
#include "planning/weekly_plan.h"
#include "support/class_file.h"
#include "support/planning_year.h"

#include <QRegularExpression>

namespace {

const QDate Monday9th{2024, 9, 9};

class SheetDocumentsTest : public PlanningYear {
protected:
    SheetDocumentsTest() {
        openYear(twoWeekAnswers());
        session.ShortDateFormat = u"dd/MM/yyyy"_s;
        place.appPath = folder.path() + u'/';
        place.target = path(u"made.rtf"_s);
    }
    /// The plain text of what was made last.
    QString made() {
        QFile file(place.target);
        file.open(QIODevice::ReadOnly);
        return richtext::plainText(QString::fromLatin1(file.readAll())).simplified();
    }
    /// Classes and texts of a sheet's periods, in order.
    void plan(const QString& planDate, const QStringList& classes) {
        for (int period = 1; period <= session.PeriodsPerDay; ++period) {
            const QString code = classes.value(period - 1);
            const QString n = QString::number(period);
            store(planDate, u"Class"_s + n, code);
            store(planDate, u"Lesson"_s + n,
                  u"{\\rtf1\\ansi\\b L%1 %2\\b0\\par do {\\i it}}"_s.arg(n, code));
            store(planDate, u"Homework"_s + n, u"H"_s + n);
        }
    }

    DocumentPlace place;
};

} // namespace

TEST_F(SheetDocumentsTest, CoverSheetsAreForTheClassesOfTheDay) {
    addPupils(session.CurrentDB, u"7A"_s, {u"O'Brien,Zoë"_s, u"Ames,Ann"_s});
    plan(u"24-09-09"_s, {u"Duty"_s, u"7a"_s, {}, u"9C"_s});
    ASSERT_TRUE(ExportCoverSheets(session, place, Monday9th));
    const QString text = made();
    EXPECT_TRUE(text.contains(u"Cover for 7a Period 2"_s)) << qPrintable(text);
    EXPECT_TRUE(text.contains(u"Ann Ames Zoë O'Brien"_s)) << qPrintable(text);
    EXPECT_TRUE(text.contains(u"Cover for 9C Period 4"_s));
    EXPECT_FALSE(text.contains(u"Duty"_s)) << "no class";

    place.target.clear();
    seams.prompts.expect(PromptKind::Selector, u"Create Cover Sheet(s)"_s,
                         QStringList{u"Period 4   Class: 9C"_s});
    EXPECT_TRUE(ExportCoverSheets(session, place, Monday9th));
    EXPECT_EQ(seams.shell.runs.size(), 1);

    plan(u"24-09-09"_s, {});
    seams.prompts.expect(PromptKind::Message, u"No lessons found."_s, AnswerOk);
    EXPECT_FALSE(ExportCoverSheets(session, place, Monday9th));
}

TEST_F(SheetDocumentsTest, AQuickPlanHasEveryPeriodAndBlock) {
    plan(u"24-09-09"_s, {u"7A"_s});
    store(u"24-09-09"_s, u"Dinner"_s, u"Duty"_s);
    ASSERT_TRUE(CreateQuickPlan(session, place, Monday9th));
    EXPECT_TRUE(made().contains(u"Period Class Lesson Planning Homework 1 7A L1 7A do it H1 2"_s))
        << qPrintable(made());
    EXPECT_TRUE(made().endsWith(u"Dinner Time Duty After School Notes"_s)) << qPrintable(made());
    seams.prompts.expect(PromptKind::Plain, u"Document creation cancelled"_s, AnswerOk);
    EXPECT_FALSE(CreateQuickPlan(session, place, QDate(2024, 9, 8))) << "a Sunday";
}

TEST_F(SheetDocumentsTest, AWeeklyPlanTakesItsClassesInTheOrderOfDaysAndPeriods) {
    for (const QString& day : {u"24-09-09"_s, u"24-09-10"_s, u"24-09-11"_s})
        plan(day, {});
    plan(u"24-09-10"_s, {u"9C"_s, u"7A"_s});
    plan(u"24-09-09"_s, {{}, u"7A"_s});
    const auto order = [this](const QStringList& classes) {
        EXPECT_TRUE(CreateWeeklyPlan(session, place, {Monday9th, Monday9th.addDays(1)}, classes));
        QStringList lessons;
        const QRegularExpression line(u"\\S+ (\\S+) - Sep,(\\d\\d),2024 : Period (\\d)"_s);
        for (const auto& match : line.globalMatch(made()))
            lessons += match.captured(2) + u'/' + match.captured(3);
        return lessons.join(u' ');
    };
    EXPECT_EQ(order({u"7A"_s}), u"09/2 10/2"_s);
    EXPECT_EQ(order({u"9C"_s, u"7a"_s}), u"09/2 10/1 10/2"_s);
    seams.prompts.expect(PromptKind::Message, u"No lessons found."_s, AnswerOk);
    EXPECT_FALSE(CreateWeeklyPlan(session, place, {Monday9th, Monday9th}, {u"9C"_s, u"O'x"_s}));
    EXPECT_EQ(seams.prompts.last().text,
              u"There are no lessons for 9C, O'x between 09/09/2024 and 09/09/2024\n"
              "Please try again!"_s);
}

TEST_F(SheetDocumentsTest, AWeeklyPlanIsOfTheShownWeekOrOfWhatIsChosen) {
    const ShownWeek shown{u"7A"_s, Monday9th, {Monday9th}};
    plan(u"24-09-10"_s, {u"9C"_s, u"7A"_s});
    seams.prompts.expect(PromptKind::Message, u"Export Weekly Plan(s)"_s, AnswerCancel);
    EXPECT_FALSE(ExportWeeklyPlan(session, place, shown));
    seams.prompts.expect(PromptKind::Message, u"Export Weekly Plan(s)"_s, AnswerYes);
    EXPECT_TRUE(ExportWeeklyPlan(session, place, shown));
    EXPECT_FALSE(made().contains(u"9C"_s));
    seams.prompts.expect(PromptKind::Message, u"Export Weekly Plan(s)"_s, AnswerNo);
    seams.prompts.expect(PromptKind::Dates, u"Export Weekly Plan(s)"_s,
                         DatePeriod{Monday9th, Monday9th.addDays(4)});
    seams.prompts.expect(PromptKind::Selector, u"Export Weekly Plan(s)"_s, QStringList{u"9C"_s});
    EXPECT_TRUE(ExportWeeklyPlan(session, place, shown));
    EXPECT_TRUE(made().contains(u"L1 9C do it H1"_s));
}

TEST_F(SheetDocumentsTest, AShortTermPlanFillsItsTemplate) {
    plan(u"24-09-09"_s, {u"7A"_s, u"9C"_s});
    Check_STPdata(session.CurrentDB);
    dao::Recordset plans = rows(u"STPdata"_s);
    plans.AddNew();
    plans.SetCollect(u"PlanDate"_s, u"24-09-09"_s);
    plans.SetCollect(u"Period"_s, u"2"_s);
    plans.SetCollect(u"POS"_s, u"Unit {4}"_s);
    plans.SetCollect(u"PlenaryObj"_s, u"{\\rtf1 What?}"_s);
    plans.Update();
    plans.Close();
    ASSERT_TRUE(CreateShortTermPlan(session, place, Monday9th, 2));
    EXPECT_TRUE(made().contains(u"Class 9C"_s)) << qPrintable(made());
    EXPECT_TRUE(made().contains(u"Unit of study Unit {4}"_s)) << qPrintable(made());
    EXPECT_TRUE(made().contains(u"Key questions: What?"_s)) << qPrintable(made());
    EXPECT_TRUE(made().contains(u"L2 9C do it"_s)) << qPrintable(made());

    QFile form(path(u"Templates/STP1.dot"_s));
    ASSERT_TRUE(form.open(QIODevice::WriteOnly));
    form.write("{\\rtf1 {\\*\\bkmkstart Term}any term{\\*\\bkmkend Term}}");
    form.close();
    ASSERT_TRUE(CreateShortTermPlan(session, place, Monday9th, 1));
    EXPECT_EQ(made(), u"any term"_s) << "without a plan its bookmarks stay";
}
