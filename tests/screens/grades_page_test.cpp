// The grades view: its columns, cells, layout, clipboard, and the sort and query panel.

#include "classes/grade_columns.h"
#include "classes/grade_layout.h"
#include "classes/screens/grades_grid.h"
#include "core/window_placement.h"
#include "support/screen_register.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTabWidget>

namespace {

class GradesScreenTest : public RegisterScreenTest {
protected:
    void showGrades() {
        show();
        window->showView(GradesView);
    }
    GradesGrid& grades() { return control<GradesGrid>(*window, u"GradesGrid"_s); }
    void addColumn(const NewField& answer, const QString& refusal = {}) {
        seams.prompts.expect(PromptKind::Selector, u"Create New Field"_s, answer);
        if (!refusal.isEmpty())
            seams.prompts.expect(PromptKind::Plain, refusal, AnswerOk);
        menuItem(u"Add a Grades Column..."_s).trigger();
    }
    QStringList columns() { return window->desk().sheet().columns().mid(4); }
    void select(const QString& title) {
        auto& head = *grades().horizontalHeader();
        const int column = window->desk().sheet().columnOf(title);
        QTest::mouseClick(head.viewport(), Qt::LeftButton, {},
                          {head.sectionViewportPosition(column) + head.sectionSize(column) / 2, 5});
    }
    void type(int row, const QString& column, const QString& text) {
        const int place = window->desk().sheet().columnOf(column);
        grades().setCurrentIndex(grades().model()->index(row, place));
        grades().edit(grades().currentIndex());
        auto* editor = grades().findChild<QPlainTextEdit*>(u"GradeEditor"_s);
        ASSERT_TRUE(editor);
        editor->selectAll();
        QTest::keyClicks(editor, text);
        grades().setFocus();           // the cell is left
        QApplication::processEvents(); // the editor goes
    }
    QStringList stored(const QString& what) {
        return rowsOf(session.CurrentDB, u"SELECT %1 FROM Marks_D ORDER BY ID"_s.arg(what));
    }
    QTableView& list() { return names(); }
};

} // namespace

TEST_F(GradesScreenTest, ColumnsComeMoveChangeTheirNamesAndGo) {
    showGrades();
    EXPECT_EQ(columns(), QStringList());
    addColumn({u"Essay"_s});
    addColumn({u"Test 1"_s, dao::DataType::Long});
    addColumn({u"Remark"_s, dao::DataType::Memo});
    EXPECT_EQ(columns(), (QStringList{u"Essay"_s, u"Test 1"_s, u"Remark"_s}));
    addColumn({u"essay"_s}, u"Grade Error"_s); // taken
    select(u"Test 1"_s);
    menuItem(u"Move Left"_s).trigger();
    EXPECT_EQ(columns().first(), u"Test 1"_s);
    EXPECT_EQ(grades().selectionModel()->selectedColumns().first().column(), 4);
    seams.prompts.expect(PromptKind::Selector, u"Rename Column"_s, NewField{u"Spelling"_s});
    menuItem(u"Rename selected Column..."_s).trigger();
    EXPECT_EQ(columns().first(), u"Spelling"_s);
    type(1, u"Spelling"_s, u"17"_s);
    type(0, u"Remark"_s, u"Well done"_s);
    EXPECT_EQ(stored(u"Spelling"_s), (QStringList{u"~"_s, u"~"_s, u"17"_s})); // Cole is the third
    EXPECT_EQ(stored(u"Remark"_s).first(), u"Well done"_s);
    seams.prompts.expect(PromptKind::Plain, u"After Update Error"_s, AnswerOk);
    type(1, u"Spelling"_s, u"many"_s);
    EXPECT_EQ(stored(u"Spelling"_s).last(), u"17"_s);
    seams.prompts.expect(PromptKind::Plain, u"After Update Error"_s, AnswerOk);
    EXPECT_FALSE(window->close()); // it stands in its open cell until it fits
    QApplication::processEvents();
    auto* refused = grades().findChild<QPlainTextEdit*>(u"GradeEditor"_s);
    EXPECT_EQ(refused->toPlainText(), u"many"_s);
    QTest::keyClick(refused, Qt::Key_Escape);
    EXPECT_EQ(stored(u"Spelling"_s).last(), u"17"_s);
    select(u"Essay"_s);
    seams.prompts.expect(PromptKind::Plain, u"Remove Grades"_s, AnswerYes);
    menuItem(u"Delete selected Column(s)..."_s).trigger();
    EXPECT_EQ(columns(), (QStringList{u"Spelling"_s, u"Remark"_s}));
    checkScreen(*window, u"RegisterFrm_grades"_s);
}

