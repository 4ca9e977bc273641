// The Change Week Allocations Wizard in the frame, from its command to its end, by keys.

#include "frame/screens/frame_menus.h"
#include "frame/screens/main_window.h"
#include "frame/screens/window_table.h"
#include "support/screen_checks.h"
#include "support/year_session.h"
#include "year/screens/change_weeks_wizard.h"

namespace {

class ChangeWeeksTest : public YearSession {
protected:
    ChangeWeeksTest() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
        session.Start(path(u"app"_s));
        frame = std::make_unique<MainWindow>(session, windowTable(), false);
        frame->show();
    }
    ~ChangeWeeksTest() override { QLocale::setDefault(QLocale::c()); }

    QAction& command() { return frame->menus().action(FrameCommand::ChangeWeekAlloc); }
    /// Gives the command with a window open, and drives the wizard.
    void whileChanging(const std::function<void(QWidget&)>& act) {
        frame->open(ToolWindow::Timetable);
        whenAsked([&](QWidget& wizard) {
            EXPECT_EQ(wizard.objectName(), u"ChangeWeekFrm"_s);
            EXPECT_TRUE(frame->visible().isEmpty());
            EXPECT_FALSE(command().isEnabled());
            act(wizard);
        });
        command().trigger();
        EXPECT_TRUE(command().isEnabled());
        EXPECT_TRUE(frame->windowTitle().endsWith(u"year.mdb"_s));
    }
    QStringList letters() {
        return rowsOf(session.CurrentDB, u"SELECT ABWeek FROM Planning ORDER BY PlanDate"_s);
    }

    std::unique_ptr<MainWindow> frame;
};

} // namespace

TEST_F(ChangeWeeksTest, IsOfferedInAYearOfTwoWeeksOnly) {
    EXPECT_FALSE(command().isEnabled());
    openYear(oneWeekAnswers());
    EXPECT_FALSE(command().isEnabled());
    openYear(twoWeekAnswers());
    EXPECT_TRUE(command().isEnabled());
    EXPECT_TRUE(frame->menus().popup(FrameCommand::ToolsMenu).actions().contains(&command()));
}

TEST_F(ChangeWeeksTest, ChangesTheWeeksFromTheOneThatIsPicked) {
    openYear(twoWeekAnswers());
    const QStringList before = letters();
    whileChanging([&](QWidget& wizard) {
        checkScreen(wizard, u"ChangeWeekFrm"_s);
        press(wizard, Qt::Key_Return);
        checkScreen(wizard, u"ChangeWeekFrm_week"_s);
        seams.prompts.expect(PromptKind::Plain, u"No date selected"_s, AnswerOk);
        press(wizard, Qt::Key_Return);
        auto& summary = control<QLabel>(wizard, u"LblSummary"_s);
        EXPECT_TRUE(summary.text().isEmpty());
        press(wizard, Qt::Key_Space);
        EXPECT_TRUE(summary.text().contains(u"currently a Week 'B'"_s));
        press(wizard, Qt::Key_Down);
        EXPECT_TRUE(summary.text().contains(u"currently a Week 'A'"_s));
        checkNothingCut(wizard);
        seams.prompts.expect(PromptKind::Plain, u"Change week allocations"_s, AnswerOk);
        press(wizard, Qt::Key_Return);
    });
    EXPECT_TRUE(seams.prompts.last().text.contains(u"from week Monday 09/09/2024 onwards."_s));
    EXPECT_EQ(letters().first(3), before.first(3));
    EXPECT_EQ(letters().mid(3).join(QString()), u"BBBBBAAAAA"_s);
}

TEST_F(ChangeWeeksTest, CancelledItLeavesTheYearAsItWas) {
    openYear(twoWeekAnswers());
    const QStringList before = letters();
    whileChanging([&](QWidget& wizard) {
        seams.prompts.expect(PromptKind::Plain, u"Cancel"_s, AnswerNo);
        press(wizard, Qt::Key_Escape);
        EXPECT_TRUE(wizard.isVisible());
        press(wizard, Qt::Key_Return);
        seams.prompts.expect(PromptKind::Plain, u"Cancel"_s, AnswerYes);
        press(wizard, Qt::Key_Escape);
    });
    EXPECT_EQ(letters(), before);
}
