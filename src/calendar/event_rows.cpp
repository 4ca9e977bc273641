#include "calendar/event_rows.h"

#include "core/dates.h"
#include "richtext/plain_text.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/record_steps.h"
#include "store/schema.h"
#include "store/table_names.h"

#include <algorithm>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int LettersOfMonth = 3;
constexpr int DigitsOfYear = 4;
constexpr int FirstMonthOfYear = 8; // of the academic one: August
const QString MonthKeyField = u"Month"_s;

QString monthLetters(int month, const QLocale& locale) {
    return MonthName(month, locale).left(LettersOfMonth);
}

/// Builds the table again with other descriptions of its fields. What it holds stays.
void rebuildCalendar(const dao::Database& database,
                     const std::function<void(dao::Field&)>& describe) {
    dao::Transaction whole(database);
    dao::TableDef renewed(CalendarTable);
    for (dao::Field field : database.TableDefs()[CalendarTable].Fields()) {
        describe(field);
        renewed.Fields().Append(field);
    }
    QList<QList<dao::Value>> records;
    dao::Recordset rows = database.OpenRecordset(CalendarTable, dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext()) {
        QList<dao::Value> record;
        for (int column = 0; column < rows.FieldCount(); ++column)
            record += rows.Collect(column);
        records += record;
    }
    rows.Close();
    database.TableDefs().Delete(CalendarTable);
    database.TableDefs().Append(renewed);
    rows = database.OpenRecordset(CalendarTable);
    for (const QList<dao::Value>& record : std::as_const(records)) {
        rows.AddNew();
        for (int column = 0; column < record.size(); ++column)
            rows.SetCollect(column, record.at(column));
        rows.Update();
    }
    rows.Close();
    whole.commit();
}

void addExtraMonth(const dao::Database& database, const QString& key) {
    dao::Transaction whole(database);
    makeRoomForKey(database, key.size());
    dao::Recordset rows = database.OpenRecordset(CalendarTable);
    rows.AddNew();
    rows.SetCollect(MonthKeyField, key);
    rows.Update();
    rows.Close();
    whole.commit();
}

bool isEmptyMonth(const dao::Recordset& rows) {
    for (int day = 1; day <= DaysOfCalendar; ++day) {
        if (hasEventText(richtext::plainText(rows.Collect(dayField(day)).toText())))
            return false;
    }
    return true;
}

} // namespace

QString baseMonthKey(int month, const QLocale& locale) {
    return monthLetters(month, locale) + u'1';
}

QString extraMonthKey(const EventMonth& month) {
    return monthLetters(month.month, QLocale()) +
           u"%1"_s.arg(month.year, DigitsOfYear, 10, QLatin1Char('0'));
}

bool isExtraMonthKey(QStringView key) {
    const QStringView year = key.right(DigitsOfYear);
    return key.size() > DigitsOfYear &&
           std::all_of(year.begin(), year.end(), [](QChar sign) { return sign.isDigit(); });
}

QString dayField(int day) {
    return u"D"_s + QString::number(day);
}

bool hasEventText(const QString& plain) {
    return !QStringView(plain).trimmed().isEmpty();
}

int calendarYear(const dao::Database& database) {
    const dao::Recordset admin = database.OpenRecordset(AdminTable, dao::RecordsetType::Snapshot);
    return admin.Collect(u"Year").toText().left(DigitsOfYear).toInt();
}

bool isInAcademicYear(const EventMonth& month, int calendarYear) {
    return month.month >= FirstMonthOfYear ? month.year == calendarYear
                                           : month.year == calendarYear + 1;
}

bool moveToEventMonth(dao::Recordset& rows, const EventMonth& month, int calendarYear) {
    if (!isInAcademicYear(month, calendarYear))
        return FindInRecordset(rows, u"%1 = %2"_s.arg(dao::writeName(MonthKeyField),
                                                      dao::writeText(extraMonthKey(month))));
    // Where base rows are missing, an extra one may stand in their place.
    if (month.month <= rows.RecordCount()) {
        rows.SetAbsolutePosition(month.month - 1);
        if (!isExtraMonthKey(rows.Collect(MonthKeyField).toText()))
            return true;
    }
    throw dao::EngineError(
        dao::NoCurrentRecord,
        u"The calendar of events has no record for %1."_s.arg(MonthName(month.month, QLocale())));
}

dao::Recordset openEventMonth(const dao::Database& database, const EventMonth& month,
                              int calendarYear) {
    dao::Recordset rows = database.OpenRecordset(CalendarTable);
    if (moveToEventMonth(rows, month, calendarYear))
        return rows;
    rows.Close();
    addExtraMonth(database, extraMonthKey(month));
    rows = database.OpenRecordset(CalendarTable);
    rows.MoveLast();
    return rows;
}

QStringList eventTexts(const dao::Database& database, const EventMonth& month) {
    dao::Recordset rows = database.OpenRecordset(CalendarTable, dao::RecordsetType::Snapshot);
    QStringList texts;
    if (!moveToEventMonth(rows, month, calendarYear(database)))
        return texts;
    for (int day = 1; day <= QDate(month.year, month.month, 1).daysInMonth(); ++day)
        texts += richtext::plainText(rows.Collect(dayField(day)).toText());
    return texts;
}

void makeRoomForKey(const dao::Database& database, qsizetype size) {
    const dao::Field present = database.TableDefs()[CalendarTable].Fields()[MonthKeyField];
    if (present.Type != dao::DataType::Text || present.Size >= size)
        return;
    rebuildCalendar(database, [size](dao::Field& field) {
        if (dao::sameName(field.Name, MonthKeyField))
            field.Size = static_cast<int>(size);
    });
}

void Change_Field_type(const dao::Database& database) {
    const dao::Field first = database.TableDefs()[CalendarTable].Fields()[dayField(1)];
    if (first.Type != dao::DataType::Text)
        return;
    rebuildCalendar(database, [](dao::Field& field) {
        if (field.Type != dao::DataType::Text || dao::sameName(field.Name, MonthKeyField))
            return;
        field = dao::TableDef::CreateField(field.Name, dao::DataType::Memo);
        field.AllowZeroLength = true;
    });
}

void Clean_COE(const dao::Database& database) {
    dao::Transaction whole(database);
    dao::Recordset rows = database.OpenRecordset(CalendarTable);
    for (; !rows.EOF_(); rows.MoveNext()) {
        if (isExtraMonthKey(rows.Collect(MonthKeyField).toText()) && isEmptyMonth(rows))
            rows.Delete();
    }
    rows.Close();
    whole.commit();
}
