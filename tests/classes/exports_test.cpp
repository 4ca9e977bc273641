// Class data as workbooks: what the writers put where, and what is asked around them.

#include "classes/class_export_commands.h"
#include "classes/class_exports.h"
#include "classes/class_views.h"
#include "classes/grade_columns.h"
#include "classes/pupil_notes.h"
#include "classes/pupil_sheet.h"
#include "classes/register_columns.h"
#include "office/spreadsheet.h"
#include "support/class_file.h"
#include "support/workbook_cells.h"
#include "support/year_session.h"

namespace {

/// 7A is taught on Friday the 6th, twice on Monday the 9th, and on Friday the 13th of September in
/// the first term; twice on Monday the 23rd and on Friday the 27th in the second one.
class ExportsTest : public YearSession {
protected:
    ExportsTest() {
        openYear(oneWeekAnswers());
        addPupils(session.CurrentDB, code, {u"O'Brien,Zoë"_s, u"Ames,Ann"_s});
    }

    PupilSheet records(const QString& source) { return {session.CurrentDB, source}; }
    PupilSheet registerRecords() { return records(registerSource(code, {})); }
    PupilSheet gradesRecords() { return records(gradesSource(code, {})); }
    QList<QStringList> rowsOfFile(const QString& name, int sheet = 0) {
        return readWorkbook(path(name)).value(sheet).rows;
    }
    ExportTarget target(const QString& name = u"a.xls"_s) { return {path(name), seams.seams()}; }
    void chooseFile(const QString& name) {
        seams.prompts.expect(PromptKind::File, u" Save the Excel file as:"_s, path(name));
    }
    void expectView(PromptKind kind, PromptReply reply) {
        seams.prompts.expect(kind, u"Export Complete"_s, std::move(reply));
    }

    const QString code = u"7A"_s;
};

} // namespace

TEST_F(ExportsTest, ARegisterHasASheetATermWithItsLessonsAndMonths) {
    put(u"SELECT * FROM REG_7A WHERE ID = 1"_s, u"09/09/24 3"_s, u"O"_s);
    put(u"SELECT * FROM REG_7A WHERE ID = 2"_s, u"27/09/24 7"_s, u"5"_s);
    const QStringList names{u"Surname"_s, u"Firstname"_s, u"Tutor"_s};
    seams.progress.steps.clear();
    ASSERT_TRUE(exportRegister(session.CurrentDB, registerRecords(), code, target()));
    QList<ReadSheet> sheets = readWorkbook(path(u"a.xls"_s));
    ASSERT_EQ(sheets.size(), 2);
    EXPECT_EQ(sheets[0].name, u"Term(1)"_s);
    EXPECT_EQ(sheets[0].rows,
              (QList<QStringList>{{{}, {}, {}, u"September"_s, {}, {}, {}},
                                  names + QStringList{u"06"_s, u"09"_s, u"09"_s, u"13"_s},
                                  {u"Ames"_s, u"Ann"_s, {}, {}, {}, {}, {}},
                                  {u"O'Brien"_s, u"Zoë"_s, {}, {}, {}, u"O"_s, {}}}));
    EXPECT_EQ(sheets[1].name, u"Term(2)"_s);
    EXPECT_EQ(sheets[1].rows[0][3], u"September"_s) << "a month of two terms is on both sheets";
    EXPECT_EQ(sheets[1].rows[1], names + QStringList({u"23"_s, u"23"_s, u"27"_s}));
    EXPECT_EQ(sheets[1].rows[2][5], u"#5"_s) << "a number is one";
    EXPECT_EQ(seams.progress.title, u"Exporting to Excel:"_s);
    EXPECT_FALSE(seams.progress.isOpen);
    EXPECT_EQ(seams.progress.steps.first().line1, u"Exporting Column Headers"_s);
    EXPECT_EQ(seams.progress.steps.last().percent, 100);

    // The first term has no lesson, and those of the 23rd lie in none.
    put(u"SELECT * FROM TermDates WHERE Term = 2"_s, u"Day"_s, 5);
    put(u"SELECT * FROM TermDates WHERE Term = 3"_s, u"Day"_s, 24);
    ASSERT_TRUE(exportRegister(session.CurrentDB, registerRecords(), code, target()));
    sheets = readWorkbook(path(u"a.xls"_s));
    EXPECT_EQ(sheets[0].rows[1], names);
    EXPECT_EQ(sheets[1].rows[1], names + QStringList(u"27"_s));
}

