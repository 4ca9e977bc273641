// The short term plan over the daily sheet, driven as a person does: how it is opened and left,
// what reaches the disk and when, what its boxes refuse.

#include "planning/screens/daily_sheet_window.h"
#include "planning/screens/short_term_plan_panel.h"
#include "store/table_structure.h"
#include "support/screen_planning.h"

#include <QFileInfo>
#include <QListWidget>

namespace {

class ShortTermPlanScreen : public PlanningScreen<DailySheetWindow, ToolWindow::DailySheet> {
protected:
    void openPlan(const char* heading) {
        QTest::mouseDClick(&on<QWidget>(heading), Qt::LeftButton);
    }
    bool isPlanShown() {
        auto* panel = window->findChild<ShortTermPlanPanel*>();
        return panel && panel->isVisible();
    }
    QToolButton& planButton() {
        for (auto* found : window->findChildren<QToolButton*>()) {
            if (found->toolTip() == u"Toggle Lesson Properties. (STP details)"_s)
                return *found;
        }
        qFatal("no button");
    }
    /// What a field of the plan of a period of the 9th holds; "-" without a plan.
    QString kept(int period, const QString& field) {
        if (!TableExists(session.CurrentDB, u"STPdata"_s))
            return u"-"_s;
        dao::Recordset plans = rows(u"SELECT * FROM STPdata WHERE PlanDate = '24-09-09' AND "
                                    "Period = '%1'"_s.arg(period));
        return plans.EOF_() ? u"-"_s : richtext::plainText(plans.Collect(field).toText());
    }
    QListWidget& periods() { return on<QListWidget>("CL1"); }
};

} // namespace

TEST_F(ShortTermPlanScreen, LiesOverTheSheetUntilItIsClosed) {
    open();
    openPlan("Label1(2)");
    ASSERT_TRUE(isPlanShown());
    EXPECT_EQ(window->windowTitle(), u"Short Term Plan:"_s);
    EXPECT_EQ(label("STPdate"), u"Monday  -  Sep 09 2024"_s);
    EXPECT_EQ(periods().count(), 2);
    EXPECT_EQ(periods().currentItem()->text(), u"Period 3   Class: 7A"_s);
    EXPECT_EQ(session.CurrentClass, u"7A"_s);
    EXPECT_EQ(on<QComboBox>("cboTerm").count(), session.TermCount);
    EXPECT_TRUE(on<QComboBox>("CBoSub").hasFocus());
    EXPECT_EQ(button("cmdCloseSTP").toolTip(), u"Close the 'short term plan' view."_s);
    EXPECT_TRUE(box("Text1(2)").isVisible() && box("Text3(2)").isVisible());
    EXPECT_FALSE(box("Text1(0)").isVisible() || button("CMD2").isVisible());
    checkScreen(*window, u"ORVAfrm_plan"_s);
    const QSize smallest = window->parentWidget()->minimumSizeHint();
    resize(smallest.width(), smallest.height());
    checkScreen(*window, u"ORVAfrm_plan_narrow"_s);
    click("cmdCloseSTP");
    EXPECT_FALSE(isPlanShown());
    EXPECT_EQ(window->windowTitle(), u"Quick Daily Planning Sheet"_s);
    EXPECT_TRUE(box("Text1(2)").hasFocus());
    checkFocus(*window);
    planButton().click();
    EXPECT_TRUE(isPlanShown() && planButton().isChecked());
    planButton().click();
    EXPECT_FALSE(isPlanShown() || planButton().isChecked());
    EXPECT_EQ(kept(3, u"Period"_s), u"-"_s);
    click("Command1(1)");
    EXPECT_FALSE(planButton().isEnabled());
}

TEST_F(ShortTermPlanScreen, WhatIsTypedIsOnDiskAfterTwoSeconds) {
    open();
    openPlan("Label1(0)");
    type("StartObj", u"Know the parts"_s);
    type("Text1(0)", u"Label a flower"_s);
    QTest::keyClicks(&on<QLineEdit>("txtAbility"), u"Set 2"_s);
    EXPECT_EQ(kept(1, u"Period"_s), u"-"_s);
    seams.clock.advance(std::chrono::seconds(2));
    EXPECT_EQ(kept(1, u"StartObj"_s), u"Know the parts"_s);
    EXPECT_EQ(kept(1, u"Ability"_s), u"Set 2"_s);
    EXPECT_EQ(storedText(u"24-09-09"_s, u"Lesson1"_s), u"Label a flower"_s);
    QTest::keyClicks(&on<QComboBox>("CBoSub"), u"Biology"_s);
    QTest::keyClick(&on<QComboBox>("CboT(1)"), Qt::Key_Down);
    click("cmdCloseSTP");
    EXPECT_EQ(kept(1, u"Subject"_s), u"Biology"_s);
    EXPECT_EQ(kept(1, u"MainTime"_s), u"15 mins"_s);
    EXPECT_EQ(box("Text1(0)").plainText(), u"Label a flower"_s);
    EXPECT_EQ(on<QComboBox>("text2(0)").toolTip(), u"Short Term Plan data available."_s);
}

