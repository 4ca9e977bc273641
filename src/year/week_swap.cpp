#include "year/week_swap.h"

#include "calendar/term_weeks.h"
#include "classes/class_tables.h"
#include "classes/register_columns.h"
#include "classes/register_table.h"
#include "core/dates.h"
#include "core/progress.h"
#include "planning/sheet_fields.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/schema.h"
#include "store/table_names.h"

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int barEnd = 100;

int percent(qsizetype done, qsizetype all) {
    return all == 0 ? barEnd : static_cast<int>(done * barEnd / all);
}

struct TaughtClass {
    QString code;
    ClassPeriods periods;
};

QList<TaughtClass> taughtClasses(const dao::Database& database) {
    QList<TaughtClass> classes;
    dao::Recordset rows =
        database.OpenRecordset(u"SELECT * FROM Classcodes"_s, dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext())
        classes.append({rows.Collect(u"Classcode").toText(), classPeriods(rows)});
    return classes;
}

QDate dateOf(const dao::Recordset& sheets) {
    const QDate date = sheetDate(sheets.Collect(u"PlanDate").toText());
    if (!date.isValid())
        throw dao::EngineError(dao::ConversionError,
                               u"A planning sheet has no date that can be read."_s);
    return date;
}

void clearSheet(dao::Recordset& sheets, int periodsPerDay) {
    const dao::Value nothing;
    for (int period = 1; period <= periodsPerDay; ++period) {
        sheets.SetCollect(fieldOf({SheetBox::Lesson, period}), nothing);
        sheets.SetCollect(fieldOf({SheetBox::Homework, period}), nothing);
        sheets.SetCollect(classField(period), QString());
    }
    for (const SheetBox block : {SheetBox::Dinner, SheetBox::AfterSchool, SheetBox::Notes})
        sheets.SetCollect(fieldOf({block, 0}), nothing);
}

/// Writes the classes of a day under a timetable; of two that claim a period the later one has it.
void enterClasses(dao::Recordset& sheets, const QList<TaughtClass>& classes, QDate date,
                  QChar letter) {
    const auto weekday = static_cast<size_t>(weekdayOf(date) - Monday);
    for (const TaughtClass& taught : classes) {
        for (const QChar period : taught.periods.week(letter)[weekday]) {
            const QString field = classField(period.digitValue());
            if (sheets.HasField(field))
                sheets.SetCollect(field, taught.code);
        }
    }
}

/// The sheet becomes one of the other week. One without a letter, which was added by hand, becomes
/// one of week A and has no classes: no timetable was ever said to hold on it.
void swapSheet(dao::Recordset& sheets, const QList<TaughtClass>& classes, int periodsPerDay) {
    const QString letter = sheets.Collect(u"ABWeek").toText();
    const QChar other = letter == u"A" ? u'B' : u'A';
    const QDate date = dateOf(sheets);
    sheets.Edit();
    clearSheet(sheets, periodsPerDay);
    sheets.SetCollect(u"ABWeek", QString(other));
    if (isSchoolWeekday(date) && (letter == u"A" || letter == u"B"))
        enterClasses(sheets, classes, date, other);
    sheets.Update();
}

void swapSheets(dao::Recordset& sheets, const QList<TaughtClass>& classes, int periodsPerDay,
                Progress& progress) {
    const int count = sheets.RecordCount();
    for (int done = 0; !sheets.EOF_(); sheets.MoveNext()) {
        progress.UpdateProgress(percent(done++, count), u"Clearing Planning Data"_s,
                                u"Entering Class information for "_s +
                                    registerDateText(dateOf(sheets)));
        swapSheet(sheets, classes, periodsPerDay);
    }
}

void deleteLessonsFrom(const dao::Database& database, QDate date, Progress& progress) {
    const QStringList tables = registerTables(database);
    for (qsizetype done = 0; done < tables.size(); ++done) {
        const QList<dao::Field> fields = registerFields(database, tables[done]);
        QList<dao::Field> kept;
        for (const dao::Field& field : fields) {
            if (isLessonFrom(field, date))
                progress.UpdateProgress(percent(done, tables.size()),
                                        u"Deleting all unused register entries"_s,
                                        u"Deleting "_s + field.Name);
            else
                kept += field;
        }
        if (kept.size() < fields.size())
            database.TableDefs()[tables[done]].Fields().SetAll(kept);
    }
}

void markUnfinished(const dao::Database& database, short week) {
    const std::optional<short> earlier = unfinishedWeekChange(database);
    if (!database.TableDefs().Contains(WeekChangeTable))
        database.TableDefs().Append(schemaTableDef(Table::WeekChange));
    dao::Recordset mark = database.OpenRecordset(WeekChangeTable);
    if (mark.EOF_())
        mark.AddNew();
    else
        mark.Edit();
    mark.SetCollect(u"Week", std::min(week, earlier.value_or(week)));
    mark.Update();
}

