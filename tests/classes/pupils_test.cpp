// Pupils: how they come into a class, their photos from files, and the notes on their lessons.

#include "classes/class_photos.h"
#include "classes/class_removal.h"
#include "classes/pupil_notes.h"
#include "classes/pupil_photo.h"
#include "classes/pupils.h"
#include "store/schema.h"
#include "support/class_file.h"

#include <QBuffer>
#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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
    QTemporaryDir folder;
};

QImage coloured(const QColor& colour, const QSize& size = {10, 10}) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

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
    seams.prompts.expect(PromptKind::Message, u"Delete Pupil:"_s, AnswerNo + CheckBoxTicked);
    EXPECT_FALSE(Delete_Pupil(database, code, 1, {}, dontAsk, seams.prompts));
    EXPECT_TRUE(dontAsk);
    EXPECT_TRUE(Delete_Pupil(database, code, 1, {}, dontAsk, seams.prompts));
    EXPECT_EQ(rows(u"SELECT ID FROM REG_7A"_s).size(), 2);
}

TEST_F(PupilsTest, PhotosComeFromTheFilesThatAColumnNames) {
    addPupils(database, code, {u"Ames,Ann"_s, u"Brown,Bea"_s, u"Cole,Ed"_s, u"Dodd,Di"_s});
    database.TableDefs()[u"Marks_7A"].Fields().Append(
        dao::TableDef::CreateField(u"File"_s, dao::DataType::Text, 50));
    dao::Recordset marks = database.OpenRecordset(u"Marks_7A"_s);
    for (const QString& name : {u"ann"_s, u"../secret"_s, u"ED"_s}) {
        marks.Edit();
        marks.SetCollect(u"File", name);
        marks.Update();
        marks.MoveNext();
    }
    marks.Close();
    const QString place = folder.filePath(u"photos"_s);
    QDir().mkpath(place);
    coloured(Qt::red).save(place + u"/Ann.BMP"_s, "BMP");
    coloured(Qt::green).save(place + u"/ann.png"_s);
    coloured(Qt::blue).save(place + u"/ed.png"_s);
    coloured(Qt::black).save(folder.filePath(u"secret.bmp"_s));
    seams.prompts.expect(PromptKind::Selector, u"Grade column titles for 7A"_s, u"File"_s);
    seams.prompts.expect(PromptKind::Folder,
                         u"Select the folder where the picture files are located:"_s, place);
    seams.prompts.expect(PromptKind::Plain, u"Picture Import Complete"_s, AnswerOk);
    EXPECT_TRUE(Load_Photo_files_from_folder(database, code, seams.prompts));
    EXPECT_TRUE(seams.prompts.last().text.startsWith(u"1 files"_s));
    EXPECT_EQ(seams.prompts.selectors().last().items, (QStringList{u"ID"_s, u"File"_s}));
    EXPECT_EQ(pupilPhoto(database, code, 1).pixelColor(3, 3), QColor(Qt::red));
    EXPECT_TRUE(pupilPhoto(database, code, 2).isNull());
    EXPECT_EQ(pupilPhoto(database, code, 3).pixelColor(3, 3), QColor(Qt::blue));
}

TEST_F(PupilsTest, APhotoIsAnOrdinaryBitmap) {
    addPupils(database, code, {u"Ames,Ann"_s});
    EXPECT_EQ(toPhoto(coloured(Qt::red)).size(), StandardPhoto);
    EXPECT_EQ(toPhoto(coloured(Qt::red, {1200, 1600})).size(), StandardPhoto * 2);
    ValidatePicture(database, code, 1, coloured(Qt::red));
    dao::Recordset record = database.OpenRecordset(u"SELECT Photo FROM Class_7A"_s);
    EXPECT_TRUE(record.Collect(u"Photo").toBinary().startsWith("BM"));
    record.Close();
    seams.prompts.expect(PromptKind::Plain, u"Delete Photo"_s, AnswerYes);
    EXPECT_TRUE(removePhoto(database, code, 1, seams.prompts));
    record = database.OpenRecordset(u"SELECT Photo FROM Class_7A"_s);
    EXPECT_EQ(record.Fields(u"Photo").FieldSize(), 0);
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
