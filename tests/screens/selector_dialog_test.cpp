// The selector: its four pages, what they refuse and what they answer.

#include "core/new_field.h"
#include "desktop/screens/selector_dialog.h"
#include "support/engine_places.h"
#include "support/screen_checks.h"
#include "support/scripted_prompts.h"

#include <QCalendarWidget>
#include <QClipboard>
#include <QGuiApplication>
#include <QRadioButton>
#include <QTableWidget>

namespace {

class SelectorTest : public testing::Test {
protected:
    /// What the selector answers after `act` on it.
    template<typename Request>
    auto answer(const Request& request, const std::function<void(QWidget&)>& act) {
        whenAsked(act);
        return SelectorDialog(prompts).ReturnString(request);
    }
    static void ok(QWidget& form) { control<QPushButton>(form, u"cmdOK"_s).click(); }
    static void cancel(QWidget& form) { control<QPushButton>(form, u"cmdCancel"_s).click(); }

    ScriptedPrompts prompts;
};

} // namespace

TEST_F(SelectorTest, OneItemOrSeveral) {
    OneItemRequest request;
    request.title = u"Classes in year.mdb"_s;
    request.text = u"Please select which class list you would like to import:"_s;
    request.items = {u"7A"_s, u"8B"_s, u"9C"_s};
    EXPECT_EQ(answer(request,
                     [](QWidget& form) {
                         checkScreen(form, u"SelectorFrm_one"_s);
                         press(form, Qt::Key_Down);
                         press(form, Qt::Key_Return);
                     }),
              1);
    EXPECT_EQ(answer(request, cancel), std::nullopt);
    const SeveralItemsRequest several{request, request.items};
    EXPECT_EQ(answer(several, cancel), std::nullopt);
    EXPECT_EQ(answer(several, ok), QList<int>()) << "none of them";
    EXPECT_EQ(answer(several,
                     [](QWidget& form) {
                         auto& list = control<QListWidget>(form, u"List1"_s);
                         list.item(0)->setSelected(true);
                         list.item(2)->setSelected(true);
                         ok(form);
                     }),
              (QList<int>{0, 2}));
    EXPECT_EQ(answer(several,
                     [](QWidget& form) {
                         control<QPushButton>(form, u"cmdAll"_s).click();
                         checkScreen(form, u"SelectorFrm_several"_s);
                         ok(form);
                     }),
              (QList<int>{0, 1, 2}));
}

TEST_F(SelectorTest, ASheetItsColumnsAndItsRow) {
    SpreadsheetRequest request;
    request.title = u"Importing from Excel"_s;
    request.text = u"You may change this import settings if needed:"_s;
    request.workbook = test::testData(u"spreadsheets/class_list.xls"_s);
    request.columnLabels = {u"Import Surnames from Column:"_s, u"Import Firstnames from Column:"_s,
                            u"Import Tutor group from Column:"_s};
    request.columns = {u"A"_s, u"B"_s, u"C"_s};
    request.columnChoices = {u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s};
    request.thirdMayBeNone = true;
    request.rowLabel = u"Row of the first record:"_s;
    request.row = 3;
    EXPECT_EQ(answer(request,
                     [](QWidget& form) {
                         const auto& preview = control<QTableWidget>(form, u"OLE1"_s);
                         EXPECT_EQ(preview.item(2, 0)->text(), u"ABBOTT"_s);
                         checkScreen(form, u"SelectorFrm_sheet"_s);
                         ok(form);
                     }),
              (SpreadsheetChoice{3, {u"A"_s, u"B"_s, u"C"_s}}));
    prompts.expect(PromptKind::Plain, u"Invalid Column"_s, AnswerOk);
    EXPECT_EQ(answer(request,
                     [](QWidget& form) {
                         auto& column = control<QComboBox>(form, u"CboA"_s);
                         column.lineEdit()->clear();
                         ok(form);
                         QTest::keyClicks(column.lineEdit(), u"4h"_s);
                         EXPECT_EQ(column.currentText(), u"H"_s);
                         control<QComboBox>(form, u"CboC"_s).setCurrentText(u"None"_s);
                         control<QComboBox>(form, u"cboRow"_s).lineEdit()->clear();
                         ok(form);
                     }),
              (SpreadsheetChoice{1, {u"H"_s, u"B"_s, QString()}}));
    request.workbook = test::testData(u"spreadsheets/encrypted.xls"_s);
    EXPECT_EQ(answer(request,
                     [](QWidget& form) {
                         EXPECT_TRUE(std::ranges::any_of(
                             form.findChildren<QLabel*>(), [](const QLabel* label) {
                                 return label->text().contains(u"by a password"_s);
                             }));
                         checkScreen(form, u"SelectorFrm_unreadable"_s);
                         cancel(form);
                     }),
              std::nullopt);
}

TEST_F(SelectorTest, ANewField) {
    NewFieldRequest request;
    request.title = u"Create New Field"_s;
    request.text = u"Here you can create a new data field."_s;
    request.label = u"If this field is a grades column, enter the date:"_s;
    prompts.expect(PromptKind::Plain, u"Invalid Name"_s, AnswerOk);
    prompts.expect(PromptKind::Plain, u"Invalid Character"_s, AnswerOk);
    prompts.expect(PromptKind::Plain, u"Invalid Field Size"_s, AnswerOk);
    EXPECT_EQ(answer(request,
                     [](QWidget& form) {
                         checkScreen(form, u"SelectorFrm_field"_s);
                         ok(form);
                         auto& name = control<QLineEdit>(form, u"TxtName"_s);
                         auto& size = control<QLineEdit>(form, u"TxtSize"_s);
                         name.setFocus();
                         QTest::keyClicks(&name, u"Es.say"_s);
                         press(form, Qt::Key_Return); // to the size
                         QTest::keyClicks(&size, u"3x00"_s);
                         EXPECT_EQ(size.text(), u"300"_s);
                         press(form, Qt::Key_Return);
                         size.setText(u"20"_s);
                         press(form, Qt::Key_Return);
                     }),
              (NewField{u"Essay"_s, dao::DataType::Text, 20}));
    EXPECT_EQ(
        answer(
            request,
            [](QWidget& form) {
                QGuiApplication::clipboard()->setText(u"Te,st"_s);
                control<QLineEdit>(form, u"TxtName"_s)
                    .paste(); // what is not typed is not refused here
                control<QRadioButton>(form, u"OptType(5)"_s).click();
                EXPECT_FALSE(control<QLineEdit>(form, u"TxtSize"_s).isEnabled());
                control<QCalendarWidget>(form, u"Calendar1"_s).setSelectedDate(QDate(2024, 9, 2));
                ok(form);
            }),
        (NewField{u"Te,st"_s, dao::DataType::Long, 50, QDate(2024, 9, 2)}));
    request.memoOnly = true;
    request.showCalendar = false;
    EXPECT_EQ(answer(request,
                     [](QWidget& form) {
                         QTest::keyClicks(&control<QLineEdit>(form, u"TxtName"_s), u"Report"_s);
                         EXPECT_FALSE(control<QRadioButton>(form, u"OptType(1)"_s).isVisible());
                         press(form, Qt::Key_Return);
                     }),
              (NewField{u"Report"_s, dao::DataType::Memo}));
}
