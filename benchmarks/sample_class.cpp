#include "sample_class.h"

#include "classes/class_tables.h"
#include "classes/register_columns.h"
#include "core/class_colour.h"
#include "store/engine/engine.h"
#include "store/schema.h"
#include "store/table_names.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int lessonCount = 250;

/// Two lessons a day, one straight after the other, from Monday to Friday.
QList<Lesson> lessons() {
    QList<Lesson> all;
    for (QDate date(2024, 9, 2); all.size() < lessonCount; date = date.addDays(1)) {
        if (date.dayOfWeek() <= DaysOfTimetable)
            all << Lesson{date, u'A'} << Lesson{date, u'A'};
    }
    return all;
}

void addGradeColumns(const dao::Database& database) {
    const dao::TableDef marks = database.TableDefs()[marksTable(SampleClassCode)];
    for (int column = 1; column <= SampleClassGrades; ++column)
        marks.Fields().Append(
            dao::TableDef::CreateField(u"Test %1"_s.arg(column), dao::DataType::Text, 50));
}

void addPupils(const dao::Database& database) {
    dao::Recordset pupils = database.OpenRecordset(classTable(SampleClassCode));
    dao::Recordset lessonMarks = database.OpenRecordset(registerTable(SampleClassCode));
    dao::Recordset grades = database.OpenRecordset(marksTable(SampleClassCode));
    for (int pupil = 1; pupil <= SampleClassPupils; ++pupil) {
        pupils.AddNew();
        pupils.SetCollect(u"Surname", u"Featherstone%1"_s.arg(pupil * 13 % 35));
        pupils.SetCollect(u"Firstname", u"Ann"_s);
        pupils.SetCollect(u"Tutor", u"7T"_s);
        pupils.Update();
        lessonMarks.AddNew();
        lessonMarks.SetCollect(u"ID", pupil);
        for (int lesson = 1; lesson <= SampleClassMarked; ++lesson)
            lessonMarks.SetCollect(lesson, (pupil + lesson) % 9 ? u"/"_s : u"O"_s);
        lessonMarks.Update();
        grades.AddNew();
        grades.SetCollect(u"ID", pupil);
        for (int column = 1; column <= SampleClassGrades; ++column)
            grades.SetCollect(column, QString::number((pupil * column) % 40));
        grades.Update();
    }
}

} // namespace

void createSampleClass(const QString& path) {
    const dao::DBEngine engine;
    const dao::Database database = engine.CreateDatabase(path, dao::GeneralLocale.toString());
    dao::Transaction transaction(database);
    database.TableDefs().Append(schemaTableDef(Table::Classcodes));
    dao::Recordset classcodes = database.OpenRecordset(ClasscodesTable);
    addClassRecord(classcodes, SampleClassCode, {}, WhiteClassColour);
    createPupilTable(database, SampleClassCode);
    createRegisterAndMarks(database, SampleClassCode, lessons());
    addGradeColumns(database);
    addPupils(database);
    transaction.commit();
}

QByteArray sampleLessonName(int number) {
    return registerColumnName({lessons()[number - 1].date, number}).toUtf8();
}
