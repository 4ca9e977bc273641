// Classes and pupils removed, and what has to stay.

#include "classes/class_code.h"
#include "classes/class_removal.h"
#include "classes/class_tables.h"
#include "store/schema.h"
#include "support/class_file.h"

namespace {

class ClassRemovalTest : public testing::Test {
protected:
    TestSeams seams;
    YearFile file{twoWeekAnswers()};
    dao::Database database = file.open();
};

void addSeatingPlan(const dao::Database& database, const QString& classCode, const QString& room) {
    dao::TableDef plan = schemaTableDef(Table::SeatingPlan, {},
                                        room.isEmpty() ? classCode : room + u'_' + classCode);
    plan.AppendRelation(classRelation(plan.Name(), classCode, plan.Name()));
    database.TableDefs().Append(plan);
    database.TableDefs().Append(schemaTableDef(
        Table::SeatingPlanExtra, {}, room.isEmpty() ? classCode : room + u'_' + classCode));
}

void addClassNamed(const dao::Database& database, const QString& classCode) {
    dao::Recordset classcodes = database.OpenRecordset(ClasscodesTable);
    addClassRecord(classcodes, classCode, {}, 0);
    createPupilTable(database, classCode);
}

} // namespace

TEST_F(ClassRemovalTest, AClassGoesWithAllItHas) {
    addPupils(database, u"7A"_s, {u"Ames,Ann"_s});
    addSeatingPlan(database, u"7A"_s, {});
    addSeatingPlan(database, u"7A"_s, u"R1"_s);
    dao::Recordset open = database.OpenRecordset(u"SELECT * FROM Class_7A"_s);
    dao::Recordset other = database.OpenRecordset(u"Class_9C"_s);

    ASSERT_TRUE(Delete_Class(database, u"7A"_s, seams.prompts));
    EXPECT_FALSE(open.isOpen());
    EXPECT_TRUE(other.isOpen());
    for (const QString& table : database.TableDefs().names())
        EXPECT_FALSE(table.contains(u"7A"_s)) << table.toStdString();
    EXPECT_EQ(rowsOf(database, u"SELECT Classcode FROM Classcodes"_s),
              (QStringList{u"8X"_s, u"9C"_s}));
    EXPECT_TRUE(rowsOf(database, u"SELECT ID FROM Planning WHERE Class1 = '7A' OR Class2 = '7A' OR "
                                 "Class3 = '7A' OR Class4 = '7A' OR Class5 = '7A'"_s)
                    .isEmpty());
    const QString freed = u"SELECT Day, Period FROM %1 WHERE Colour = -2147483643"_s;
    EXPECT_EQ(rowsOf(database, freed.arg(ExtraTTinfoTable)),
              (QStringList{u"1|1"_s, u"1|3"_s, u"5|2"_s}));
    EXPECT_EQ(rowsOf(database, freed.arg(ExtraTTinfoBTable)), QStringList{u"3|5"_s});
}

TEST_F(ClassRemovalTest, CodesThatContainOneAnotherOrHoldOddCharacters) {
    YearAnswers answers = oneWeekAnswers();
    answers.classes = {u"7"_s, u"7A"_s, u"A]B"_s, u"[_^"_s, u"É"_s, u"]"_s};
    sortClasses(answers.classes);
    answers.colours.clear();
    answers.weekA = {};
    answers.weekA[0] = answers.classes.mid(0, 5);
    answers.weekA[1] = {answers.classes.mid(5)};
    YearFile odd(answers);
    database = odd.open();
    QStringList left = answers.classes;
    for (const QString& code : answers.classes) {
        SCOPED_TRACE(code.toStdString());
        dao::Recordset own =
            database.OpenRecordset(u"SELECT * FROM "_s + dao::writeName(classTable(code)));
        ASSERT_TRUE(Delete_Class(database, code, seams.prompts));
        EXPECT_FALSE(own.isOpen());
        left.removeOne(code);
        EXPECT_EQ(rowsOf(database, u"SELECT Classcode FROM Classcodes"_s), left);
        for (const QString& other : std::as_const(left)) {
            EXPECT_TRUE(TableExists(database, classTable(other)));
            EXPECT_TRUE(TableExists(database, registerTable(other)));
            EXPECT_EQ(rowsOf(database, u"SELECT ID FROM Planning WHERE Class%1 = %2"_s.arg(
                                           QString::number(answers.classes.indexOf(other) % 5 + 1),
                                           dao::writeText(other)))
                          .size(),
                      2);
        }
    }
}