TEST_F(ExportsTest, ARegisterOf250LessonsFitsAndOneOf254NeedsTheLargerFormat) {
    put(u"SELECT * FROM TermDates WHERE Term = 2"_s, u"Year"_s, 2025);
    const auto addLessons = [this](int first, int last) {
        for (int number = first; number <= last; ++number)
            session.CurrentDB.TableDefs()[registerTable(code)].Fields().Append(
                registerField({QDate(2024, 9, 14).addDays(number), number}));
    };
    addLessons(8, 250);
    ASSERT_TRUE(exportRegister(session.CurrentDB, registerRecords(), code, target()));
    EXPECT_EQ(rowsOfFile(u"a.xls"_s)[1].size(), 3 + 250);
    addLessons(251, 254);
    seams.prompts.expect(PromptKind::Plain, u"Save Register in Excel"_s, AnswerOk);
    EXPECT_FALSE(exportRegister(session.CurrentDB, registerRecords(), code, target(u"b.xls"_s)));
    EXPECT_TRUE(seams.prompts.last().text.endsWith(u"\nError number: 3190"_s));
    EXPECT_FALSE(QFile::exists(path(u"b.xls"_s)));
    EXPECT_TRUE(exportRegister(session.CurrentDB, registerRecords(), code, target(u"b.xlsx"_s)));
}

TEST_F(ExportsTest, GradesThatShowAreExportedAndNumbersAreNumbers) {
    for (const QString& title : {u"Test"_s, u"Hidden"_s, u"Essay"_s})
        addGradeColumn(session.CurrentDB, code, {title, dao::DataType::Text, 50, {}},
                       seams.prompts);
    addGradeColumn(session.CurrentDB, code, {u"Mean"_s, dao::DataType::Single, 4, {}},
                   seams.prompts);
    const QString marks = u"SELECT * FROM Marks_7A WHERE ID = %1"_s;
    put(marks.arg(1), u"Test"_s, u"17.5"_s);
    put(marks.arg(2), u"Test"_s, u"007"_s);
    put(marks.arg(1), u"Essay"_s, u"=1+1"_s);
    put(marks.arg(2), u"Essay"_s, u"B+"_s);
    put(marks.arg(2), u"Mean"_s, 0.1);
    const PupilSheet sheet = gradesRecords();
    const int hidden = sheet.columnOf(u"Hidden");
    ASSERT_TRUE(exportGrades(
        sheet, [=](int column) { return column != hidden; }, target()));
    EXPECT_EQ(rowsOfFile(u"a.xls"_s),
              (QList<QStringList>{
                  {u"Surname"_s, u"Firstname"_s, u"Tutor"_s, u"Test"_s, u"Essay"_s, u"Mean"_s},
                  {u"Ames"_s, u"Ann"_s, {}, u"007"_s, u"B+"_s, u"#0.1"_s},
                  {u"O'Brien"_s, u"Zoë"_s, {}, u"#17.5"_s, u"=1+1"_s, {}}}));
}

