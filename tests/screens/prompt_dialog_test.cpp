#include "desktop/screens/prompt_dialog.h"

#include "controls/date_field.h"
#include "support/recording_seams.h"
#include "support/screen_checks.h"

#include <QCheckBox>
#include <QTableView>
#include <QTemporaryFile>

using namespace std::chrono_literals;

namespace {

const QString title = u"Delete Class:"_s;

void type(QWidget& window, const QString& field, const QString& text) {
    auto& edit = control<QLineEdit>(window, field);
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, text);
}

void typeDate(QWidget& window, const QString& calendar, const QString& text) {
    type(control<DateField>(window, calendar), u"txtDate"_s, text);
}

class PromptDialogs : public testing::Test {
protected:
    PromptDialogs() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }
    ~PromptDialogs() override { QLocale::setDefault(QLocale::c()); }

    BoxAnswer askBox(int flags, const BoxLook& look, const std::function<void(QWidget&)>& act) {
        whenAsked(act);
        return PromptDialog().msg_Box(u"Are you sure?"_s, flags, title, look);
    }

    TestSeams m_seams;
};

} // namespace

TEST_F(PromptDialogs, EachSetOfButtonsAnswersTheKeyboard) {
    const struct {
        int flags;
        Qt::Key key;
        PromptAnswer answer;
    } cases[] = {
        {OkButton, Qt::Key_Return, AnswerOk},
        {OkButton | SecondButtonDefault, Qt::Key_Escape, AnswerOk},
        {OkCancelButtons | CriticalIcon, Qt::Key_Space, AnswerOk},
        {OkCancelButtons | SecondButtonDefault, Qt::Key_Enter, AnswerCancel},
        {AbortRetryIgnoreButtons | WarningIcon, Qt::Key_I, AnswerIgnore},
        {AbortRetryIgnoreButtons, Qt::Key_Escape, AnswerAbort},
        {AbortRetryIgnoreButtons | SecondButtonDefault, Qt::Key_Return, AnswerRetry},
        {YesNoCancelButtons | InformationIcon, Qt::Key_Escape, AnswerCancel},
        {YesNoCancelButtons, Qt::Key_N, AnswerNo},
        {YesNoButtons | QuestionIcon, Qt::Key_Return, AnswerYes},
        {YesNoButtons | QuestionIcon | SecondButtonDefault, Qt::Key_Return, AnswerNo},
        {YesNoButtons, Qt::Key_Escape, AnswerNo},
        {RetryCancelButtons, Qt::Key_R, AnswerRetry},
        {RetryCancelButtons, Qt::Key_Escape, AnswerCancel},
    };
    for (const auto& [flags, key, expected] : cases)
        EXPECT_EQ(askBox(flags, {}, [key = key](QWidget& box) { press(box, key); }), expected)
            << flags << " " << key;
}

TEST_F(PromptDialogs, ATickedCheckBoxIsToldBesideTheButton) {
    BoxLook look;
    look.checkBox = u"Do not show this dialog again:"_s;
    const BoxAnswer answer = askBox(YesNoButtons | QuestionIcon, look, [](QWidget& box) {
        auto& check = control<QCheckBox>(box, u"Check1"_s);
        check.setFocus();
        press(box, Qt::Key_Space);
        checkScreen(box, u"msg_box_check"_s);
        press(box, Qt::Key_N);
    });
    EXPECT_EQ(answer, (BoxAnswer{AnswerNo, true}));
}

TEST_F(PromptDialogs, OwnCaptionsKeepTheValuesAndEscapeDoesNothing) {
    BoxLook look;
    look.captions = QStringList{u"Yes"_s, u"No"_s, u"Archive"_s};
    look.colour = 0x008000;
    const auto archive = [](QWidget& box) {
        EXPECT_EQ(control<QPushButton>(box, u"Cmd(2)"_s).text(), u"&Archive"_s);
        checkScreen(box, u"msg_box_captions"_s);
        press(box, Qt::Key_A);
    };
    EXPECT_EQ(askBox(YesNoCancelButtons, look, archive), AnswerCancel);
    const auto escape = [](QWidget& box) { press(box, Qt::Key_Escape); };
    EXPECT_EQ(askBox(YesNoCancelButtons, look, escape), AnswerNo);
    look.captions = QStringList{u"Yes please"_s, u"No thanks"_s};
    EXPECT_EQ(askBox(YesNoButtons, look, [](QWidget& box) { press(box, Qt::Key_N); }), AnswerNo);
}

TEST_F(PromptDialogs, AScreenReaderIsToldTheTextAndALongPathIsBroken) {
    const QString text = u"The file\n/home/"_s + QString(300, u'x') + u"\n<b>is locked</b>"_s;
    whenAsked([&](QWidget& box) {
        EXPECT_EQ(box.accessibleName(), title);
        EXPECT_EQ(box.accessibleDescription(), text);
        EXPECT_EQ(control<QLabel>(box, u"lblMessage"_s).accessibleName(), text);
        EXPECT_LT(box.width(), 1000);
        checkScreen(box, u"msg_box_long"_s);
        press(box, Qt::Key_Escape);
    });
    EXPECT_EQ(PromptDialog().msg_Box(text, WarningIcon, title, {}), AnswerOk);
}

