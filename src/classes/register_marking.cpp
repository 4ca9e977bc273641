#include "classes/register_marking.h"

#include "classes/class_tables.h"
#include "classes/register_keys.h"
#include "classes/register_lessons.h"
#include "core/dates.h"
#include "core/prompts.h"
#include "store/engine/names.h"
#include "store/table_names.h"

using namespace Qt::StringLiterals;

namespace {

ClassPeriods readClassPeriods(const dao::Database& database, const QString& classCode) {
    dao::Recordset record = database.OpenRecordset(u"SELECT * FROM %1 WHERE Classcode = %2;"_s.arg(
        ClasscodesTable, dao::writeText(classCode)));
    return record.EOF_() ? ClassPeriods() : classPeriods(record);
}

bool isDoubleLesson(const QString& digits) {
    return digits.size() == 2 && digits[1].digitValue() - 1 == digits[0].digitValue();
}

} // namespace

std::optional<int> doubleLessonColumn(const dao::Database& database, const QString& classCode,
                                      const PupilSheet& sheet, int column) {
    const std::optional<RegisterColumn> lesson = lessonAt(sheet, column);
    const std::optional<RegisterColumn> next = lessonAt(sheet, column + 1);
    if (!lesson || !next || next->date != lesson->date || !isSchoolWeekday(lesson->date))
        return std::nullopt;
    const auto weekday = static_cast<size_t>(weekdayOf(lesson->date) - Monday);
    const ClassPeriods periods = readClassPeriods(database, classCode);
    return isDoubleLesson(periods.weekA[weekday]) ? std::optional(column + 1) : std::nullopt;
}

void enterMark(const dao::Database& database, const QString& classCode, PupilSheetModel& model,
               int row, int column, const QString& mark) {
    QList<CellChange> changes{{column, mark}};
    if (const std::optional<int> second =
            doubleLessonColumn(database, classCode, model.sheet(), column))
        changes.append({*second, mark});
    model.write(row, changes);
}

bool checkMarkText(const QString& text, const QRect& cell, Prompts& prompts) {
    if (text.toUcs4().size() <= 1)
        return true;
    BoxLook look;
    look.below = cell;
    prompts.msg_Box(u"You can only enter a maximum of one character!"_s, OkButton | WarningIcon,
                    u"To many characters"_s, look);
    return false;
}

bool canFill(int column) {
    return column >= PupilSheet::FirstOwnColumn;
}

void fillRegister(PupilSheetModel& model, int column, RegisterFill what) {
    const QString mark = what == RegisterFill::Present  ? PresentMark
                         : what == RegisterFill::Absent ? AbsentMark
                                                        : QString();
    QList<RowChange> changes;
    for (int row = 0; row < model.sheet().rowCount(); ++row) {
        if (what == RegisterFill::ClearAll || model.sheet().text(row, column).isEmpty())
            changes.append({row, {{column, mark}}});
    }
    model.write(changes);
}