TEST_F(ExportsTest, DetailsAreAskedForAndExported) {
    put(u"SELECT * FROM Class_7A WHERE ID = 1"_s, u"Tel1"_s, u"01632 960110"_s);
    const QString title = u"Export 7A items to Excel:"_s;
    seams.prompts.expect(PromptKind::Selector, title, QStringList{u"Gender."_s, u"Telephone"_s});
    chooseFile(u"list"_s);
    expectView(PromptKind::Message, BoxAnswer{AnswerNo, true});
    Export_to_Excel(session, code);
    EXPECT_EQ(rowsOfFile(u"list.xls"_s),
              (QList<QStringList>{{u"Surname"_s, u"Firstname"_s, u"Sex"_s, u"Tel1"_s, u"Tel2"_s},
                                  {u"O'Brien"_s, u"Zoë"_s, {}, u"01632 960110"_s, {}},
                                  {u"Ames"_s, u"Ann"_s, {}, {}, {}}}));
    EXPECT_TRUE(seams.shell.runs.isEmpty());

    seams.prompts.expect(PromptKind::Selector, title, QStringList());
    chooseFile(u"LIST.XLS"_s);
    Export_to_Excel(session, code); // not asked any more, it is opened
    EXPECT_EQ(rowsOfFile(u"LIST.XLS"_s)[0], (QStringList{u"Surname"_s, u"Firstname"_s}));
    ASSERT_EQ(seams.shell.runs.size(), 1);
    EXPECT_EQ(seams.shell.runs[0].verb, u"open"_s);
    EXPECT_EQ(seams.shell.runs[0].file, path(u"LIST.XLS"_s));

    seams.prompts.expect(PromptKind::Selector, title);
    Export_to_Excel(session, code); // called off
    seams.prompts.expect(PromptKind::Selector, title, QStringList());
    chooseFile(u"list.xls"_s);
    seams.prompts.expect(PromptKind::Message, u"File Exist"_s, BoxAnswer{AnswerNo});
    Export_to_Excel(session, code);
    EXPECT_EQ(rowsOfFile(u"list.xls"_s)[0].size(), 5) << "the old file stands";
}

TEST_F(ExportsTest, NotesAreExportedAsPlainText) {
    for (const QString& title : {u"Report"_s, u"Target"_s})
        addNotesCategory(session.CurrentDB, code, title, seams.prompts);
    put(u"SELECT * FROM Class_7A WHERE ID = 1"_s, u"NTS_Report"_s,
        u"{\\rtf1\\ansi {\\b Effort:} good\\par Caf\\'e9\\par }"_s);
    const PupilSheet pupils = records(pupilsSource(code, {}));
    seams.prompts.expect(PromptKind::Plain, u"Abort Export"_s, AnswerOk);
    NotesTOExcel(session, code, pupils, {});
    chooseFile(u"a.xls"_s);
    expectView(PromptKind::Message, BoxAnswer{AnswerYes});
    NotesTOExcel(session, code, pupils, {u"Report"_s});
    EXPECT_EQ(rowsOfFile(u"a.xls"_s),
              (QList<QStringList>{{u"Surname"_s, u"Forename"_s, u"Report"_s},
                                  {u"Ames"_s, u"Ann"_s, {}},
                                  {u"O'Brien"_s, u"Zoë"_s, u"Effort: good\nCafé"_s}}));
    EXPECT_EQ(seams.shell.runs.size(), 1);
}

