#include "year/year_mending.h"

#include "calendar/term_weeks.h"
#include "classes/class_creation.h"
#include "core/class_colour.h"
#include "planning/sheet_fields.h"
#include "store/engine/error.h"
#include "store/schema.h"
#include "store/table_names.h"
#include "store/table_structure.h"
#include "year/year_builder.h"

#include <QSet>

#include <array>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The series in which tables are made: with the year, and of each class.
enum Series { YearSeries = 1, PupilSeries, RegisterSeries, MarksSeries };

constexpr int MostPeriods = 9;

int periodsIn(const dao::FieldCollection& fields) {
    int periods = 0;
    while (periods < MostPeriods && fields.Contains(classField(periods + 1)))
        ++periods;
    return periods;
}

/// The shape of a year by its planning sheets, else by its own record; none where both are lost.
std::optional<YearShape> foundShape(const dao::Database& found) {
    if (TableExists(found, PlanningTable)) {
        const dao::FieldCollection fields = found.TableDefs()[PlanningTable].Fields();
        return YearShape{periodsIn(fields), fields.Contains(u"ABWeek")};
    }
    if (!TableExists(found, AdminTable))
        return std::nullopt;
    const dao::Recordset admin = found.OpenRecordset(AdminTable);
    if (admin.EOF_() || !admin.HasField(u"PeriodsPerDay") || !admin.HasField(u"TTweekly"))
        return std::nullopt;
    return YearShape{static_cast<int>(admin.Collect(u"PeriodsPerDay").toInteger()),
                     admin.Collect(u"TTweekly").toInteger() == 1};
}

QList<YearShape> possibleShapes(const dao::Database& found) {
    if (const auto shape = foundShape(found))
        return {*shape};
    QList<YearShape> shapes;
    for (int periods = 1; periods <= MostPeriods; ++periods)
        shapes << YearShape{periods, false} << YearShape{periods, true};
    return shapes;
}

dao::ExpectedTable expectedTable(const dao::TableDef& definition) {
    return {.structure = definition.structure()};
}

/// Whether a file is a year for certain.
bool isYear(const dao::Database& found) {
    return TableExists(found, PlanningTable) || TableExists(found, AdminTable) ||
           TableExists(found, ClasscodesTable);
}

void addTablesOfYear(QList<dao::ExpectedTable>& tables, const dao::Database& found) {
    const QList<YearShape> shapes = possibleShapes(found);
    const bool isNeeded = isYear(found);
    for (const TableSpec& spec : schemaTables()) {
        QSet<qsizetype> counts; // of fields: the shape may make no difference
        for (const YearShape& shape : shapes) {
            if (spec.made != Made::AtCreation || (spec.flags & TwoWeeksOnly && !shape.twoWeeks))
                continue;
            dao::ExpectedTable table = expectedTable(schemaTableDef(spec.table, shape));
            if (counts.contains(table.structure.fields.size()))
                continue;
            counts.insert(table.structure.fields.size());
            table.isNeeded = isNeeded && (!(spec.flags & TwoWeeksOnly) || shapes.size() == 1);
            table.series = YearSeries;
            tables += table;
        }
    }
}

void addOtherTables(QList<dao::ExpectedTable>& tables, Made made) {
    for (const TableSpec& spec : schemaTables()) {
        if (spec.made != made || spec.table == Table::Temp) // which is gone when a file is closed
            continue;
        dao::ExpectedTable table = expectedTable(schemaTableDef(spec.table));
        if (spec.table == Table::RoomID)
            table.filledFields = {u"Day"_s, u"Period"_s, u"Week"_s};
        tables += table;
    }
}

dao::ExpectedTable pupilTable(const QString& classCode) {
    dao::ExpectedTable table = expectedTable(schemaTableDef(Table::Class, {}, classCode));
    table.fewestFields = static_cast<int>(table.structure.fields.size());
    table.structure.fields += schemaField(Table::Class, u"PID");
    table.furtherFields = NoteFieldPrefix + u"Lost "_s;
    table.isNeeded = true;
    table.series = PupilSeries;
    return table;
}

dao::ExpectedTable relatedTable(const QString& classCode, Table kind, const QString& relation) {
    dao::ExpectedTable table = expectedTable(schemaTableDef(kind, {}, classCode));
    table.structure.relations = {classRelation(relation, classCode, table.structure.name)};
    table.filledFields = {u"ID"_s};
    return table;
}

