// Class lists and grades from the clipboard, spreadsheets and other years.

#include "classes/class_list_import.h"
#include "classes/grade_import.h"
#include "store/engine/names.h"
#include "support/class_file.h"
#include "support/engine_places.h"
#include "support/year_session.h"

namespace {

class ImportTest : public YearSession {
protected:
    void SetUp() override { openYear(twoWeekAnswers()); }

    QString sheet(const QByteArray& text) { return writeFile(path(u"sheet.csv"_s), text); }
    QStringList pupils(const QString& code = u"7A"_s) {
        return rowsOf(session.CurrentDB,
                      u"SELECT Surname,Firstname,Tutor FROM Class_%1 ORDER BY ID"_s.arg(code));
    }
    QStringList titles() { return fieldNames(session.CurrentDB, u"Marks_7A"_s).mid(1); }
    QStringList grades(const QString& title) {
        return rowsOf(session.CurrentDB,
                      u"SELECT %1 FROM Marks_7A ORDER BY ID"_s.arg(dao::writeName(title)));
    }
    void addColumn(const QString& title, dao::DataType type, int size = 0) {
        dao::Field field = dao::TableDef::CreateField(title, type, size);
        field.AllowZeroLength = dao::isTextual(type);
        session.CurrentDB.TableDefs()[u"Marks_7A"_s].Fields().Append(field);
    }
    std::optional<QStringList> importMarks(const QByteArray& text, const QString& box = {}) {
        if (!box.isEmpty())
            seams.prompts.expect(PromptKind::Plain, box, AnswerOk);
        return ImportExcelSheet(session.CurrentDB, code, {sheet(text), usualExcelSheetChoice()},
                                seams.prompts);
    }
    std::optional<int> importInto(const QString& field, const QByteArray& text,
                                  const QString& box = {}) {
        if (!box.isEmpty())
            seams.prompts.expect(PromptKind::Plain, box, AnswerOk);
        return importSelectedColumn(session.CurrentDB, code, field,
                                    {sheet(text), usualSelectedColumnChoice()}, seams.prompts);
    }

    const QString code = u"7A"_s;
};

} // namespace

TEST_F(ImportTest, AClassListComesFromASheet) {
    const QString file = test::testData(u"spreadsheets/class_list.xls"_s);
    seams.prompts.expect(PromptKind::File,
                         u"Please select the file that contains your class list:"_s, file);
    seams.prompts.expect(PromptKind::Selector, u"Importing from Excel"_s, usualListChoice());
    EXPECT_EQ(Paste_Classlist(session, code, {}), 5); // nothing in the clipboard
    EXPECT_EQ(pupils().mid(0, 3),
              (QStringList{u"Abbott|Leah|10T"_s, u"O'brien|Zoë|10K"_s, u"Castellano|Marco|10T"_s}));
    for (const QString& table : {u"REG_7A"_s, u"Marks_7A"_s})
        EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT ID FROM "_s + table).size(), 5);
    // Again, by other columns: they double. An empty row ends it, and a long name is cut.
    const SpreadsheetChoice choice{1, {u"b"_s, u"A"_s, {}}};
    seams.prompts.expect(PromptKind::Plain, u"Import Class List"_s, AnswerOk);
    EXPECT_EQ(importListFromSheet(
                  session.CurrentDB, code,
                  {sheet("Zo\xC3\xAB,ABBOTT\n,featherstonehaugh-cholmondeley\n\nEd,Cole"), choice},
                  seams.prompts),
              2);
    EXPECT_TRUE(seams.prompts.last().text.endsWith(u": 2"_s));
    EXPECT_EQ(pupils().mid(5), (QStringList{u"Abbott|Zoë|~"_s, u"Featherstonehaugh-ch|~|~"_s}));
    seams.prompts.expect(PromptKind::Plain, u"Import Error"_s, AnswerOk);
    EXPECT_FALSE(
        importListFromSheet(session.CurrentDB, code, {path(u"none.xls"_s), choice}, seams.prompts));
    EXPECT_EQ(seams.prompts.last().text, u"Can't open "_s + path(u"none.xls"_s));
}