TEST_F(ExportsTest, LessonNotesHaveRealDates) {
    seams.prompts.expect(PromptKind::Plain, u"No records found"_s, AnswerOk);
    exportNotesOfPupil(session, code, 1, u"Zoë O'Brien"_s);
    EXPECT_EQ(seams.prompts.last().text, u"There are no lesson notes for Zoë O'Brien"_s);
    storeLessonNote(session.CurrentDB, {u"09/09/24"_s, code, 1}, u"Helped"_s);
    storeLessonNote(session.CurrentDB, {u"13/09/24"_s, code, 1}, u"Left"_s);
    storeLessonNote(session.CurrentDB, {u"06/09/24"_s, code, 1}, u"Late"_s);
    storeLessonNote(session.CurrentDB, {u"09/09/24"_s, code, 2}, u"another's"_s);
    chooseFile(u"a.xls"_s);
    expectView(PromptKind::Plain, AnswerYes);
    exportNotesOfPupil(session, code, 1, u"Zoë O'Brien"_s);
    const QList<ReadSheet> sheets = readWorkbook(path(u"a.xls"_s));
    ASSERT_EQ(sheets.size(), 1);
    EXPECT_EQ(sheets[0].name, u"Lesson Notes"_s);
    EXPECT_EQ(sheets[0].rows, (QList<QStringList>{{u"Lesson Notes for Zoë O'Brien"_s, {}},
                                                  {u"lesson Date"_s, u"lesson Notes"_s},
                                                  {u"@2024-09-09"_s, u"Helped"_s},
                                                  {u"@2024-09-13"_s, u"Left"_s},
                                                  {u"@2024-09-06"_s, u"Late"_s}}))
        << "in the order of the file";
    EXPECT_EQ(seams.prompts.last().text,
              u"The pupil lesson notes have been exported and saved to the Excel file : "_s +
                  path(u"a.xls"_s) + u"\n\nWould you like to view this file?"_s);
    EXPECT_EQ(seams.shell.runs.size(), 1);

    storeLessonNote(session.CurrentDB, {u"06/09/24"_s, code, 1}, QString(32768, u'x'));
    chooseFile(u"b.xls"_s);
    seams.prompts.expect(PromptKind::Plain, u"Text too long"_s, AnswerOk);
    expectView(PromptKind::Plain, AnswerNo);
    exportNotesOfPupil(session, code, 1, u"Zoë O'Brien"_s);
    const QList<SeenPrompt>& seen = seams.prompts.seen();
    EXPECT_TRUE(seen[seen.size() - 2].text.endsWith(u"\n\nLesson Notes: B5"_s));
}

/// Whatever is exported can be taken in again, the same from both formats.
TEST_F(ExportsTest, TheProgramReadsWhatItExported) {
    addGradeColumn(session.CurrentDB, code, {u"Test"_s, dao::DataType::Text, 50, {}},
                   seams.prompts);
    put(u"SELECT * FROM Marks_7A WHERE ID = 1"_s, u"Test"_s, u"17.5"_s);
    put(u"SELECT * FROM REG_7A WHERE ID = 1"_s, u"09/09/24 3"_s, u"O"_s);
    storeLessonNote(session.CurrentDB, {u"09/09/24"_s, code, 1}, u"Helped\nus"_s);
    const PupilSheet details = records(detailsSource(session.CurrentDB, code, {0, 2}));
    const PupilSheet grades = gradesRecords();
    const PupilSheet lessons = registerRecords();
    const QString date = QLocale().toString(QDate(2024, 9, 9), QLocale::ShortFormat);
    struct {
        std::function<bool(const ExportTarget&)> write;
        int row; ///< one of the file's
        QStringList read;
    } const cases[] = {
        {[&](const ExportTarget& file) { return exportClassDetails(details, file); },
         1,
         {u"O'Brien"_s, u"Zoë"_s}},
        {[&](const ExportTarget& file) {
             return exportNotesTable({{u"Surname"_s, u"Report"_s}, {u"Ames"_s, u"a\nb"_s}}, file);
         },
         1,
         {u"Ames"_s, u"a\nb"_s}},
        {[&](const ExportTarget& file) {
             return exportGrades(
                 grades, [](int) { return true; }, file);
         },
         2,
         {u"O'Brien"_s, u"Zoë"_s, {}, u"17.5"_s}},
        {[&](const ExportTarget& file) {
             return exportLessonNotes(session.CurrentDB.OpenRecordset(lessonNotesSource(code, 1)),
                                      u"Zoë"_s, file);
         },
         2,
         {date, u"Helped\nus"_s}},
        {[&](const ExportTarget& file) {
             return exportRegister(session.CurrentDB, lessons, code, file);
         },
         3,
         {u"O'Brien"_s, u"Zoë"_s, {}, {}, {}, u"O"_s}},
    };
    for (const auto& each : cases) {
        for (const QString& name : {u"a.xls"_s, u"a.xlsx"_s}) {
            ASSERT_TRUE(each.write(target(name)));
            const auto sheet = Spreadsheet::read(path(name));
            ASSERT_TRUE(sheet) << name.toStdString();
            QStringList row;
            for (int column = 0; column < each.read.size(); ++column)
                row += sheet->cell(each.row, column);
            EXPECT_EQ(row, each.read) << name.toStdString();
        }
    }
}

