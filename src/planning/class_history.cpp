#include "planning/class_history.h"

#include "core/dates.h"
#include "core/session.h"
#include "planning/daily_sheets.h"
#include "planning/planned_lessons.h"

#include <QLocale>

using namespace Qt::StringLiterals;

ClassHistory LoadClassHistory(const Session& session, const QString& classCode) {
    ClassHistory history;
    const int periods = session.PeriodsPerDay;
    if (classCode.isEmpty() || periods == 0)
        return history;
    for (const PlannedLesson& lesson :
         plannedLessons(session.CurrentDB, periods, {.classes = {classCode}}))
        history += {lesson.planDate, lesson.lesson, lesson.homework};
    return history;
}

const HistoryEntry& listEntry(const ClassHistory& history, qsizetype k) {
    return history.at(history.size() - 1 - k);
}

QString listText(const HistoryEntry& entry) {
    const QDate date = sheetDate(entry.planDate);
    if (!date.isValid())
        return u"   "_s + entry.planDate;
    return u"   "_s + shortHeading(date) + u" --- "_s + QLocale().dayName(date.dayOfWeek());
}

qsizetype previousLesson(const Session& session, const ClassHistory& history) {
    for (qsizetype k = history.size() - 1; k >= 0; --k) {
        const QDate date = sheetDate(listEntry(history, k).planDate);
        if (date.isValid() && sheetHeading(date) == session.CurrentDate)
            return qMin(k + 1, history.size() - 1);
    }
    return 0;
}

QString historyTitle(const QString& classCode, qsizetype place, qsizetype count) {
    return u"Planning history for : %1    (%2/%3)"_s.arg(classCode, QString::number(place),
                                                         QString::number(count));
}