TEST_F(ImportTest, TheClipboardIsPastedOrAFileIsOffered) {
    const QString title = u"Import Class List"_s;
    seams.prompts.expect(PromptKind::Message, title, AnswerYes);
    seams.prompts.expect(PromptKind::Message, u"Invalid Clipboard data"_s, AnswerNo);
    EXPECT_EQ(Paste_Classlist(session, code, u"Ames Ann\nCole Ed"_s), 0);
    seams.prompts.expect(PromptKind::Message, title, AnswerYes);
    seams.prompts.expect(PromptKind::Plain, title, AnswerOk); // the second tutor is too long
    EXPECT_EQ(Paste_Classlist(session, code,
                              u"AMES\tAnn\r\nO'Brien\tZoë\t10K\tand more\n\tNobody\nCole\t\tx\n"
                              "Dale\tDi\t7T"_s),
              3);
    EXPECT_TRUE(seams.prompts.last().text.endsWith(u": 2"_s));
    EXPECT_EQ(pupils(),
              (QStringList{u"AMES|Ann|~"_s, u"O'Brien|Zoë|10K\tand mo"_s, u"Dale|Di|7T"_s}));
    seams.prompts.expect(PromptKind::Message, title, AnswerNo);
    seams.prompts.expect(PromptKind::File,
                         u"Please select the file that contains your class list:"_s,
                         path(u"list.doc"_s)); // no kind that is known
    EXPECT_EQ(Paste_Classlist(session, code, u"Ames\tAnn"_s), 0);
}

TEST_F(ImportTest, AClassListComesFromAnotherYearInStep) {
    createYear(oneWeekAnswers(), path(u"other.mdb"_s), seams);
    {
        const dao::Database other = engine.OpenDatabase(path(u"other.mdb"_s));
        addPupils(other, code, {u"O'Brien,Zoë"_s, u"Ames"_s});
        changeRecord(other, u"Class_7A"_s, u"Email"_s, u"zoe@example.org"_s);
        changeRecord(other, u"Class_7A"_s, u"Photo"_s, QByteArray("\0picture", 8));
        other.TableDefs()[u"Class_7A"_s].Fields().SetOrdinalPosition(u"Tel1", 14);
        changeRecord(other, u"Class_7A"_s, u"Tel1"_s, u"123"_s);
        changeRecord(other, u"Class_7A"_s, u"Tutor"_s, u"10K"_s);
    }
    seams.prompts.expect(PromptKind::File,
                         u"Please select the file that contains your class list:"_s,
                         path(u"other.mdb"_s));
    seams.prompts.expect(PromptKind::Selector, u"Classes in other.mdb"_s, u"7A"_s);
    EXPECT_EQ(Import_ClassList(session, code), 2);
    // Behind the field that has moved all others are out of step, but for those in front of it.
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT Surname,Tutor,Tel1,Email FROM Class_7A"_s),
              (QStringList{u"O'Brien|10K|~|~"_s, u"Ames|~|~|~"_s}));
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT ID FROM REG_7A"_s).size(), 2);
    // A class may come from the file that is open.
    EXPECT_EQ(importListFromYear(session.CurrentDB, u"9C"_s,
                                 engine.OpenDatabase(path(), false, true), code, seams.prompts),
              2);
    EXPECT_EQ(pupils(u"9C"_s), pupils());
}