void addTablesOfClass(QList<dao::ExpectedTable>& tables, const QString& classCode,
                      const QList<Lesson>& lessons) {
    if (hasRegister(lessons)) {
        dao::ExpectedTable table =
            relatedTable(classCode, Table::Register, registerRelation(classCode));
        table.structure.fields += registerFields(lessons);
        table.isNeeded = true;
        table.series = RegisterSeries;
        tables += table;
    }
    dao::ExpectedTable marks = relatedTable(classCode, Table::Marks, marksRelation(classCode));
    marks.furtherFields = u"Lost "_s;
    marks.isNeeded = true;
    marks.series = MarksSeries;
    tables += marks;
    const QString plan = seatingPlanTable(classCode);
    tables += relatedTable(classCode, Table::SeatingPlan, plan);
    tables += expectedTable(schemaTableDef(Table::SeatingPlanExtra, {}, classCode));
}

void addTablesOfClasses(QList<dao::ExpectedTable>& tables, const dao::Database& found) {
    QList<std::pair<QString, ClassPeriods>> classes;
    dao::Recordset classcodes = found.OpenRecordset(ClasscodesTable);
    for (; !classcodes.EOF_(); classcodes.MoveNext()) {
        const QString code = classcodes.Collect(u"Classcode").toText();
        if (code.isEmpty())
            continue;
        classes.append({code, classPeriods(classcodes)});
        tables += pupilTable(code);
    }
    for (const auto& [code, periods] : std::as_const(classes))
        addTablesOfClass(tables, code, yearLessons(found, periods));
}

/// The tables of a year that can be told by now.
QList<dao::ExpectedTable> expectedTables(const dao::Database& found) {
    QList<dao::ExpectedTable> tables;
    const bool isAddressBook = TableExists(found, schemaTable(Table::Contacts).name);
    if (isAddressBook || !isYear(found))
        addOtherTables(tables, Made::InAddressBook);
    if (isAddressBook)
        return tables;
    addTablesOfYear(tables, found);
    try {
        addTablesOfClasses(tables, found);
    } catch (const dao::EngineError&) {
        // The classes, the terms or the year's own record are still to be found, or lost.
    }
    addOtherTables(tables, Made::OnDemand);
    return tables;
}

/// The first record of a table; none where there is none.
std::optional<dao::Recordset> firstRecord(const dao::Database& year, const QString& source) {
    dao::Recordset records = year.OpenRecordset(source);
    return records.EOF_() ? std::nullopt : std::optional(records);
}

struct SheetSpan {
    QDate first;
    QDate last;
};

std::optional<SheetSpan> spanOfSheets(const dao::Database& year) {
    const auto sheets = firstRecord(
        year, u"SELECT PlanDate FROM Planning WHERE PlanDate Is Not Null ORDER BY PlanDate"_s);
    if (!sheets)
        return std::nullopt;
    dao::Recordset last = *sheets;
    const QDate first = sheetDate(last.Collect(u"PlanDate").toText());
    last.MoveLast();
    return SheetSpan{first, sheetDate(last.Collect(u"PlanDate").toText())};
}

void addTerm(const dao::Database& year, const SheetSpan& span) {
    dao::Recordset terms = year.OpenRecordset(TermDatesTable);
    int number = 0;
    for (const QDate date : {span.first, span.last}) {
        terms.AddNew();
        terms.SetCollect(u"Term", ++number);
        terms.SetCollect(u"Year", date.year());
        terms.SetCollect(u"Month", date.month());
        terms.SetCollect(u"Day", date.day());
        terms.Update();
    }
}

/// The letter of the first week, by the first sheet that has one.
QString firstLetter(const dao::Database& year) {
    const auto lettered =
        firstRecord(year, u"SELECT Week, ABWeek FROM Planning WHERE ABWeek Is Not Null"_s);
    if (!lettered)
        return u"A"_s;
    const QChar letter = startLetter(lettered->Collect(u"ABWeek").toText());
    return lettered->Collect(u"Week").toInteger() % 2 == 0 ? otherLetter(letter) : letter;
}

void addAdmin(const dao::Database& year, const SheetSpan& span) {
    const dao::FieldCollection sheet = year.TableDefs()[PlanningTable].Fields();
    dao::Recordset admin = year.OpenRecordset(AdminTable);
    admin.AddNew();
    admin.SetCollect(u"Year", u"%1-%2"_s.arg(span.first.year()).arg(span.first.year() + 1));
    admin.SetCollect(u"PeriodsPerDay", periodsIn(sheet));
    const bool twoWeeks = sheet.Contains(u"ABWeek");
    admin.SetCollect(u"TTweekly", twoWeeks ? 1 : 0);
    if (twoWeeks && admin.HasField(u"StartWeek"))
        admin.SetCollect(u"StartWeek", firstLetter(year));
    for (const QStringView field : {u"Break1", u"Break2", u"Break3"})
        admin.SetCollect(field, 0);
    admin.Update();
}

