#include "planning/sheet_making.h"

#include "calendar/sheet_letters.h"
#include "calendar/term_weeks.h"
#include "planning/sheet_fields.h"
#include "store/table_names.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The timetable that a week has: that of its other sheets, else by what `Admin` says; none where
/// that says nothing of use.
std::optional<QChar> timetableOf(const dao::Database& database, short week) {
    const dao::Recordset admin = database.OpenRecordset(AdminTable, dao::RecordsetType::Snapshot);
    const auto twoWeekly = static_cast<int>(admin[u"TTweekly"].integer());
    if (twoWeekly != 1)
        return timetableLetter(twoWeekly, {}, week);
    const QChar letter = sheetLetters(database).value(week);
    return letter.isNull() ? timetableLetter(twoWeekly, admin[u"StartWeek"].text(), week) : letter;
}

} // namespace

void AddNewPlan(const dao::Database& database, dao::Recordset& sheets, const QString& planDate) {
    dao::Transaction whole(database);
    const QDate date = sheetDate(planDate);
    const short week = GetWeekNumber(database, date);
    sheets.AddNew();
    sheets.SetCollect(u"PlanDate", planDate);
    sheets.SetCollect(u"Week", week);
    sheets.Update();
    sheets.SetBookmark(sheets.LastModified());
    if (week != -1) {
        if (const auto letter = timetableOf(database, week))
            GetClassCaptions(database, sheets, weekdayOf(date), *letter == u'A');
    }
    whole.commit();
}

void GetClassCaptions(const dao::Database& database, dao::Recordset& sheets, int weekday,
                      bool isTimetableA) {
    const QString field = timetableField(weekday, isTimetableA ? u'A' : u'B');
    if (field.isEmpty())
        return;
    dao::Recordset classes = database.OpenRecordset(
        u"SELECT Classcode,%1 FROM Classcodes"_s.arg(field), dao::RecordsetType::Snapshot);
    sheets.Edit();
    for (; !classes.EOF_(); classes.MoveNext()) {
        for (const QChar period : classes.Collect(1).toText()) {
            const QString target = classField(period.digitValue());
            if (sheets.HasField(target))
                sheets.SetCollect(target, classes.Collect(0));
        }
    }
    sheets.Update();
}
