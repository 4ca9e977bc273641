// Pupils: how they come into a class and leave it, and the notes on their lessons.

#include "classes/class_removal.h"
#include "classes/pupil_notes.h"
#include "classes/pupils.h"
#include "store/schema.h"
#include "support/class_file.h"

namespace {

class PupilsTest : public testing::Test {
protected:
    PupilsTest() : file(twoWeekAnswers()), database(file.open()) {}

    std::optional<qint64> add(const QString& name, const QString& refusal = {}) {
        seams.prompts.expect(PromptKind::Input, u"Enter Pupil Name:"_s, name);
        if (!refusal.isEmpty())
            seams.prompts.expect(PromptKind::Plain, refusal, AnswerOk);
        return Add_New_Pupil(database, code, seams.prompts);
    }
    QStringList rows(const QString& sql) { return rowsOf(database, sql); }

    const QString code = u"7A"_s;
    TestSeams seams;
    YearFile file;
    dao::Database database;
};

} // namespace

TEST_F(PupilsTest, APupilGetsHisRowsEverywhere) {
    database.TableDefs().Append(schemaTableDef(Table::SeatingPlan, {}, code));
    EXPECT_EQ(add(u"Zoë O'Brien"_s), 1);
    EXPECT_EQ(add(u"Mary Jane Abel"_s), 2);
    EXPECT_EQ(add({}), std::nullopt); // cancelled
    for (const QString& bad : {u"Mary"_s, u" Mary"_s, u"Mary "_s})
        EXPECT_FALSE(add(bad, u"Invalid Name:"_s));
    EXPECT_TRUE(add(u"Mary Jane "_s)); // the blank at the end belongs to the surname
    EXPECT_FALSE(add(u"Ann "_s + QString(21, u'x'), u"Enter Pupil Name:"_s)); // too long
    EXPECT_EQ(rows(u"SELECT ID,Firstname,Surname FROM Class_7A"_s),
              (QStringList{u"1|Zoë|O'Brien"_s, u"2|Mary|Jane Abel"_s, u"3|Mary|Jane "_s}));
    for (const QString& table : {u"REG_7A"_s, u"Marks_7A"_s, u"sPlan_7A"_s})
        EXPECT_EQ(rows(u"SELECT ID FROM "_s + table), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
    EXPECT_EQ(rows(u"SELECT Caption,Width,Height,Visible FROM sPlan_7A WHERE ID = 1"_s),
              QStringList{u"Zoë\r\nO'Brien|855|600|True"_s});
    bool dontAsk = false;
    for (const PromptAnswer answer : {AnswerNo, AnswerYes}) {
        seams.prompts.expect(PromptKind::Message, u"Delete Pupil:"_s, BoxAnswer{answer, true});
        EXPECT_EQ(Delete_Pupil(database, code, 1, {}, dontAsk, seams.prompts), answer == AnswerYes);
        EXPECT_EQ(dontAsk, answer == AnswerYes) << "a no is no leave for all that follows";
    }
    EXPECT_TRUE(Delete_Pupil(database, code, 2, {}, dontAsk, seams.prompts));
    EXPECT_EQ(rows(u"SELECT ID FROM REG_7A"_s).size(), 1);
}

TEST_F(PupilsTest, OneOfTwoOfTheSameNameLeaves) {
    addPupils(database, code, {u"O'Brien,Zoë"_s, u"O'Brien,Zoë"_s});
    storeLessonNote(database, {u"09/09/24"_s, code, 2}, u"late"_s);
    bool dontAsk = false;
    seams.prompts.expect(PromptKind::Message, u"Delete Pupil:"_s, AnswerYes);
    EXPECT_TRUE(Delete_Pupil(database, code, 2, {u"O'Brien"_s, u"Zoë"_s}, dontAsk, seams.prompts));
    EXPECT_TRUE(seams.prompts.last().text.contains(u"remove Zoë O'Brien from this class?"_s));
    EXPECT_FALSE(dontAsk);
    for (const QString& table : {u"Class_7A"_s, u"REG_7A"_s, u"Marks_7A"_s})
        EXPECT_EQ(rows(u"SELECT ID FROM "_s + table), QStringList{u"1"_s});
    EXPECT_EQ(add(u"Zoë O'Brien"_s), 3); // nobody gets the notes of the one who left
    EXPECT_EQ(rows(u"SELECT Lpupil FROM Lesson_Notes"_s), QStringList{u"2"_s});
}

TEST_F(PupilsTest, AFullDiskLeavesNobodyHalfInTheClass) {
    addPupils(database, code, {u"Ames,Ann"_s});
    bool dontAsk = true;
    const auto everywhere = [this] {
        QStringList ids;
        for (const QString& table : {u"Class_7A"_s, u"REG_7A"_s, u"Marks_7A"_s})
            ids += rows(u"SELECT ID FROM "_s + table).join(u' ');
        return ids;
    };
    {
        const FileSizeLimit fullDisk(1000);
        EXPECT_FALSE(add(u"Ed Cole"_s, u"Enter Pupil Name:"_s));
        seams.prompts.expect(PromptKind::Plain, u"Delete Pupil:"_s, AnswerOk);
        EXPECT_FALSE(Delete_Pupil(database, code, 1, {}, dontAsk, seams.prompts));
    }
    EXPECT_EQ(everywhere(), (QStringList{u"1"_s, u"1"_s, u"1"_s}));
    EXPECT_TRUE(add(u"Ed Cole"_s));
    EXPECT_EQ(everywhere().removeDuplicates(), 2);
}

TEST_F(PupilsTest, LessonNotesAreByClassPupilAndDay) {
    const LessonNotePlace place{u"09/09/24"_s, u"7A"_s, 1};
    LessonNotePlace otherClass = place;
    otherClass.classCode = u"9C"_s;
    EXPECT_EQ(lessonNote(database, place), QString());
    storeLessonNote(database, place, {}); // nothing to keep
    storeLessonNote(database, place, u"Ann's bus was late"_s);
    storeLessonNote(database, otherClass, u"other"_s);
    EXPECT_EQ(lessonNote(database, place), u"Ann's bus was late"_s);
    storeLessonNote(database, place, u"early"_s);
    EXPECT_EQ(rows(u"SELECT Lnotes FROM Lesson_Notes ORDER BY Lcode"_s),
              (QStringList{u"early"_s, u"other"_s}));
    storeLessonNote(database, place, {});
    EXPECT_EQ(rows(u"SELECT Lnotes FROM Lesson_Notes"_s), QStringList{u"other"_s});
}
