#include "planning/planned_lessons.h"

#include "core/dates.h"
#include "planning/sheet_fields.h"
#include "store/engine/names.h"
#include "store/table_names.h"

using namespace Qt::StringLiterals;

namespace {

/// The columns of a period, behind `PlanDate`.
enum PeriodColumn { ClassColumn, LessonColumn, HomeworkColumn, AllColumns };

int columnsOfPeriod(const LessonChoice& choice) {
    return choice.withTexts ? AllColumns : 1;
}

QString selectLessons(int periods, const LessonChoice& choice) {
    QStringList columns{u"PlanDate"_s};
    QStringList hasClass;
    for (int period = 1; period <= periods; ++period) {
        columns += classField(period);
        if (choice.withTexts)
            columns += {fieldOf({SheetBox::Lesson, period}), fieldOf({SheetBox::Homework, period})};
        for (const QString& classCode : choice.classes)
            hasClass += u"%1 = %2"_s.arg(classField(period), dao::writeText(classCode));
    }
    QStringList criteria;
    if (choice.days)
        criteria += {u"PlanDate >= "_s + dao::writeText(sheetDateText(choice.days->first)),
                     u"PlanDate <= "_s + dao::writeText(sheetDateText(choice.days->last))};
    if (!hasClass.isEmpty())
        criteria += u'(' + hasClass.join(u" OR "_s) + u')';
    const QString where = criteria.isEmpty() ? QString() : u" WHERE "_s + criteria.join(u" AND "_s);
    return u"SELECT %1 FROM %2%3 ORDER BY PlanDate;"_s.arg(columns.join(u", "_s), PlanningTable,
                                                           where);
}

bool isChosen(const QString& classCode, const QStringList& classes) {
    return classes.isEmpty()
               ? !classCode.isEmpty()
               : std::any_of(classes.begin(), classes.end(), [&](const QString& each) {
                     return dao::compareText(classCode, each) == 0;
                 });
}

} // namespace

QList<PlannedLesson> plannedLessons(const dao::Database& year, int periodsPerDay,
                                    const LessonChoice& choice) {
    QList<PlannedLesson> lessons;
    const dao::Reading atOnce(year);
    dao::Recordset rows =
        year.OpenRecordset(selectLessons(periodsPerDay, choice), dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext()) {
        for (int period = 1; period <= periodsPerDay; ++period) {
            const int first = 1 + (period - 1) * columnsOfPeriod(choice);
            const QString classCode = rows.Collect(first + ClassColumn).toText();
            if (!isChosen(classCode, choice.classes))
                continue;
            PlannedLesson lesson{rows.Collect(0).toText(), period, classCode};
            if (choice.withTexts) {
                lesson.lesson = rows.Collect(first + LessonColumn).toText();
                lesson.homework = rows.Collect(first + HomeworkColumn).toText();
            }
            lessons += lesson;
        }
    }
    return lessons;
}
