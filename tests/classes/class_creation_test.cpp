// A class made in a year that exists, against the year's own creation.

#include "classes/class_creation.h"

#include "calendar/class_colours.h"
#include "classes/class_list.h"
#include "classes/class_removal.h"
#include "store/schema.h"
#include "support/class_file.h"
#include "year/year_builder.h"

namespace {

class ClassCreationTest : public testing::Test {
protected:
    TestSeams seams;
};

/// Everything that a file says of its classes.
QStringList contentOf(const dao::Database& database) {
    QStringList content =
        rowsOf(database, u"SELECT * FROM Classcodes ORDER BY Classcode"_s) +
        rowsOf(database, u"SELECT Day, Period FROM ExtraTTinfo ORDER BY Day, Period"_s);
    if (database.TableDefs().Contains(ExtraTTinfoBTable))
        content += rowsOf(database, u"SELECT Day, Period FROM ExtraTTinfoB ORDER BY Day, Period"_s);
    content += rowsOf(database, PlanningTable);
    QStringList tables = database.TableDefs().names();
    tables.sort();
    for (const QString& table : std::as_const(tables))
        content += table + u": "_s + fieldNames(database, table).join(u'|');
    QStringList relations;
    for (const dao::Relation& relation : database.Relations().all())
        relations += relation.Name + QString::number(relation.Attributes);
    relations.sort();
    return content + relations;
}

} // namespace

TEST_F(ClassCreationTest, AClassMadeLaterIsAsOneOfTheStart) {
    for (YearAnswers whole : {twoWeekAnswers(), oneWeekAnswers()}) {
        whole.colours.clear();
        YearAnswers lacking = whole;
        lacking.classes.removeAll(u"7A"_s);
        for (WeekTimetable* week : {&lacking.weekA, &lacking.weekB}) {
            for (QStringList& day : *week)
                day.replaceInStrings(u"7A"_s, QString());
        }
        YearFile expected(whole);
        YearFile made(lacking);
        const dao::Database database = made.open();
        ASSERT_TRUE(createClass(database, newClass(database, u"7A"_s, classPeriods(whole, u"7A"_s)),
                                seams.prompts));
        EXPECT_EQ(contentOf(database), contentOf(expected.open()));
    }
}

TEST_F(ClassCreationTest, LessonsAgainstTheTimetable) {
    YearFile twoWeeks(twoWeekAnswers()); // B: 4-6 Sep, A: 9-13 Sep, B: 23-27 Sep
    YearFile oneWeek(oneWeekAnswers());
    struct Case {
        YearFile& file;
        ClassPeriods periods;
        QString lessons;
    };
    for (const Case& each :
         {Case{twoWeeks, {{u"23"_s, {}, {}, {}, {}}, {}}, u"2024-09-09A 2024-09-09A"_s},
          Case{twoWeeks,
               {{}, {u"3"_s, {}, u"1"_s, {}, {}}},
               u"2024-09-04B 2024-09-23B 2024-09-25B"_s},
          Case{twoWeeks, {}, {}},
          Case{twoWeeks, {{QString(), u"1"_s, {}, {}, {}}, {}}, u"2024-09-10A"_s},
          Case{oneWeek, {{QString(), u"1"_s, {}, {}, {}}, {}}, u"2024-09-10A 2024-09-24A"_s}}) {
        QStringList found;
        for (const Lesson& lesson : yearLessons(each.file.open(), each.periods))
            found += lesson.date.toString(Qt::ISODate) + lesson.letter;
        EXPECT_EQ(found.join(u' '), each.lessons);
    }
}

TEST_F(ClassCreationTest, OneLessonOrNoneGivesNoRegister) {
    for (const ClassPeriods& periods :
         {ClassPeriods{}, ClassPeriods{{QString(), u"1"_s, {}, {}, {}}, {}}}) {
        YearFile file(twoWeekAnswers());
        const dao::Database database = file.open();
        const QStringList planning = rowsOf(database, PlanningTable);
        ASSERT_TRUE(createClass(database, newClass(database, u"N"_s, periods), seams.prompts));
        EXPECT_TRUE(TableExists(database, u"Class_N"_s));
        EXPECT_TRUE(TableExists(database, u"Marks_N"_s));
        EXPECT_FALSE(TableExists(database, u"REG_N"_s));
        EXPECT_EQ(rowsOf(database, PlanningTable), planning);
    }
}