TEST_F(ImportTest, MarksFindTheirPupils) {
    addPupils(
        session.CurrentDB, code,
        {u"O'Brien,Zoë"_s, u"Cole,Ed"_s, u"Cole,Ed"_s, u"Ames"_s, u"Featherstonehaugh-ch,Di"_s});
    addColumn(u"Essay"_s, dao::DataType::Memo);
    const QByteArray text = "SURNAME,Firstname,essay,Test 1,Tutor,\"2, oral\",,Never\n"
                            "cole,ED,x,10,10T,7.5,,9\n"
                            "Nobody,Here,x,1,1,1\n"
                            "o'brien,Zoe\xCC\x88,x,,10K,Absent\n" // decomposed
                            "ames,,x,3\n"
                            "Featherstonehaugh-Cholmondeley,Di,x,4\n"
                            "\nAmes,,x,5\n";
    EXPECT_EQ(importMarks(text), (QStringList{u"Test 1"_s, u"2, oral"_s}));
    EXPECT_EQ(titles(), (QStringList{u"Essay"_s, u"Test 1"_s, u"2, oral"_s}));
    EXPECT_EQ(grades(u"Test 1"_s), (QStringList{{}, u"10"_s, u"~"_s, u"3"_s, u"4"_s}));
    EXPECT_EQ(grades(u"2, oral"_s), (QStringList{u"Absent"_s, u"7.5"_s, u"~"_s, {}, {}}));
    EXPECT_EQ(grades(u"Essay"_s).count(u"~"_s), 5);
    const QByteArray tooLong = "S,F,Long\ncole,ed," + QByteArray(300, 'x');
    EXPECT_TRUE(importMarks(tooLong, u"Import Data"_s));
    EXPECT_EQ(grades(u"Long"_s).at(1).size(), 255);
    EXPECT_TRUE(seams.prompts.last().text.endsWith(u": 2"_s));
}

TEST_F(ImportTest, TitlesThatAreNoneRefuseTheWholeSheet) {
    addPupils(session.CurrentDB, code, {u"Cole,Ed"_s});
    const QString box = u"Import Data Error - Excel Sheet"_s;
    struct {
        QByteArray titles;
        QString named;
        QString number;
    } const cases[] = {
        {"Good,bad.", u"\"bad.\""_s, u"3125"_s},
        {"Good, blank", u"\" blank\""_s, u"3125"_s},
        {"Good," + QByteArray(65, 'x'), QString(65, u'x'), u"3125"_s},
        {"Test,Other,TEST", u"\"TEST\""_s, u"3191"_s},
        {"Caf\xC3\xA9,Cafe\xCC\x81", u"more than once"_s, u"3191"_s},
    };
    for (const auto& each : cases) {
        EXPECT_FALSE(importMarks("S,F," + each.titles + "\nCole,Ed,1,2,3\n", box));
        const QString text = seams.prompts.last().text;
        EXPECT_TRUE(text.contains(each.named)) << qPrintable(text);
        EXPECT_TRUE(text.endsWith(u"Error number: "_s + each.number)) << qPrintable(text);
        EXPECT_EQ(titles(), QStringList());
    }
    for (int column = 1; column <= 253; ++column)
        addColumn(u"c%1"_s.arg(column), dao::DataType::Byte);
    EXPECT_FALSE(importMarks("S,F,one,two\nCole,Ed,1,2\n", box));
    EXPECT_EQ(titles().size(), 253);
    EXPECT_TRUE(importMarks("S,F,one\nCole,Ed,1\n"));
}

TEST_F(ImportTest, OneColumnIsOverwrittenOrLeftAlone) {
    addPupils(session.CurrentDB, code, {u"Cole,Ed"_s, u"Ames,Ann"_s, u"Dale,Di"_s});
    addColumn(u"Marks"_s, dao::DataType::Integer);
    addColumn(u"Word"_s, dao::DataType::Text, 3);
    const QByteArray head = "Surname,Firstname,Mark\n";
    EXPECT_EQ(importInto(u"Marks"_s, head + "Cole,Ed,7\nDale,Di,\nAmes,Ann,9\n"), 3);
    EXPECT_EQ(grades(u"Marks"_s), (QStringList{u"7"_s, u"9"_s, u"~"_s}));
    EXPECT_FALSE(
        importInto(u"Marks"_s, head + "Cole,Ed,1\nAmes,Ann,many\n", u"Import Data Error"_s));
    EXPECT_TRUE(seams.prompts.last().text.startsWith(u"Row 3: "_s));
    EXPECT_EQ(grades(u"Marks"_s), (QStringList{u"7"_s, u"9"_s, u"~"_s}));
    addColumn(u"Mean"_s, dao::DataType::Double);
    for (const QByteArray& word : {"nan"_ba, "inf"_ba})
        EXPECT_FALSE(importInto(u"Mean"_s, head + "Cole,Ed," + word, u"Import Data Error"_s));
    EXPECT_EQ(importInto(u"Word"_s, head + "Cole,Ed,good\n", u"Import Data"_s), 1);
    EXPECT_EQ(grades(u"Word"_s).first(), u"goo"_s);
    EXPECT_EQ(importInto(u"Tutor"_s, head + "Cole,Ed,10K\n"), 1);
    EXPECT_EQ(pupils().first(), u"Cole|Ed|10K"_s);
}