TEST_F(GradesScreenTest, KeysLeadOutOfACell) {
    showGrades();
    addColumn({u"Essay"_s, dao::DataType::Memo});
    addColumn({u"Test"_s, dao::DataType::Long});
    const auto typeKeys = [this](const QString& text, Qt::Key last,
                                 Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        auto* editor = grades().findChild<QPlainTextEdit*>(u"GradeEditor"_s);
        if (!editor) {
            QTest::keyClicks(&grades(), text.left(1));
            editor = grades().findChild<QPlainTextEdit*>(u"GradeEditor"_s);
            QTest::keyClicks(editor, text.mid(1));
        } else {
            QTest::keyClicks(editor, text);
        }
        QTest::keyClick(editor, last, modifiers);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    grades().setFocus();
    grades().setCurrentIndex(grades().model()->index(0, PupilSheet::FirstOwnColumn));
    typeKeys(u"good"_s, Qt::Key_Down);
    EXPECT_EQ(grades().currentIndex().row(), 1);
    typeKeys(u"fair"_s, Qt::Key_Tab); // on to the number, which is edited at once
    EXPECT_EQ(grades().currentIndex().column(), PupilSheet::FirstOwnColumn + 1);
    typeKeys(u"12"_s, Qt::Key_Up);
    EXPECT_EQ(grades().currentIndex().row(), 0);
    EXPECT_EQ(stored(u"Essay,Test"_s), (QStringList{u"good|~"_s, u"~|~"_s, u"fair|12"_s}));
    addColumn({u"Word"_s, dao::DataType::Text, 5});
    EXPECT_EQ(grades().currentIndex().column(), PupilSheet::FirstOwnColumn + 2); // the new one
    grades().setColumnHidden(PupilSheet::FirstOwnColumn, true);
    grades().setCurrentIndex(grades().model()->index(0, PupilSheet::FirstOwnColumn + 2));
    typeKeys(u"two"_s, Qt::Key_Return, Qt::ShiftModifier);
    typeKeys(u"lines"_s, Qt::Key_Return); // five characters and no more
    EXPECT_EQ(stored(u"Word"_s).first(), u"two\nl"_s);
    EXPECT_EQ(grades().currentIndex().row(), 1);
    typeKeys(u"x"_s, Qt::Key_Tab); // to the next pupil's first that shows
    EXPECT_EQ(grades().currentIndex(), grades().model()->index(2, PupilSheet::FirstOwnColumn + 1));
    typeKeys({}, Qt::Key_Backtab);
    typeKeys({}, Qt::Key_Escape);
    QTest::keyClick(&grades(), Qt::Key_Delete);
    EXPECT_EQ(stored(u"Word"_s), (QStringList{u"two\nl"_s, u"~"_s, u""_s}));
    QTest::keyClick(&grades(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&grades(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stored(u"Word"_s).last(), u"~"_s);
    QTest::keyClick(&grades(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(stored(u"Word"_s).last(), u"x"_s);
    menuItem(u"Show All Columns"_s).trigger();
    select(u"Test"_s);
    grades().edit(grades().model()->index(2, PupilSheet::FirstOwnColumn + 1));
    QTest::keyClicks(grades().findChild<QPlainTextEdit*>(u"GradeEditor"_s), u"7"_s);
    menuItem(u"Move Left"_s).trigger(); // takes over what stands in the open cell
    EXPECT_EQ(stored(u"Essay,Test"_s), (QStringList{u"good|~"_s, u"~|7"_s, u"fair|12"_s}));
    EXPECT_EQ(columns().first(), u"Test"_s);
}

TEST_F(GradesScreenTest, ImportsShowAtOnceAndAreNotUndone) {
    showGrades();
    addColumn({u"Essay"_s});
    type(0, u"Essay"_s, u"good"_s);
    const QString name =
        u"%1,%2"_s.arg(window->desk().sheet().text(0, PupilSheet::SurnameColumn),
                       window->desk().sheet().text(0, PupilSheet::FirstnameColumn));
    const QString sheet =
        writeFile(folder.filePath(u"a.csv"_s), "S,F,Test,More\n" + name.toUtf8() + ",7,8\n");
    const auto expectFile = [&](const SpreadsheetChoice& choice) {
        seams.prompts.expect(PromptKind::Message, u"Import Data"_s, AnswerYes);
        seams.prompts.expect(
            PromptKind::File,
            u"Please select the Excel file that contains your class list and data:"_s, sheet);
        seams.prompts.expect(PromptKind::Selector, u"Importing from Excel"_s, choice);
    };
    expectFile({1, {u"A"_s, u"B"_s}});
    menuItem(u"Import complete Excel Sheet..."_s).trigger();
    EXPECT_EQ(columns(), (QStringList{u"Essay"_s, u"Test"_s, u"More"_s}));
    EXPECT_FALSE(window->desk().records().history().toUndo().isEmpty());
    select(u"Essay"_s);
    expectFile({2, {u"A"_s, u"B"_s, u"D"_s}});
    menuItem(u"Import to selected column from Excel..."_s).trigger();
    EXPECT_EQ(stored(u"Essay,Test"_s).first(), u"8|7"_s);
    EXPECT_TRUE(window->desk().records().history().toUndo().isEmpty());
    EXPECT_EQ(gradeColumnCommands(grades().selectedColumns(), {4, 5, 6}).importInto, true);
    seams.prompts.expect(PromptKind::Message, u"Import from another ORVA database."_s, AnswerNo);
    menuItem(u"Import from another ORVA database..."_s).trigger();
    grades().clearSelection();
    seams.prompts.expect(PromptKind::Plain, u"Import Data"_s, AnswerOk);
    menuItem(u"Import to selected column from Excel..."_s).trigger(); // no column is selected
}

TEST_F(GradesScreenTest, AHeadPicksAColumnAndLeavesThePupil) {
    showGrades();
    addColumn({u"Tutor"_s}, u"Grade Error"_s); // would be taken for the pupil's own
    addColumn({u"Essay"_s});
    addColumn({u"Test"_s, dao::DataType::Long});
    const auto picked = [this] {
        const ColumnCommands can = gradeColumnCommands(grades().selectedColumns(), {4, 5});
        return can.remove;
    };
    clickName(2);
    select(u"Test"_s);
    EXPECT_TRUE(picked());
    EXPECT_EQ(window->desk().currentRow(), 2);
    QTest::mouseClick(grades().viewport(), Qt::LeftButton, {},
                      grades().visualRect(grades().model()->index(1, 5)).center());
    EXPECT_FALSE(picked());
    grades().setCurrentIndex(grades().model()->index(1, PupilSheet::FirstOwnColumn));
    QTest::keyClick(&grades(), Qt::Key_Space, Qt::ControlModifier);
    menuItem(u"Hide the selected Column(s)"_s).trigger();
    EXPECT_EQ(grades().currentIndex().column(), 5); // not where nobody sees what is typed
    clickName(0);
    window->desk().selection().setMultiSelect(true);
    window->desk().selection().click(window->desk().sheet(), 0);
    window->showView(GradesView);
    ASSERT_EQ(grades().model()->rowCount(), 1);
    EXPECT_FALSE(picked()); // one cell is no column, even where it is all of it
}

TEST_F(GradesScreenTest, ALayoutLastsOnlyWhenItIsSaved) {
    showGrades();
    addColumn({u"Essay"_s});
    addColumn({u"Test"_s, dao::DataType::Long});
    const int essay = window->desk().sheet().columnOf(u"Essay"_s);
    grades().setColumnWidth(essay, 140);
    select(u"Test"_s);
    menuItem(u"Hide the selected Column(s)"_s).trigger();
    menuItem(u"Save Columns Layout"_s).trigger();
    menuItem(u"Show All Columns"_s).trigger();
    EXPECT_FALSE(grades().isColumnHidden(essay + 1));
    EXPECT_TRUE(grades().isColumnHidden(PupilSheet::IdColumn));
    window->showView(GradesView);
    EXPECT_TRUE(grades().isColumnHidden(essay + 1));
    EXPECT_EQ(grades().columnWidth(essay), 140);
    grades().setColumnWidth(essay, 90); // until the view goes, whatever comes and moves
    addColumn({u"New"_s});
    EXPECT_EQ(grades().columnWidth(essay), 90);
    EXPECT_TRUE(grades().isColumnHidden(essay + 1));
    menuItem(u"Move Left"_s).trigger(); // past the hidden one and the essay
    EXPECT_EQ(columns(), (QStringList{u"New"_s, u"Essay"_s, u"Test"_s}));
    EXPECT_EQ(grades().columnWidth(essay + 1), 90);
    seams.prompts.expect(PromptKind::Selector, u"Rename Column"_s, NewField{u"Essays"_s});
    select(u"Essay"_s); // which fits it
    grades().setColumnWidth(essay + 1, 90);
    menuItem(u"Rename selected Column..."_s).trigger();
    EXPECT_EQ(grades().columnWidth(essay + 1), 90);
    window->showView(GradesView);
    list().verticalHeader()->resizeSection(0, 40);
    EXPECT_EQ(grades().rowHeight(0), 40);
    EXPECT_EQ(loadRowHeight(settings, u"D"_s, LayoutKind::Grades), 40 * TwipsPerPixel);
    window->showView(PupilInformationView);
    EXPECT_LT(list().rowHeight(0), 40);
    window->showView(GradesView);
    EXPECT_EQ(list().rowHeight(0), 40);
}

TEST_F(GradesScreenTest, CopiesWhatIsShown) {
    showGrades();
    addColumn({u"Essay"_s});
    addColumn({u"Test"_s, dao::DataType::Long});
    type(0, u"Test"_s, u"9"_s);
    select(u"Essay"_s);
    menuItem(u"Hide the selected Column(s)"_s).trigger();
    seams.prompts.expect(PromptKind::Plain, u"Data copied"_s, AnswerOk);
    menuItem(u"Copy All data"_s).trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text().section(u"\r\n"_s, 0, 1),
              u"Surname\tFirstname\tTutor\tTest\r\nAmes\tAnn\t\t9"_s);
    menuItem(u"Copy student names"_s).trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Ann Ames\r\nEd Cole\r\nZoë O'Brien\r\n"_s);
}

TEST_F(GradesScreenTest, SortsAndPicksByThePanel) {
    showGrades();
    addColumn({u"Test"_s, dao::DataType::Long});
    type(0, u"Test"_s, u"9"_s);
    type(1, u"Test"_s, u"12"_s);
    menuItem(u"Sort Data..."_s).trigger();
    QApplication::processEvents();
    checkScreen(*window, u"RegisterFrm_sort"_s);
    control<QComboBox>(*window, u"Cbo2(0)"_s).setCurrentText(u"Test"_s);
    control<QRadioButton>(*window, u"Option1(1)"_s).click();
    grades().setColumnHidden(PupilSheet::FirstOwnColumn, true);
    control<QPushButton>(*window, u"cmdSort"_s).click();
    EXPECT_FALSE(grades().isColumnHidden(PupilSheet::FirstOwnColumn));
    EXPECT_TRUE(grades().isColumnHidden(PupilSheet::IdColumn));
    EXPECT_EQ(list().model()->index(0, 0).data().toString(), u"Cole"_s);
    control<QTabWidget>(*window, u"Psort"_s).setCurrentIndex(1);
    control<QComboBox>(*window, u"CboF"_s).setCurrentText(u"Test"_s);
    control<QComboBox>(*window, u"CboOpp"_s).setCurrentText(u"<"_s);
    auto& value = control<QComboBox>(*window, u"cboVal"_s);
    seams.prompts.expect(PromptKind::Plain, u"Numeric Field"_s, AnswerOk);
    value.setFocus();
    QTest::keyClicks(window->focusWidget(), u"1x0"_s);
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(control<QPlainTextEdit>(*window, u"SQLtxt"_s)
                    .toPlainText()
                    .endsWith(u" WHERE [Test] < 10;"_s));
    checkScreen(*window, u"RegisterFrm_query"_s);
    control<QPushButton>(*window, u"cmdRun"_s).click();
    EXPECT_EQ(list().model()->rowCount(), 1);
    EXPECT_EQ(grades().model()->rowCount(), 1);
    control<QPushButton>(*window, u"cmdAll"_s).click(); // nobody is picked any more
    EXPECT_EQ(grades().model()->rowCount(), 3);
    control<QPushButton>(*window, u"cmdClearQuery"_s).click();
    EXPECT_EQ(value.currentText(), QString());
    addPupils(session.CurrentDB, u"E"_s, {u"Bell,Kim"_s});
    window->desk().selectClass(u"E"_s);
    window->showView(GradesView); // a query of another class's pupils must not show here
    EXPECT_EQ(control<QPlainTextEdit>(*window, u"SQLtxt"_s).toPlainText(), QString());
    EXPECT_EQ(control<QComboBox>(*window, u"CboOpp"_s).currentText(), u"="_s);
}