void addMonths(const dao::Database& year) {
    dao::Recordset months = year.OpenRecordset(CalendarTable);
    for (int month = 1; month <= MonthsPerYear; ++month) {
        months.AddNew();
        months.SetCollect(u"Month", monthKey(month, QLocale()));
        months.Update();
    }
}

/// How often a class stands in each period, of the sheets of one weekday and letter.
struct TaughtDay {
    int sheets = 0;
    std::array<int, MostPeriods> lessons{};

    /// The periods in which it stands on most of them.
    QString periods() const {
        QString digits;
        for (size_t i = 0; i < lessons.size(); ++i) {
            if (lessons.at(i) * 2 > sheets)
                digits += QString::number(i + 1);
        }
        return digits;
    }
};

/// When a class is taught, by the sheets.
ClassPeriods taughtPeriods(const dao::Database& year, const QString& classCode) {
    std::array<std::array<TaughtDay, DaysOfTimetable>, 2> weeks;
    dao::Recordset sheets = year.OpenRecordset(PlanningTable, dao::RecordsetType::Snapshot);
    const bool twoWeeks = sheets.HasField(u"ABWeek");
    const int periods = periodsIn(year.TableDefs()[PlanningTable].Fields());
    for (; !sheets.EOF_(); sheets.MoveNext()) {
        const QDate date = sheetDate(sheets.Collect(u"PlanDate").toText());
        if (!isSchoolWeekday(date))
            continue;
        const bool isWeekB = twoWeeks && sheets.Collect(u"ABWeek").toText() == u'B';
        TaughtDay& day = weeks.at(isWeekB).at(static_cast<size_t>(weekdayOf(date) - Monday));
        ++day.sheets;
        for (int period = 1; period <= periods; ++period)
            day.lessons.at(static_cast<size_t>(period - 1)) +=
                sheets.Collect(classField(period)).toText() == classCode;
    }
    ClassPeriods taught;
    for (size_t day = 0; day < DaysOfTimetable; ++day) {
        taught.weekA.at(day) = weeks[0].at(day).periods();
        taught.weekB.at(day) = weeks[1].at(day).periods();
    }
    return taught;
}

/// The classes that have pupils' tables and no record.
QStringList addClasses(const dao::Database& year) {
    QStringList added;
    dao::Recordset classcodes = year.OpenRecordset(ClasscodesTable);
    QStringList known;
    for (; !classcodes.EOF_(); classcodes.MoveNext())
        known += classcodes.Collect(u"Classcode").toText();
    for (const QString& table : year.TableDefs().names()) {
        const std::optional<QString> code = classOfClassTable(table);
        if (!code || known.contains(*code, Qt::CaseInsensitive))
            continue;
        addClassRecord(classcodes, *code, taughtPeriods(year, *code), WhiteClassColour);
        added += *code;
    }
    return added;
}

void addMissing(const dao::Database& year, const SheetSpan& span, QStringList& added) {
    if (!firstRecord(year, TermDatesTable)) {
        addTerm(year, span);
        added += u"The terms were lost: one from the first sheet to the last stands for them."_s;
    }
    if (!firstRecord(year, AdminTable)) {
        addAdmin(year, span);
        added += u"The teacher's name and the breaks were lost; the rest of the year's own record "
                 "was made from the sheets."_s;
    }
    if (!firstRecord(year, CalendarTable)) {
        addMonths(year);
        added += u"The calendar of events was lost; its months are there, without events."_s;
    }
    const QStringList classes = addClasses(year);
    if (!classes.isEmpty())
        added += u"Colours and captions of classes were lost, their periods were read from the "
                 "sheets: %1."_s.arg(classes.join(u", "_s));
}

QStringList completeYear(const dao::Database& year) {
    for (const QString& table :
         {PlanningTable, AdminTable, TermDatesTable, ClasscodesTable, CalendarTable}) {
        if (!TableExists(year, table))
            return {};
    }
    QStringList added;
    try {
        if (const std::optional<SheetSpan> span = spanOfSheets(year))
            addMissing(year, *span, added);
    } catch (const dao::EngineError& error) {
        if (error.number() != dao::NoSuchItem && error.number() != dao::UnknownFieldInSql)
            throw; // else a table has lost one of its fields, and stays as it was found
    }
    return added;
}

} // namespace

dao::RepairKnowledge yearKnowledge() {
    return {.expected = expectedTables, .complete = completeYear};
}