TEST_F(ImportTest, GradesComeFromAnotherYear) {
    createYear(oneWeekAnswers(), path(u"other.mdb"_s), seams);
    {
        const dao::Database other = engine.OpenDatabase(path(u"other.mdb"_s));
        addPupils(other, code, {u"Nobody,Here"_s, u"COLE,Ed"_s});
        dao::FieldCollection fields = other.TableDefs()[u"Marks_7A"_s].Fields();
        fields.Append(dao::TableDef::CreateField(u"Tutor"_s, dao::DataType::Text, 5));
        fields.Append(dao::TableDef::CreateField(u"Test"_s, dao::DataType::Double));
        fields.Append(dao::TableDef::CreateField(u"ESSAY"_s, dao::DataType::Text, 50));
        dao::Recordset cole = other.OpenRecordset(u"SELECT * FROM Marks_7A WHERE ID = 2"_s);
        cole.Edit();
        cole.SetCollect(u"Test", 7.5);
        cole.SetCollect(u"ESSAY", u"good"_s);
        cole.Update();
    }
    addPupils(session.CurrentDB, code, {u"Ames,Ann"_s, u"Cole,Ed"_s});
    addColumn(u"Essay"_s, dao::DataType::Text, 10);
    changeRecord(session.CurrentDB, u"SELECT * FROM Marks_7A WHERE ID = 2"_s, u"Essay"_s,
                 u"poor"_s);
    seams.prompts.expect(PromptKind::Message, u"Import from another ORVA database."_s, AnswerYes);
    seams.prompts.expect(
        PromptKind::File,
        u"Please select the ORVA database that contains class grades you wish to import:"_s,
        path(u"other.mdb"_s));
    seams.prompts.expect(PromptKind::Selector, u"Classes in other.mdb"_s, u"7A"_s);
    const std::optional<ForeignGrades> foreign = askForeignGrades(session);
    ASSERT_TRUE(foreign);
    EXPECT_EQ(ImportFromMDB(session.CurrentDB, code, *foreign, seams.prompts),
              QStringList{u"Test"_s});
    EXPECT_EQ(grades(u"Test"_s), (QStringList{u"~"_s, u"7.5"_s}));
    EXPECT_EQ(grades(u"Essay"_s), (QStringList{u"~"_s, u"good"_s}));
    EXPECT_EQ(session.CurrentDB.TableDefs()[u"Marks_7A"_s].Fields()[u"Test"].Type,
              dao::DataType::Double);
}

TEST_F(ImportTest, AFullDiskLeavesTheClassAsItWas) {
    addPupils(session.CurrentDB, code, {u"Cole,Ed"_s});
    const QString list = sheet("Cole,Ed\nDale,Di\n");
    const QString marks =
        writeFile(path(u"marks.csv"_s), "S,F,Test\nCole,Ed," + QByteArray(200, 'x'));
    {
        const FileSizeLimit fullDisk(1000);
        seams.prompts.expect(PromptKind::Plain, u"Import Error"_s, AnswerOk);
        EXPECT_FALSE(importListFromSheet(session.CurrentDB, code, {list, {1, {u"A"_s, u"B"_s}}},
                                         seams.prompts));
        seams.prompts.expect(PromptKind::Plain, u"Import Data Error - Excel Sheet"_s, AnswerOk);
        EXPECT_FALSE(ImportExcelSheet(session.CurrentDB, code, {marks, usualExcelSheetChoice()},
                                      seams.prompts));
    }
    EXPECT_EQ(pupils(), QStringList{u"Cole|Ed|~"_s});
    EXPECT_EQ(titles(), QStringList());
}