TEST_F(ClassCreationTest, ARegisterHas250LessonsAtMost) {
    YearAnswers answers = oneWeekAnswers();
    answers.terms = {{QDate(2024, 9, 2), QDate(2025, 2, 14)}}; // 24 weeks from Monday to Friday
    answers.classes = {u"7A"_s};
    answers.weekA = {};
    YearFile file(answers);
    const dao::Database database = file.open();
    ClassPeriods periods{{u"12"_s, u"12"_s, u"12"_s, u"12"_s, u"12"_s}, {}};
    ASSERT_EQ(yearLessons(database, periods).size(), 240);

    dao::Recordset terms = database.OpenRecordset(TermDatesTable);
    terms.MoveLast();
    for (const int lessons : {250, 252}) {
        terms.Edit();
        terms.SetCollect(u"Day", lessons == 250 ? 21 : 24);
        terms.Update();
        ASSERT_EQ(yearLessons(database, periods).size(), lessons);
        const QString code = QString::number(lessons);
        if (lessons > MaximumRegisterLessons)
            seams.prompts.expect(PromptKind::Plain, u"Too many fields"_s, AnswerOk);
        ASSERT_TRUE(createClass(database, newClass(database, code, periods), seams.prompts));
        EXPECT_EQ(fieldNames(database, registerTable(code)).size(), 251);
        ASSERT_TRUE(Delete_Class(database, code, seams.prompts)); // its periods are free again
    }
    EXPECT_TRUE(seams.prompts.last().text.contains(u"is registered 252 times during the year."_s));
    // One lesson too many is enough.
    periods.weekA[0] = u"2"_s;
    periods.weekA[1] = u"123"_s;
    ASSERT_EQ(yearLessons(database, periods).size(), 251);
    seams.prompts.expect(PromptKind::Plain, u"Too many fields"_s, AnswerOk);
    ASSERT_TRUE(createClass(database, newClass(database, u"251"_s, periods), seams.prompts));
    EXPECT_EQ(fieldNames(database, u"REG_251"_s).last(), u"21/02/25 250"_s);
}

TEST_F(ClassCreationTest, AFailureLeavesNothingOfTheClass) {
    YearFile file(twoWeekAnswers());
    const dao::Database database = file.open();
    NewClass answers = newClass(database, u"N"_s, ClassPeriods{{u"24"_s, {}, {}, {}, {}}, {}});
    const dao::TableDef stale = schemaTableDef(Table::Marks, {}, u"N"_s);
    database.TableDefs().Append(stale); // what a foreign tool might leave
    const QStringList before = contentOf(database);
    seams.prompts.expect(PromptKind::Plain, u"Create Class Error"_s, AnswerOk);
    EXPECT_FALSE(createClass(database, answers, seams.prompts));
    EXPECT_TRUE(
        seams.prompts.last().text.startsWith(u"Error Creating Class : \nError number : 3010\n"_s));
    EXPECT_EQ(contentOf(database), before);
}

TEST_F(ClassCreationTest, OlderFilesGetWhatTheyLackOnce) {
    YearFile file(twoWeekAnswers());
    const dao::Database database = file.open();
    database.TableDefs()[u"Class_8X"].Fields().Delete(u"Photo");
    for (int time = 0; time < 2; ++time) {
        UpdateClassTables(database);
        EXPECT_EQ(fieldNames(database, u"Class_7A"_s).mid(13), (QStringList{u"Photo"_s, u"PID"_s}));
        EXPECT_EQ(fieldNames(database, u"Class_8X"_s).mid(13), (QStringList{u"Photo"_s, u"PID"_s}));
        EXPECT_EQ(fieldNames(database, ClassTempTable),
                  (QStringList{u"Surname"_s, u"Firstname"_s, u"Photo"_s}));
    }
    const QList<ClassColour> classes = readClasses(database);
    ASSERT_EQ(classes.size(), 3);
    EXPECT_EQ(classes[0].colour, 16744448);
    EXPECT_EQ(classIndex(classes, u"9C"_s), 2);
    EXPECT_EQ(classIndex(classes, u"9"_s), -1);
}
