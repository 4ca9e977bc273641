// The settings dialog, driven through its own controls.

#include "calendar/event_settings.h"
#include "classes/class_settings.h"
#include "core/core_settings.h"
#include "core/program_settings.h"
#include "settings/screens/settings_dialog.h"
#include "support/screen_planning.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QStackedWidget>

namespace {

class SettingsDialogTest : public PlanningScreen<SettingsDialog, ToolWindow::Settings> {
protected:
    void TearDown() override {
        frame.reset();
        session.CloseAllDatabases();
    }
    void show(qint64 page = GeneralSettingsPage) {
        frame->open(ToolWindow::Settings, page);
        window = frame->findChild<SettingsDialog*>();
        ASSERT_TRUE(window);
        QCoreApplication::processEvents();
    }
    void select(int page) { on<QListWidget>("CL1").setCurrentRow(page); }
    void foot(int button) {
        control<QPushButton>(*window, u"Command1(%1)"_s.arg(button)).click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    bool isOpen() { return frame->findChild<SettingsDialog*>(); }
    Settings& kept() { return session.GetSettings(); }
};

} // namespace

TEST_F(SettingsDialogTest, EveryPageReadsInBothSchemes) {
    show();
    EXPECT_EQ(window->focusWidget()->objectName(), u"CL1"_s);
    for (int page = 0; page <= AddressSettingsPage; ++page) {
        select(page);
        EXPECT_EQ(on<QStackedWidget>("Frame1").currentIndex(), page);
        checkScreen(*window, u"SettingsFrm_%1"_s.arg(page));
    }
}

TEST_F(SettingsDialogTest, OnlyTheSelectedPageIsWritten) {
    show(RegisterSettingsPage);
    on<QToolButton>("DatesUp").click();
    select(GeneralSettingsPage);
    on<QRadioButton>("Option1(3)").setChecked(true);
    foot(0);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(kept().get(setting::AutoBackup), ClosingBackup::BackUpOnly);
    EXPECT_EQ(kept().get(setting::PreviousDates), 1);
    select(RegisterSettingsPage);
    foot(1);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(kept().get(setting::PreviousDates), 1);
    show(RegisterSettingsPage);
    on<QToolButton>("DatesUp").click();
    press(*window, Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(kept().get(setting::PreviousDates), 2);
}

TEST_F(SettingsDialogTest, EscapeWritesNothing) {
    show(EventsSettingsPage);
    seams.prompts.expect(PromptKind::Colour, {}, 0x112233);
    on<QPushButton>("WeekendCol").click();
    press(*window, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(kept().get(setting::WeekendCol), 0xC0FFC0);
}

TEST_F(SettingsDialogTest, ADefaultDatabaseThatIsCancelledGoes) {
    kept().set(setting::DontShowStartup, true);
    show();
    seams.prompts.expect(PromptKind::File, u"Select the database you would like as the default:"_s,
                         path());
    on<QPushButton>("ChooseDefault").click();
    EXPECT_TRUE(on<QCheckBox>("Check1").isEnabled());
    foot(0);
    EXPECT_EQ(kept().get(setting::DefaultDatabasePath), path());
    seams.prompts.expect(PromptKind::File, u"Select the database you would like as the default:"_s);
    on<QPushButton>("ChooseDefault").click();
    EXPECT_FALSE(on<QCheckBox>("Check1").isEnabled());
    foot(0);
    EXPECT_FALSE(kept().find(setting::DefaultDatabasePath));
    EXPECT_FALSE(kept().find(setting::DontShowStartup));
}

TEST_F(SettingsDialogTest, ThePasswordClosesTheWindowsOfTheYearFirst) {
    frame->open(ToolWindow::DailySheet);
    frame->open(ToolWindow::Reminders);
    show();
    for (const char* box : {"Text1(1)", "Text1(2)"})
        on<QLineEdit>(box).setText(u"pass"_s);
    seams.prompts.expect(PromptKind::Message, u"Password Changed"_s, AnswerOk);
    on<QPushButton>("SetPassword").click();
    EXPECT_EQ(frame->visible(), QList{ToolWindow::Settings});
    EXPECT_TRUE(on<QLineEdit>("Text1(1)").text().isEmpty());
    EXPECT_EQ(session.DatabasePassword, u"pass"_s);
    frame->open(ToolWindow::DailySheet);
    EXPECT_EQ(frame->visible().size(), 2);
}
