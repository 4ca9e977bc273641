#include "planning/class_history.h"

#include "core/dates.h"
#include "core/session.h"
#include "planning/daily_sheets.h"
#include "planning/sheet_fields.h"
#include "store/engine/names.h"
#include "store/table_names.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

/// The columns of a period, behind `PlanDate`.
enum PeriodColumn { ClassColumn, LessonColumn, HomeworkColumn, ColumnsOfPeriod };

QString selectLessons(int periods, const QString& classCode) {
    QStringList columns{u"PlanDate"_s};
    QStringList hasClass;
    for (int period = 1; period <= periods; ++period) {
        columns += {classField(period), fieldOf({SheetBox::Lesson, period}),
                    fieldOf({SheetBox::Homework, period})};
        hasClass += u"%1 = %2"_s.arg(classField(period), dao::writeText(classCode));
    }
    return u"SELECT %1 FROM %2 WHERE %3 ORDER BY PlanDate;"_s.arg(
        columns.join(u", "_s), PlanningTable, hasClass.join(u" OR "_s));
}

} // namespace

ClassHistory LoadClassHistory(const Session& session, const QString& classCode) {
    ClassHistory history;
    const int periods = session.PeriodsPerDay;
    if (classCode.isEmpty() || periods == 0)
        return history;
    dao::Recordset rows = session.CurrentDB.OpenRecordset(selectLessons(periods, classCode),
                                                          dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext()) {
        for (int period = 0; period < periods; ++period) {
            const int first = 1 + period * ColumnsOfPeriod;
            if (dao::compareText(rows.Collect(first + ClassColumn).toText(), classCode) == 0)
                history += {rows.Collect(0).toText(), rows.Collect(first + LessonColumn).toText(),
                            rows.Collect(first + HomeworkColumn).toText()};
        }
    }
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
