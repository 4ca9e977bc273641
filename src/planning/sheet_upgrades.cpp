#include "planning/sheet_upgrades.h"

#include "calendar/term_weeks.h"
#include "store/engine/error.h"
#include "store/schema.h"
#include "store/table_names.h"
#include "store/table_structure.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int WeekPosition = 2;   // behind ID and PlanDate
constexpr int ABWeekPosition = 3; // behind Week

bool planningLacks(const dao::Database& database, const QString& field) {
    return !FieldInTableDef(database.TableDefs()[PlanningTable], field);
}

void addPlanningField(const dao::Database& database, QStringView name, int position) {
    dao::Field field = schemaField(Table::Planning, name);
    field.OrdinalPosition = position;
    database.TableDefs()[PlanningTable].Fields().Append(field);
}

QList<QDate> sheetDates(const dao::Database& database) {
    QList<QDate> dates;
    dao::Recordset sheets = database.OpenRecordset(PlanningTable, dao::RecordsetType::Snapshot);
    for (; !sheets.EOF_(); sheets.MoveNext()) {
        dates.append(sheetDate(sheets.Collect(u"PlanDate").toText()));
        if (!dates.last().isValid())
            throw dao::EngineError(dao::ConversionError,
                                   u"A planning sheet has no date that can be read."_s);
    }
    sheets.Close();
    return dates;
}

} // namespace

void AddWeekField(const dao::Database& database) {
    const QString week = u"Week"_s;
    if (!planningLacks(database, week))
        return;
    dao::Transaction transaction(database);
    const QList<short> numbers = weekNumbers(sheetDates(database));
    addPlanningField(database, week, WeekPosition);
    dao::Recordset sheets = database.OpenRecordset(PlanningTable);
    for (const short number : numbers) {
        sheets.Edit();
        sheets.SetCollect(week, number);
        sheets.Update();
        sheets.MoveNext();
    }
    sheets.Close();
    transaction.commit();
}

void AddABWeekField(const dao::Database& database, int twoWeekly, const QString& startWeek) {
    const QString letter = u"ABWeek"_s;
    if (twoWeekly != 1 || !planningLacks(database, letter))
        return;
    dao::Transaction transaction(database);
    addPlanningField(database, letter, ABWeekPosition);
    const QChar first = startLetter(startWeek);
    dao::Recordset sheets = database.OpenRecordset(PlanningTable);
    for (; !sheets.EOF_(); sheets.MoveNext()) {
        const int week = static_cast<int>(sheets.Collect(u"Week").toInteger());
        sheets.Edit();
        sheets.SetCollect(letter, QString(weekLetter(week, first)));
        sheets.Update();
    }
    sheets.Close();
    transaction.commit();
}
