#include "tour/screens/tour_planning.h"

#include "core/clock.h"
#include "core/dates.h"
#include "core/session.h"
#include "frame/screens/main_window.h"
#include "planning/plan_choices.h"
#include "planning/screens/daily_sheet_window.h"
#include "planning/sheet_fields.h"
#include "planning/sheet_making.h"
#include "planning/short_term_plan.h"
#include "planning/weekly_sheets.h"
#include "store/engine/names.h"
#include "store/record_steps.h"
#include "store/table_names.h"
#include "tour/screens/tour_pictures.h"
#include "tour/screens/tour_texts.h"

#include <iterator>

using namespace Qt::StringLiterals;

namespace {

struct PlannedPeriod {
    QString classCode; ///< for a day without a timetable
    QString lesson;    ///< as HTML, like the next
    QString homework;
};

const PlannedPeriod periods[] = {
    {u"9M4"_s,
     u"<b>Pythagoras 2</b>: finding a shorter side<br/>Starter: squares and roots to 15 on "
     "mini-whiteboards<br/>Worked example p. 84, then Ex. 7C <i>q. 1-8, stars do 9-12</i><br/>"
     "Plenary: <u>which side is it?</u>"_s,
     u"Ex. 7D q. 1-6, due <b>Thursday</b>"_s},
    {u"7M2"_s,
     u"<b>Fractions of amounts</b><br/>Bar models first; Jordan and Priya with the TA<br/>"
     "Main: domino cards in pairs (box 3)<br/>Exit ticket: <span style='background:#ffff00'>"
     "3/8 of 56</span>"_s,
     u"Sheet F2, both sides"_s},
    {{}, u"Free: mark 10M1 books, ring the exams office about rooms"_s, {}},
    {u"12MA"_s,
     u"<b>Differentiation from first principles</b><br/>f(x) = x<sup>2</sup>, then x<sup>3</sup>; "
     "what changes?<br/>Problem sheet 4 in threes"_s,
     u"Finish sheet 4 and read ch. 5.1"_s},
    {u"12MA"_s, u"Sheet 4 continued. Past paper question <b>C1 Jan q. 6</b> as a timed task"_s, {}},
    {u"10M1"_s,
     u"<b>Mock paper feedback</b><br/>Hand back papers. Corrections in <span "
     "style='color:#ff0000'>red</span><br/>Top three mistakes: rounding early, units, "
     "&quot;show that&quot;"_s,
     u"Corrections to q. 14 and 17"_s},
};

/// What the first class does, lesson by lesson, over and over.
const PlannedPeriod sequence[] = {
    {{},
     u"<b>Sine and cosine rule: which one?</b><br/>Sort 12 triangles on cards in pairs (box 3)<br/>"
     "Worked example p. 142, then Ex. 11B <i>q. 1-8, stars do 9-12</i><br/>Exit ticket: <span "
     "style='background:#ffff00'>two sides and the angle between</span>"_s,
     u"Ex. 11C q. 1-6, due <b>Thursday</b>"_s},
    {{},
     u"<b>Area = \u00BD ab sin C</b><br/>Starter: area of a kite, mini-whiteboards<br/>Derive it "
     "together, then sheet T5; Priya and Jordan with the TA<br/>Plenary: why not cos?"_s,
     u"Sheet T5, both sides"_s},
    {{},
     u"<b>Bearings and triangles</b><br/>Short test first (10 min), swap and mark in <span "
     "style='color:#ff0000'>red</span><br/>Harbour problem in threes, posters at the end"_s,
     u"Corrections to the test"_s},
};

constexpr int FullyPlannedPeriod = 1;

const struct {
    QString field;
    QString html;
} planTexts[] = {
    {u"StartObj"_s, u"Recall squares and square roots to 15<br/>Recognise a right-angled triangle "
                    "in any position"_s},
    {u"MainObj"_s, u"<b>All</b>: find a shorter side from the other two<br/><b>Most</b>: decide "
                   "which side is asked for<br/><b>Some</b>: two triangles in one figure"_s},
    {u"StartAct"_s, u"Mini-whiteboards: 12 quick roots, then odd one out"_s},
    {u"PlenaryObj"_s, u"<i>Which side is it, and how do you know?</i><br/>When do we add, when do "
                      "we take away?"_s},
    {u"LSA"_s, u"With Jordan and Priya: squares table, one step a line"_s},
    {u"Comments"_s, u"Ran 5 minutes over. <span style='background:#ffff00'>Start with q. 4</span> "
                    "next time"_s},
};

void write(dao::Recordset& sheet, const QString& field, const QString& html) {
    if (!html.isEmpty())
        sheet.SetCollect(field, rtfOf(html));
}

} // namespace

