#include "organiser/schedule_rows.h"

#include "core/dates.h"
#include "store/schema.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <QFileInfo>

#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString YesText = u"Yes"_s;
const QString NoText = u"No"_s;
const QString LoopText = u"Y"_s;
const QString NoLoopText = u"N"_s;

constexpr int DaysOfWeek = 7;
constexpr int FridayToMonday = 3;

/// A number of so many digits at a place of a text; -1 where there is none.
int numberAt(const QString& text, qsizetype place, qsizetype digits) {
    int number = 0;
    for (qsizetype i = place; i < place + digits; ++i) {
        if (i >= text.size() || text[i] < u'0' || text[i] > u'9')
            return -1;
        number = 10 * number + (text[i].unicode() - u'0');
    }
    return number;
}

QDate dateOf(const QString& text) {
    constexpr qsizetype length = 10;
    constexpr qsizetype monthPlace = 5;
    return text.size() == length
               ? QDate(numberAt(text, 0, 4), numberAt(text, monthPlace, 2), numberAt(text, 8, 2))
               : QDate();
}

QTime timeOf(const QString& text) {
    return QTime(numberAt(text, 0, 2), numberAt(text, 3, 2));
}

/// An older program's table has no types and no repetitions.
void addTypes(const dao::Database& database) {
    dao::Transaction whole(database);
    for (const QString& field : {u"Type"_s, u"Duration"_s})
        database.TableDefs()[SchedulesTable].Fields().Append(schemaField(Table::Schedules, field));
    for (dao::Recordset rows = database.OpenRecordset(SchedulesTable); !rows.EOF_();
         rows.MoveNext()) {
        rows.Edit();
        rows.SetCollect(u"Type", MessageReminder);
        rows.SetCollect(u"Duration", OnceOnly);
        rows.Update();
    }
    whole.commit();
}

} // namespace

void CheckSchedulesTable(const dao::Database& database) {
    if (!TableExists(database, SchedulesTable))
        database.TableDefs().Append(schemaTableDef(Table::Schedules));
    else if (!FieldInTableDef(database.TableDefs()[SchedulesTable], u"Type"_s))
        addTypes(database);
}

ScheduleItem scheduleItem(const dao::Recordset& row) {
    const auto text = [&row](QStringView field) { return row.Collect(field).toText(); };
    return {.date = text(u"TaskDate"),
            .time = text(u"TaskTime"),
            .caption = text(u"Caption"),
            .memo = text(u"Memo"),
            .isActive = text(u"Active").compare(YesText, Qt::CaseInsensitive) == 0,
            .alarm = text(u"Alarm"),
            .loops = text(u"ContLoop") == LoopText,
            .type = row.Collect(u"Type").toInteger(),
            .duration = text(u"Duration")};
}

void setScheduleItem(dao::Recordset& row, const ScheduleItem& item) {
    row.SetCollect(u"TaskDate", item.date);
    row.SetCollect(u"TaskTime", item.time);
    row.SetCollect(u"Caption", item.caption);
    row.SetCollect(u"Memo", item.memo);
    row.SetCollect(u"Active", item.isActive ? YesText : NoText);
    if (!item.alarm.isEmpty())
        row.SetCollect(u"Alarm", item.alarm);
    row.SetCollect(u"ContLoop", item.loops ? LoopText : NoLoopText);
    row.SetCollect(u"Type", item.type);
    row.SetCollect(u"Duration", item.duration);
}

QString scheduleDate(QDate date) {
    return QLocale::c().toString(date, u"yyyy-MM-dd"_s);
}

QString scheduleTime(QTime time) {
    return QLocale::c().toString(time, u"HH:mm:'00'"_s);
}

QDateTime dueTime(const ScheduleItem& item) {
    const QDate date = dateOf(item.date);
    const QTime time = timeOf(item.time);
    return date.isValid() && time.isValid() ? localMoment(date, time) : QDateTime();
}

bool makesSense(const ScheduleItem& item) {
    return dueTime(item).isValid() &&
           (item.duration == OnceOnly || item.duration == EveryDay || item.duration == EveryWeek);
}

QDateTime localMoment(QDate date, QTime time) {
    const qint64 asUtc = QDateTime(date, time, Qt::UTC).toMSecsSinceEpoch();
    const auto local = [](qint64 moment) { return QDateTime::fromMSecsSinceEpoch(moment); };
    constexpr qint64 day = 24LL * 60 * 60 * 1000;
    constexpr qint64 second = 1000;
    // By the clock as it goes before a change that may be near, then as it goes behind it.
    const std::array<QDateTime, 2> both{local(asUtc - local(asUtc - day).offsetFromUtc() * second),
                                        local(asUtc - local(asUtc + day).offsetFromUtc() * second)};
    const bool isBehind = both[0].time() != time && both[1].time() == time;
    return isBehind ? both[1] : both[0];
}

void advanceItem(dao::Recordset& row, QDate today) {
    const ScheduleItem item = scheduleItem(row);
    row.Edit();
    if (item.duration == OnceOnly)
        row.SetCollect(u"Active", NoText);
    else if (item.duration == EveryDay)
        row.SetCollect(u"TaskDate", scheduleDate(today.addDays(
                                        weekdayOf(today) == Friday ? FridayToMonday : 1)));
    else if (item.duration == EveryWeek)
        row.SetCollect(u"TaskDate", scheduleDate(dateOf(item.date).addDays(DaysOfWeek)));
    row.Update();
}

QString scheduleDetails(const ScheduleItem& item) {
    QStringList lines{u"Date:   "_s + item.date, u"Time:   "_s + item.time,
                      u"Active: "_s + (item.isActive ? YesText : NoText),
                      item.type == SoundOnlyReminder ? u"Type:   Sound Only Reminder"_s
                                                     : u"Type:   Message Reminder"_s,
                      u"Sound: "_s +
                          (item.alarm.isEmpty() ? u"Not Set"_s : QFileInfo(item.alarm).fileName())};
    if (item.duration == EveryDay)
        lines[1] += u" - Daily Event"_s;
    else if (item.duration == EveryWeek)
        lines[1] += u" - Weekly Event"_s;
    return lines.join(u'\n');
}