/// The views of a grid ask in three ways what to do with a file that is there.
TEST_F(ExportsTest, AViewGoesToANewFileOrOpensAnOldOne) {
    struct {
        QString typed;
        QString file;
        int existing; ///< what is answered where it is there; 0: it is not
        bool isWritten;
        bool isOpened;
    } const cases[] = {
        {u"a"_s, u"a.xls"_s, 0, true, true},
        {u"a.XLS"_s, u"a.XLS.xls"_s, 0, true, true},
        {u"a.xlsx"_s, u"a.xlsx"_s, 0, true, true},
        {{}, u"b.xls"_s, 0, false, false},
        {u"b"_s, u"b.xls"_s, AnswerYes, true, true},
        {u"b.xls"_s, u"b.xls"_s, AnswerNo, false, true},
        {u"b.xls"_s, u"b.xls"_s, AnswerCancel, false, false},
    };
    for (const bool isRegister : {true, false}) {
        for (const auto& each : cases) {
            QFile::remove(path(each.file));
            if (each.existing)
                writeFile(path(each.file), "old");
            seams.shell.runs.clear();
            seams.prompts.expect(PromptKind::File, u" Save the Excel file as:"_s,
                                 each.typed.isEmpty() ? PromptReply() : path(each.typed));
            if (each.existing)
                seams.prompts.expect(PromptKind::Plain, u"File exists"_s, each.existing);
            if (each.isWritten)
                expectView(PromptKind::Plain, AnswerYes);
            if (isRegister)
                exportRegisterView(session, code, registerRecords());
            else
                exportGradesView(session, gradesRecords(), [](int) { return true; });
            EXPECT_EQ(seams.shell.runs.size(), each.isOpened) << each.typed.toStdString();
            const QByteArray bytes = bytesOf(path(each.file));
            EXPECT_EQ(bytes.size() > 3, each.isWritten) << each.typed.toStdString();
            if (each.existing && !each.isWritten)
                EXPECT_EQ(bytes, "old");
        }
    }
    const SeenPrompt asked =
        *std::find_if(seams.prompts.seen().begin(), seams.prompts.seen().end(),
                      [](const SeenPrompt& prompt) { return prompt.title == u"File exists"_s; });
    EXPECT_TRUE(asked.text.endsWith(u"\n\nDo you wish to overwrite this file?\n\nSelecting 'NO' "
                                    "will open the currently existing file."_s));
}

TEST_F(ExportsTest, AFailureIsToldAndTheOldFileStands) {
    writeFile(path(u"a.xls"_s), "old");
    chooseFile(u"a.xls"_s);
    seams.prompts.expect(PromptKind::Plain, u"File exists"_s, AnswerYes);
    seams.prompts.expect(PromptKind::Plain, u"Save grades in excel"_s, AnswerOk);
    {
        const FileSizeLimit disk(1024);
        exportGradesView(session, gradesRecords(), [](int) { return true; });
    }
    EXPECT_TRUE(seams.prompts.last().text.endsWith(u"\nError number: 3182"_s));
    EXPECT_EQ(bytesOf(path(u"a.xls"_s)), "old");
    chooseFile(u"none/a.xls"_s);
    seams.prompts.expect(PromptKind::Plain, u"Save Register in Excel"_s, AnswerOk);
    exportRegisterView(session, code, registerRecords());
    EXPECT_FALSE(seams.progress.isOpen);
    EXPECT_EQ(QDir(path({})).entryList({u"*unfinished*"_s}, QDir::Files | QDir::Hidden),
              QStringList());
}