TEST_F(PromptDialogs, ABoxThatClosesByItselfReportsItsDefault) {
    whenAsked([&](QWidget& box) {
        m_seams.clock.advance(9s);
        EXPECT_TRUE(box.isVisible());
        m_seams.clock.advance(1s);
    });
    const int flags = YesNoButtons | SecondButtonDefault;
    EXPECT_EQ(PromptDialog().MsgAuto_box(u"Backed up."_s, flags, title, 10, {}, m_seams.clock),
              AnswerNo);

    whenAsked([](QWidget& box) { press(box, Qt::Key_Y); });
    EXPECT_EQ(PromptDialog().MsgAuto_box(u"Backed up."_s, flags, title, 10, {}, m_seams.clock),
              AnswerYes);
    EXPECT_EQ(m_seams.clock.running(), 0);
}

TEST_F(PromptDialogs, InputIsTakenByEnterAndDroppedByEscape) {
    const auto ask = [](Qt::Key key) {
        whenAsked([key](QWidget& box) {
            EXPECT_EQ(control<QLineEdit>(box, u"txtInput"_s).selectedText(), u"New Menu"_s);
            checkScreen(box, u"input_box"_s);
            QTest::keyClicks(box.focusWidget(), u"Sports Day"_s);
            press(box, key);
        });
        return PromptDialog().input_box(u"Please enter a caption for the new sub menu:"_s, OkButton,
                                        u"Create Sub Menu"_s, u"New Menu"_s, 0);
    };
    EXPECT_EQ(ask(Qt::Key_Return), u"Sports Day"_s);
    EXPECT_EQ(ask(Qt::Key_Escape), QString());
}

TEST_F(PromptDialogs, APeriodThatIsNoneIsRefused) {
    const DatePeriod year{QDate(2024, 9, 4), QDate(2025, 7, 18)};
    const std::pair<QString, QString> refused[] = {
        {u"10/01/2025"_s, u"09/01/2025"_s}, // the wrong way round
        {u"31/09/2024"_s, u"09/01/2025"_s}, // no such day
        {u"03/09/2024"_s, u"09/01/2025"_s}, // before the year
        {u"10/09/2024"_s, u""_s},
    };
    whenAsked([&](QWidget& box) {
        checkScreen(box, u"date_box"_s);
        for (const auto& [first, last] : refused) {
            m_seams.prompts.expect(PromptKind::Plain, u"Invalid period"_s, AnswerOk);
            typeDate(box, u"Calendar(0)"_s, first);
            control<QLineEdit>(control<DateField>(box, u"Calendar(1)"_s), u"txtDate"_s).clear();
            typeDate(box, u"Calendar(1)"_s, last);
            press(box, Qt::Key_Return);
        }
        typeDate(box, u"Calendar(0)"_s, u"6.1.25"_s);
        typeDate(box, u"Calendar(1)"_s, u"06/01/2025"_s);
        press(box, Qt::Key_Return);
    });
    const QDate day(2025, 1, 6);
    EXPECT_EQ(PromptDialog().Date_Box(u"Export"_s, year, QDate(2024, 9, 9), m_seams.prompts),
              (DatePeriod{day, day}));
    EXPECT_EQ(m_seams.prompts.last().text,
              u"The date to start from must preceed the date to end at. Please try again."_s);
}

TEST_F(PromptDialogs, ALinkNeedsAPathAndAName) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    whenAsked([&](QWidget& box) {
        checkScreen(box, u"file_link"_s);
        type(box, u"txtName"_s, u"Essay ¬ list"_s);
        m_seams.prompts.expect(PromptKind::Plain, u"Invalid Filename"_s, AnswerOk);
        press(box, Qt::Key_Return);
        control<QLineEdit>(box, u"txtName"_s).clear();
        m_seams.prompts.expect(PromptKind::File, u" Select the file to link to :"_s,
                               file.fileName());
        control<QPushButton>(box, u"cmdBrowse"_s).click();
        m_seams.prompts.expect(PromptKind::Plain, u"Invalid name"_s, AnswerOk);
        press(box, Qt::Key_Return);
        type(box, u"txtName"_s, u"Essay ¬ list"_s);
        press(box, Qt::Key_Return);
    });
    EXPECT_EQ(PromptDialog().File_Link(u"Create a File Link"_s, u"Enter the information"_s, {}, {},
                                       m_seams.prompts),
              (LinkAnswer{u"Essay ¬ list"_s, file.fileName()}));
}

TEST_F(PromptDialogs, TheGridOfLinksOpensARowAndStays) {
    const QList<FileLink> links{{u"24-09-05"_s, u"Map"_s, u"/maps/nile.png"_s},
                                {u"24-09-06"_s, u"Poem"_s, u"http://poems.example"_s}};
    QStringList opened;
    whenAsked([&](QWidget& box) {
        auto& grid = control<QTableView>(box, u"gridLinks"_s);
        EXPECT_EQ(grid.model()->index(1, 0).data().toString(), u"06/09/2024"_s);
        checkScreen(box, u"all_file_links"_s);
        press(box, Qt::Key_Down);
        press(box, Qt::Key_Return);
        const QPoint first = grid.visualRect(grid.model()->index(0, 1)).center();
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, first);
        QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, first);
        press(box, Qt::Key_Escape);
    });
    PromptDialog().ALL_File_Links(u"File Links"_s,
                                  u"All file links used within planning are shown below"_s, links,
                                  [&](const FileLink& link) { opened += link.path; });
    EXPECT_EQ(opened, (QStringList{u"http://poems.example"_s, u"/maps/nile.png"_s}));
}