TEST_F(ShortTermPlanScreen, EveryWayOfLeavingKeepsThePlanOfItsOwnPeriod) {
    const std::vector<Way> all = ways({
        {"close", [&] { click("cmdCloseSTP"); }},
        {"next sheet", [&] { click("Command1(1)"); }},
        {"page key", [&] { press(*window, Qt::Key_PageDown); }},
        {"another sheet", [&] { window->ShowPlan(QDate(2024, 9, 11)); }},
        {"another period", [&] { periods().setCurrentRow(1); }},
    });
    QString typed;
    for (const Way& way : all) {
        SCOPED_TRACE(way.name);
        open();
        window->ShowPlan(QDate(2024, 9, 9));
        openPlan("Label1(0)");
        EXPECT_EQ(box("LSA").plainText(), typed);
        type("LSA", u"x"_s);
        typed += u'x';
        way.leave();
        EXPECT_EQ(kept(1, u"LSA"_s), typed);
        EXPECT_EQ(kept(3, u"LSA"_s), u"-"_s);
        close();
    }
}

TEST_F(ShortTermPlanScreen, GoesFromPeriodToPeriodByTheList) {
    open();
    openPlan("Label1(0)");
    type("Text1(0)", u"first"_s);
    periods().setFocus();
    press(*window, Qt::Key_Down);
    EXPECT_TRUE(isPlanShown() && periods().hasFocus());
    EXPECT_EQ(label("STPperiod"), u"Period 3"_s);
    EXPECT_TRUE(box("Text1(2)").isVisible());
    EXPECT_FALSE(box("Text1(0)").isVisible());
    press(*window, Qt::Key_Up);
    EXPECT_EQ(box("Text1(0)").plainText(), u"first"_s);
    checkFocus(*window);
    planButton().click();
    openPlan("Label1(1)"); // a period without a class
    EXPECT_EQ(label("STPperiod"), u"Period 2"_s);
    EXPECT_TRUE(periods().selectedItems().isEmpty());
    periods().setFocus();
    EXPECT_EQ(label("STPperiod"), u"Period 2"_s);
}

TEST_F(ShortTermPlanScreen, RefusesWhatAFieldCannotHold) {
    open();
    openPlan("Label1(0)");
    auto& subject = *on<QComboBox>("CBoSub").lineEdit();
    QTest::keyClicks(&subject, QString(30, u's'));
    EXPECT_EQ(subject.text().size(), 25);
    for (const char* name : {"txtAbility", "txtPOS"})
        EXPECT_EQ(on<QLineEdit>(name).maxLength(), 200);
    click("cmdCloseSTP");
    EXPECT_EQ(kept(1, u"Subject"_s).size(), 25);
}

TEST_F(ShortTermPlanScreen, WhatCannotBeWrittenStaysWhereItIs) {
    open();
    openPlan("Label1(0)");
    type("LSA", u"precious"_s);
    seams.clock.advance(std::chrono::seconds(2));
    box("LSA").setSelectedText(QString(60'000, u'x'));
    {
        const FileSizeLimit fullDisk(QFileInfo(path()).size());
        const auto leave = [&](const std::function<void()>& way) {
            seams.prompts.expect(PromptKind::Plain, u"Validate Data Error"_s, AnswerOk);
            way();
            EXPECT_TRUE(isPlanShown());
            EXPECT_EQ(periods().currentRow(), 0);
            EXPECT_EQ(label("LbDate"), u"24-09-09"_s);
        };
        leave([&] { click("cmdCloseSTP"); });
        leave([&] { periods().setCurrentRow(1); });
        leave([&] { click("Command1(1)"); });
        leave([&] {
            seams.prompts.expect(PromptKind::Message, u"Not saved"_s, AnswerNo);
            window->parentWidget()->close();
        });
    }
    click("cmdCloseSTP");
    EXPECT_FALSE(isPlanShown());
    EXPECT_EQ(kept(1, u"LSA"_s).size(), 60'008);
}
