#include "classes/class_tables.h"

#include "calendar/term_weeks.h"
#include "classes/register_columns.h"
#include "store/schema.h"
#include "store/table_names.h"

#include <algorithm>

namespace {

void writePeriods(dao::Recordset& classcodes, QChar letter,
                  const std::array<QString, DaysOfTimetable>& digits) {
    for (int day = 0; day < DaysOfTimetable; ++day) {
        const QString& text = digits[static_cast<size_t>(day)];
        if (!text.isEmpty())
            classcodes.SetCollect(timetableField(day + Monday, letter), text);
    }
}

std::array<QString, DaysOfTimetable> readPeriods(const dao::Recordset& classcodes, QChar letter) {
    std::array<QString, DaysOfTimetable> digits;
    for (int day = 0; day < DaysOfTimetable; ++day) {
        const QString field = timetableField(day + Monday, letter);
        if (classcodes.HasField(field))
            digits[static_cast<size_t>(day)] = classcodes.Collect(field).toText();
    }
    return digits;
}

void createRegisterTable(const dao::Database& database, const QString& classCode,
                         const QList<Lesson>& lessons) {
    dao::TableDef definition = schemaTableDef(Table::Register, {}, classCode);
    definition.AppendRelation(
        classRelation(registerRelation(classCode), classCode, registerTable(classCode)));
    dao::FieldCollection fields = definition.Fields();
    fields.SetAll(QList<dao::Field>(fields.begin(), fields.end()) + registerFields(lessons));
    database.TableDefs().Append(definition);
}

void createMarksTable(const dao::Database& database, const QString& classCode) {
    dao::TableDef definition = schemaTableDef(Table::Marks, {}, classCode);
    definition.AppendRelation(
        classRelation(marksRelation(classCode), classCode, marksTable(classCode)));
    database.TableDefs().Append(definition);
}

} // namespace

QList<Lesson> classLessons(const QList<QDate>& days, const QList<QChar>& letters,
                           const ClassPeriods& periods) {
    QList<Lesson> lessons;
    for (qsizetype i = 0; i < days.size(); ++i) {
        const QChar letter = letters.isEmpty() ? QChar(u'A') : letters[i];
        const auto weekday = static_cast<size_t>(weekdayOf(days[i]) - Monday);
        const QString& digits = periods.week(letter)[weekday];
        lessons.insert(lessons.size(), digits.size(), Lesson{days[i], letter});
    }
    return lessons;
}

bool hasRegister(const QList<Lesson>& lessons) {
    return lessons.size() > 1;
}

bool exceedsRegister(const QList<Lesson>& lessons) {
    return lessons.size() > MaximumRegisterLessons;
}

QList<dao::Field> registerFields(const QList<Lesson>& lessons) {
    QList<dao::Field> fields;
    const qsizetype columns = std::min<qsizetype>(lessons.size(), MaximumRegisterLessons);
    for (int number = 1; number <= columns; ++number)
        fields += registerField({lessons[number - 1].date, number});
    return fields;
}

void addClassRecord(dao::Recordset& classcodes, const QString& classCode,
                    const ClassPeriods& periods, qint32 colour) {
    classcodes.AddNew();
    classcodes.SetCollect(u"Classcode", classCode);
    writePeriods(classcodes, u'A', periods.weekA);
    classcodes.SetCollect(u"Caption", classCode);
    if (classcodes.HasField(timetableField(Monday, u'B')))
        writePeriods(classcodes, u'B', periods.weekB);
    classcodes.SetCollect(u"Colour", colour);
    classcodes.Update();
}

ClassPeriods classPeriods(const dao::Recordset& classcodes) {
    return {readPeriods(classcodes, u'A'), readPeriods(classcodes, u'B')};
}

void createPupilTable(const dao::Database& database, const QString& classCode) {
    database.TableDefs().Append(schemaTableDef(Table::Class, {}, classCode));
}

void createRegisterAndMarks(const dao::Database& database, const QString& classCode,
                            const QList<Lesson>& lessons) {
    if (hasRegister(lessons))
        createRegisterTable(database, classCode, lessons);
    createMarksTable(database, classCode);
}
