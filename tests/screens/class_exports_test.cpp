// The class window's ways to a spreadsheet.

#include "classes/class_exports.h"
#include "classes/grade_columns.h"
#include "classes/pupil_notes.h"
#include "controls/rich_text_box.h"
#include "support/screen_register.h"
#include "support/workbook_cells.h"

#include <QCheckBox>
#include <QPlainTextEdit>

namespace {

class ExportScreenTest : public RegisterScreenTest {
protected:
    /// Presses the toolbar's button; the file is asked for, and not to be looked at afterwards.
    QList<QStringList> exported(PromptKind viewKind, const std::function<void()>& press) {
        const QString file = path(u"a.xls"_s);
        QFile::remove(file);
        seams.prompts.expect(PromptKind::File, u" Save the Excel file as:"_s, file);
        seams.prompts.expect(viewKind, u"Export Complete"_s, AnswerNo);
        press();
        return readWorkbook(file).value(0).rows;
    }
    void pressExport() { tool(4).click(); }
    void expectDetails(PromptReply reply) {
        seams.prompts.expect(PromptKind::Selector, u"Export D items to Excel:"_s, std::move(reply));
    }
};

} // namespace

TEST_F(ExportScreenTest, TheButtonExportsTheViewThatShows) {
    addGradeColumn(session.CurrentDB, u"D"_s, {u"Test"_s, dao::DataType::Text, 50, {}},
                   seams.prompts);
    addGradeColumn(session.CurrentDB, u"D"_s, {u"Essay"_s, dao::DataType::Text, 50, {}},
                   seams.prompts);
    show();
    expectDetails({}); // the first page has the class
    pressExport();
    tool(0).click();
    clickName(0, Qt::ControlModifier);
    tool(0).click();
    const auto marks = exported(PromptKind::Plain, [this] { pressExport(); });
    ASSERT_EQ(marks.size(), 3) << "the pupil who was picked";
    EXPECT_EQ(marks[2][0], u"Ames"_s);
    tool(5).click();

    window->showView(GradesView);
    auto& grades = control<QTableView>(*window, u"GradesGrid"_s);
    grades.setFocus();
    grades.setCurrentIndex(grades.model()->index(0, PupilSheet::FirstOwnColumn));
    QTest::keyClicks(&grades, u"7"_s); // the cell is still open
    grades.setColumnHidden(PupilSheet::FirstOwnColumn + 1, true);
    const auto rows = exported(PromptKind::Plain, [this] { pressExport(); });
    ASSERT_EQ(rows.size(), 4);
    EXPECT_EQ(rows[0], (QStringList{u"Surname"_s, u"Firstname"_s, u"Tutor"_s, u"Test"_s}));
    EXPECT_EQ(rows[1][3], u"#7"_s);

    window->showView(PupilInformationView);
    QTest::keyClicks(&control<QLineEdit>(*window, u"TxtTutor"_s), u"7T"_s);
    expectDetails(QStringList{u"Tutor Groups."_s});
    EXPECT_EQ(exported(PromptKind::Message, [this] { pressExport(); })[1][2], u"7T"_s);
    QTest::keyClicks(&control<QLineEdit>(*window, u"TxtTutor"_s), u"x"_s);
    tool(0).click();
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT Tutor FROM Class_D WHERE ID = 1"_s),
              QStringList{u"7Tx"_s});
}

TEST_F(ExportScreenTest, TickedCategoriesAreExported) {
    for (const QString& title : {u"Report"_s, u"Target"_s})
        addNotesCategory(session.CurrentDB, u"D"_s, title, seams.prompts);
    show();
    window->showView(PupilNotesView);
    seams.prompts.expect(PromptKind::Plain, u"Abort Export"_s, AnswerOk);
    pressExport();
    auto& categories = control<QListWidget>(*window, u"CL5"_s);
    auto& note = *window->findChild<RichTextBox*>(u"RTFnotes"_s);
    categories.setCurrentRow(1);
    note.setFocus();
    QTest::keyClicks(&note, u"Spelling"_s);
    categories.setFocus();
    QTest::keyClick(&categories, Qt::Key_Space);
    tool(3).click();
    const auto rows = exported(PromptKind::Message, [this] { pressExport(); });
    ASSERT_EQ(rows.size(), 4);
    EXPECT_EQ(rows[0], (QStringList{u"Surname"_s, u"Forename"_s, u"Target"_s}));
    EXPECT_EQ(rows[1][2], u"Spelling"_s);
    EXPECT_EQ(note.plainText(), u"Spelling"_s);
    EXPECT_TRUE(note.isEnabled());
}

TEST_F(ExportScreenTest, TheTaskAndThePanelExport) {
    show();
    auto& tasks = control<QListWidget>(*window, u"TaskList"_s);
    tasks.setCurrentRow(tasks.count() - 1);
    tasks.setFocus();
    expectDetails(QStringList());
    EXPECT_EQ(exported(PromptKind::Message, [this] { press(*window, Qt::Key_Return); }).size(), 4);

    showRegister();
    menuItem(u"Display Panel"_s).trigger();
    control<QCheckBox>(*window, u"chkNotes"_s).click();
    auto& note = control<QPlainTextEdit>(*window, u"TxtLessonNotes"_s);
    note.setFocus();
    QTest::keyClicks(&note, u"Late bus"_s);
    auto& button = control<QToolButton>(*window, u"cmdExportNotes"_s);
    EXPECT_EQ(exported(PromptKind::Plain, [&] { button.click(); }).last(),
              (QStringList{u"@2024-09-09"_s, u"Late bus"_s}));
    clickName(1);
    seams.prompts.expect(PromptKind::Plain, u"No records found"_s, AnswerOk);
    button.click();
    EXPECT_EQ(seams.prompts.last().text, u"There are no lesson notes for Ed Cole"_s);
    checkScreen(*window, u"RegisterFrm_export"_s);
}