TEST_F(ClassRemovalTest, AFailureUndoesTheDeletion) {
    database.TableDefs().Delete(u"REG_7A");
    database.TableDefs().Delete(u"Marks_7A");
    database.TableDefs().Delete(u"Class_7A");
    database.TableDefs().Append(schemaTableDef(Table::SeatingPlanExtra, {}, u"7A"_s));
    const QStringList before = database.TableDefs().names();
    seams.prompts.expect(PromptKind::Plain, u"Delete Class Error"_s, AnswerOk);
    EXPECT_FALSE(Delete_Class(database, u"7A"_s, seams.prompts));
    EXPECT_EQ(database.TableDefs().names(), before);
    EXPECT_EQ(rowsOf(database, ClasscodesTable).size(), 3);
}

TEST_F(ClassRemovalTest, SeatingPlansGoByWhosePupilsTheyHold) {
    addSeatingPlan(database, u"9C"_s, u"7"_s); // called as the default plan of a class 7_9C is
    dao::TableDef odd = schemaTableDef(Table::SeatingPlan, {}, u"elsewhere"_s);
    odd.AppendRelation(classRelation(odd.Name(), u"9C"_s, odd.Name()));
    database.TableDefs().Append(odd);
    database.TableDefs().Append(schemaTableDef(Table::SeatingPlanExtra, {}, u"elsewhere"_s));
    CreateLessonNotesTable(database);
    for (const QString& code : {u"9C"_s, u"8X"_s}) {
        dao::Recordset notes = database.OpenRecordset(LessonNotesTable);
        notes.AddNew();
        notes.SetCollect(u"Ldate", u"09/09/24"_s);
        notes.SetCollect(u"Lcode", code);
        notes.SetCollect(u"Lpupil", 1);
        notes.Update();
    }
    addClassNamed(database, u"7_9C"_s);
    ASSERT_TRUE(Delete_Class(database, u"7_9C"_s, seams.prompts));
    EXPECT_TRUE(TableExists(database, u"sPlan_7_9C"_s));
    ASSERT_TRUE(Delete_Class(database, u"9C"_s, seams.prompts));
    for (const QString& table :
         {u"sPlan_7_9C"_s, u"sPlanExtra_7_9C"_s, u"sPlan_elsewhere"_s, u"sPlanExtra_elsewhere"_s})
        EXPECT_FALSE(TableExists(database, table)) << table.toStdString();
    EXPECT_EQ(rowsOf(database, u"SELECT Lcode FROM Lesson_Notes"_s), QStringList{u"8X"_s});
}

TEST_F(ClassRemovalTest, TheQuestionCanBeSwitchedOff) {
    bool dontAsk = false;
    const QString title = u"Delete Class:"_s;
    seams.prompts.expect(PromptKind::Message, title, int(AnswerNo));
    EXPECT_EQ(askDeleteClass(seams.prompts, u"7A"_s, true, dontAsk), DeleteClassAnswer::No);
    EXPECT_FALSE(dontAsk);
    seams.prompts.expect(PromptKind::Message, title, int(AnswerCancel));
    EXPECT_EQ(askDeleteClass(seams.prompts, u"7A"_s, true, dontAsk), DeleteClassAnswer::Archive);
    seams.prompts.expect(PromptKind::Message, title, BoxAnswer{AnswerYes, true});
    EXPECT_EQ(askDeleteClass(seams.prompts, u"7A"_s, true, dontAsk), DeleteClassAnswer::Yes);
    EXPECT_EQ(askDeleteClass(seams.prompts, u"7A"_s, true, dontAsk), DeleteClassAnswer::Yes);
}

TEST_F(ClassRemovalTest, PupilsGoWithTheirMarks) {
    addPupils(database, u"7A"_s, {u"Ames,Ann"_s, u"O'Brien,Zoë"_s, u"Cole"_s});
    seams.prompts.expect(PromptKind::Message, u"Remove ALL Pupils"_s, int(AnswerNo));
    EXPECT_FALSE(Delete_All_Pupils(database, u"7A"_s, {1, 2, 3}, seams.prompts));
    seams.prompts.expect(PromptKind::Message, u"Remove ALL Pupils"_s, int(AnswerYes));
    EXPECT_TRUE(Delete_All_Pupils(database, u"7A"_s, {1, 3}, seams.prompts));
    EXPECT_EQ(rowsOf(database, u"SELECT Surname FROM Class_7A"_s), QStringList{u"O'Brien"_s});
    EXPECT_EQ(rowsOf(database, u"SELECT ID FROM REG_7A"_s), QStringList{u"2"_s});
    EXPECT_EQ(rowsOf(database, u"Marks_7A"_s), QStringList{u"2"_s});
}