/// The classes of one day, period by period.
struct DayOfClasses {
    QDate date;
    QStringList classes;
};

QList<DayOfClasses> taughtDays(const dao::Database& database, short week, int periodsPerDay) {
    QString fields = u"PlanDate"_s;
    for (int period = 1; period <= periodsPerDay; ++period)
        fields += u", "_s + classField(period);
    QList<DayOfClasses> days;
    dao::Recordset sheets = openSheetsFrom(database, week, fields);
    for (; !sheets.EOF_(); sheets.MoveNext()) {
        DayOfClasses& day = days.emplaceBack(DayOfClasses{dateOf(sheets), {}});
        for (int period = 1; period <= periodsPerDay; ++period)
            day.classes += sheets.Collect(period).toText();
    }
    return days;
}

/// The lessons of a class on these days behind the last that its register has, numbered on from it.
QList<RegisterColumn> lessonsBehind(const std::optional<RegisterColumn>& last,
                                    const QString& classCode, const QList<DayOfClasses>& days) {
    QList<RegisterColumn> lessons;
    int number = last ? last->number : 0;
    for (const DayOfClasses& day : days) {
        if (last && day.date <= last->date)
            continue;
        for (const QString& taught : day.classes) {
            if (dao::sameName(taught, classCode))
                lessons.append({day.date, ++number});
        }
    }
    return lessons;
}

/// Adds as many of the lessons as the register has room for. Answers whether that is all of them.
bool appendLessons(const dao::Database& database, const QString& table, QList<dao::Field> fields,
                   const QList<RegisterColumn>& lessons,
                   const std::function<void(const QString&)>& tell) {
    const qsizetype room = dao::MaximumFields - fields.size();
    for (const RegisterColumn& lesson : lessons.first(std::min(room, lessons.size()))) {
        fields += registerField(lesson);
        tell(fields.last().Name);
    }
    if (!lessons.isEmpty())
        database.TableDefs()[table].Fields().SetAll(fields);
    return lessons.size() <= room;
}

qsizetype countLessons(const QList<dao::Field>& fields) {
    return std::count_if(fields.begin(), fields.end(), [](const dao::Field& field) {
        return readRegisterColumn(field.Name).has_value();
    });
}

} // namespace

dao::Recordset openSheetsFrom(const dao::Database& database, short week, const QString& fields) {
    return database.OpenRecordset(
        u"SELECT %1 FROM Planning WHERE Week >= %2 ORDER BY PlanDate"_s.arg(fields).arg(week));
}

void swapWeeks(const dao::Database& database, int periodsPerDay, short week, Progress& progress) {
    dao::Transaction half(database);
    progress.UpdateProgress(0, u"Gathering information"_s);
    const QList<TaughtClass> classes = taughtClasses(database);
    dao::Recordset sheets = openSheetsFrom(database, week);
    const QDate changeDate = dateOf(sheets);
    swapSheets(sheets, classes, periodsPerDay, progress);
    sheets.Close();
    deleteLessonsFrom(database, changeDate, progress);
    markUnfinished(database, week);
    half.commit();
}

std::optional<short> unfinishedWeekChange(const dao::Database& database) {
    if (!database.TableDefs().Contains(WeekChangeTable))
        return std::nullopt;
    const dao::Recordset mark =
        database.OpenRecordset(WeekChangeTable, dao::RecordsetType::Snapshot);
    if (mark.EOF_())
        return std::nullopt;
    return static_cast<short>(mark.Collect(u"Week").toInteger());
}

QList<LongRegister> addLessonColumns(const dao::Database& database, int periodsPerDay,
                                     Progress& progress) {
    QList<LongRegister> tooLong;
    const std::optional<short> week = unfinishedWeekChange(database);
    if (!week)
        return tooLong;
    dao::Transaction half(database);
    const QString line = u"Adding new Register Fields"_s;
    progress.UpdateProgress(0, line);
    const QList<DayOfClasses> days = taughtDays(database, *week, periodsPerDay);
    const QStringList tables = registerTables(database);
    for (qsizetype done = 0; done < tables.size(); ++done) {
        const QList<dao::Field> fields = registerFields(database, tables[done]);
        const QString classCode = *classOfRegisterTable(tables[done]);
        const QList<RegisterColumn> lessons = lessonsBehind(lastLesson(fields), classCode, days);
        const auto tell = [&](const QString& name) {
            progress.UpdateProgress(percent(done, tables.size()), line, u"Adding field "_s + name);
        };
        if (!appendLessons(database, tables[done], fields, lessons, tell))
            tooLong.append({classCode, countLessons(fields) + lessons.size()});
    }
    database.TableDefs().Delete(WeekChangeTable);
    half.commit();
    return tooLong;
}
