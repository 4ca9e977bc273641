#include "planning/weekly_plan.h"

#include "core/dates.h"
#include "core/engine_failure.h"
#include "core/session.h"
#include "office/plain_cell.h"
#include "planning/planned_lessons.h"

#include <QLocale>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr FailureBox WeeklyPlanFailure{u"Document creation cancelled"};
constexpr int LessonWidth = 250; ///< parts of a row's width
constexpr int TextWidth = 500;
constexpr int WorkWidth = 250;

QString shortDate(const Session& session, QDate date) {
    return QLocale().toString(date, session.ShortDateFormat);
}

QString lessonLine(const PlannedLesson& lesson) {
    const QDate date = sheetDate(lesson.planDate);
    return lesson.classCode + u'\n' + QLocale().toString(date, u"dddd - MMM,dd,yyyy"_s) +
           u" : Period "_s + QString::number(lesson.period);
}

richtext::Table lessonTable(const QList<PlannedLesson>& lessons) {
    const richtext::TextLook heading{.size = 14, .bold = true};
    richtext::Table table{{{cellOf(u"Class"_s, LessonWidth, heading),
                            cellOf(u"Lesson Planning"_s, TextWidth, heading),
                            cellOf(u"Homework"_s, WorkWidth, heading)}}};
    for (const PlannedLesson& lesson : lessons)
        table += {{cellOf(lessonLine(lesson), LessonWidth, {.bold = true}),
                   cellOf(plainCellText(lesson.lesson), TextWidth),
                   cellOf(plainCellText(lesson.homework), WorkWidth)}};
    return table;
}

QDate lastDayOfWeek(QDate first) {
    return first.addDays(7 - first.dayOfWeek());
}

} // namespace

bool CreateWeeklyPlan(const Session& session, const DocumentPlace& place, const DatePeriod& days,
                      const QStringList& classes) {
    Prompts& prompts = session.GetSeams().prompts;
    WordDocument word(session.GetSeams(), place);
    if (!word.Word_Start())
        return false;
    word.step(10, u"Collecting Lesson Data"_s);
    QList<PlannedLesson> lessons;
    const bool isRead = tryTelling(prompts, WeeklyPlanFailure, [&] {
        lessons = plannedLessons(session.CurrentDB, session.PeriodsPerDay, {days, classes});
    });
    if (!isRead)
        return false;
    const QString first = shortDate(session, days.first);
    const QString last = shortDate(session, days.last);
    if (lessons.isEmpty()) {
        word.giveUp();
        prompts.msg_Box(u"There are no lessons for %1 between %2 and %3\nPlease try again!"_s.arg(
                            classes.join(u", "_s), first, last),
                        OkButton | WarningIcon, u"No lessons found."_s);
        return false;
    }
    word.Word_PageSetup(narrowMargins(usualPaper()));
    word.step(30, u"Adding Title"_s);
    word.Word_AddTitle(u"Weekly Plan for :\n"_s + first + u" - "_s + last, 16, true, false);
    word.step(40, u"Collecting Table Data"_s);
    const richtext::Table table = lessonTable(lessons);
    word.step(70, u"Formatting Table"_s);
    word.repeatHeading(table.first());
    word.Word_AddTable(table);
    return word.Word_Finish(u"Weekly Plan"_s);
}

bool ExportWeeklyPlan(const Session& session, const DocumentPlace& place, const ShownWeek& shown) {
    Prompts& prompts = session.GetSeams().prompts;
    BoxLook look;
    look.captions = {u"&This Week"_s, u"&Other Weeks..."_s, u"Cancel"_s};
    const BoxAnswer answer = prompts.msg_Box(
        u"Would you like to export the week that is shown for the class %1, or other weeks and "
        "classes?"_s.arg(shown.classCode),
        YesNoCancelButtons | QuestionIcon, u"Export Weekly Plan(s)"_s, look);
    if (answer == AnswerCancel)
        return false;
    if (answer == AnswerYes)
        return CreateWeeklyPlan(session, place, {shown.firstDay, lastDayOfWeek(shown.firstDay)},
                                {shown.classCode});
    const std::optional<DatePeriod> days = prompts.Date_Box(
        u"Export Weekly Plan(s)"_s, {shown.weeks.first(), lastDayOfWeek(shown.weeks.last())});
    if (!days)
        return false;
    SeveralItemsRequest request;
    request.title = u"Export Weekly Plan(s)"_s;
    request.text = u"Please select the classes to export:"_s;
    for (const ClassColour& each : session.ClassColours)
        request.items += each.code;
    QStringList classes;
    for (const int each : prompts.ReturnString(request).value_or(QList<int>()))
        classes += request.items[each];
    return !classes.isEmpty() && CreateWeeklyPlan(session, place, *days, classes);
}