void fillTodaysSheet(Session& session) {
    const QString today = sheetDateText(session.GetSeams().clock.today());
    dao::Recordset sheet = session.CurrentDB.OpenRecordset(PlanningTable);
    if (!FindInRecordset(sheet, u"PlanDate = "_s + dao::writeText(today)))
        AddNewPlan(session.CurrentDB, sheet, today);
    sheet.Edit();
    int period = 0;
    for (const PlannedPeriod& planned : periods) {
        if (++period > session.PeriodsPerDay)
            break;
        sheet.SetCollect(classField(period), planned.classCode);
        write(sheet, fieldOf({SheetBox::Lesson, period}), planned.lesson);
        write(sheet, fieldOf({SheetBox::Homework, period}), planned.homework);
    }
    write(sheet, fieldOf({SheetBox::Dinner, 0}), u"Duty: east yard, 12:25<br/>Chess club, M3"_s);
    write(sheet, fieldOf({SheetBox::AfterSchool, 0}), u"<b>15:30</b> department meeting, M1"_s);
    write(sheet, fieldOf({SheetBox::Notes, 0}),
          u"Order more A3 squared paper<br/>Seating plan for 9M4 before Monday"_s);
    sheet.Update();
}

void fillWeeks(Session& session) {
    WeeklySheets sheets(session);
    if (!sheets.load())
        return;
    const int current = sheets.currentWeek();
    qsizetype lesson = 0;
    for (int week = qMax(0, current - 1); week <= current; ++week) {
        if (!sheets.showWeek(week, sheets.classes().first().code))
            return;
        QList<SlotTexts> texts;
        for (qsizetype i = 0; i < sheets.lessons().size(); ++i) {
            const PlannedPeriod& planned = sequence[lesson++ % std::size(sequence)];
            texts += SlotTexts{rtfOf(planned.lesson), rtfOf(planned.homework)};
        }
        sheets.writeLessons(texts);
    }
}

void fillTodaysPlan(Session& session) {
    Check_STPdata(session.CurrentDB);
    dao::Recordset plan = session.CurrentDB.OpenRecordset(STPdataTable);
    plan.AddNew();
    plan.SetCollect(u"PlanDate", sheetDateText(session.GetSeams().clock.today()));
    plan.SetCollect(u"Period", QString::number(FullyPlannedPeriod));
    plan.SetCollect(u"Subject", subjectChoices().first());
    plan.SetCollect(u"Term", termChoices(session.TermCount).first());
    plan.SetCollect(u"Ability", u"Set 4, levels 5 to 6"_s);
    plan.SetCollect(u"POS", u"Geometry: Pythagoras' theorem"_s);
    plan.SetCollect(u"StartTime", u"10 mins"_s);
    plan.SetCollect(u"MainTime", u"35 mins"_s);
    plan.SetCollect(u"PlenaryTime", u"5 mins"_s);
    for (const auto& text : planTexts)
        plan.SetCollect(text.field, rtfOf(text.html));
    plan.Update();
}

void visitShortTermPlan(MainWindow& frame, TourPictures& pictures) {
    frame.open(ToolWindow::DailySheet);
    frame.findChild<DailySheetWindow*>()->ZoomIn(FullyPlannedPeriod);
    pictures.save(frame, u"ORVAfrm_plan"_s);
    frame.CloseOpenForms();
}
