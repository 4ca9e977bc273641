// The window of the seating plans, driven by the pointer and by keys.

#include "classes/class_removal.h"
#include "seating/plan_tables.h"
#include "seating/screens/desk_canvas.h"
#include "seating/screens/seating_plan_window.h"
#include "seating/seating_settings.h"
#include "store/schema.h"
#include "store/table_names.h"
#include "support/class_file.h"
#include "support/screen_planning.h"

#include <QPlainTextEdit>
#include <QSpinBox>

namespace {

class SeatingPlanWindowTest : public PlanningScreen<SeatingPlanWindow, ToolWindow::SeatingPlans> {
protected:
    SeatingPlanWindowTest() {
        addPupils(session.CurrentDB, u"7A"_s, {u"Ames,Ann"_s, u"O'Brien,Zoë"_s, u"Cole,Ed"_s});
        addPupils(session.CurrentDB, u"9C"_s, {u"May,Bo"_s});
    }
    DeskCanvas& canvas() { return on<DeskCanvas>("PicPlan"); }
    QList<DeskBox*> boxes() {
        QList<DeskBox*> shown = canvas().findChildren<DeskBox*>();
        shown.removeIf([](const DeskBox* box) { return box->isHidden(); });
        return shown;
    }
    DeskBox& desk(qint64 id) {
        for (DeskBox* box : boxes())
            if (box->desk().id == id)
                return *box;
        qFatal("no desk %lld", id);
    }
    QPoint middle(qint64 id) { return desk(id).geometry().center(); }
    void drag(QPoint from, QPoint to) {
        QTest::mousePress(&canvas(), Qt::LeftButton, {}, from);
        QTest::mouseMove(&canvas(), to);
        QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, to);
    }
    void pick(const char* selector, const QString& text) {
        QComboBox& combo = on<QComboBox>(selector);
        combo.setCurrentText(text);
        emit combo.activated(combo.currentIndex());
        emit combo.textActivated(text);
    }
    Desks stored(const PlanName& plan = {u"7A"_s, {}}) {
        Desks desks;
        readPlan(session.CurrentDB, plan, desks);
        return desks;
    }
    QAction& menu(const char* name) { return on<QAction>(name); }
};

} // namespace

TEST_F(SeatingPlanWindowTest, TheFirstClassHasAPlanFromTheFirstVisitOn) {
    open();
    EXPECT_EQ(on<QComboBox>("Sel1").currentText(), u"7A"_s);
    EXPECT_EQ(window->windowTitle(), u"Seating Plans - 7A[*]"_s);
    EXPECT_EQ(on<QListWidget>("List2").item(1)->text(), u"Cole\tEd"_s);
    EXPECT_FALSE(on<QComboBox>("C1").isEnabled());
    EXPECT_EQ(desk(1).geometry(), QRect(15, 15, 57, 41));
    EXPECT_EQ(desk(3).accessibleName(), u"Ed Cole, row 1, desk 2"_s);
    EXPECT_EQ(stored().last().place.width(), 1695);
    checkScreen(*window, u"seatingplanfrm"_s);
}

TEST_F(SeatingPlanWindowTest, AMovedDeskIsInTheFileWhenItIsSaved) {
    open();
    const Desks before = stored();
    drag(middle(1), middle(1) + QPoint(100, 50));
    EXPECT_EQ(desk(1).pos(), QPoint(112, 64));
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ(stored(), before);
    menu("mnuUndo").trigger();
    EXPECT_FALSE(window->isWindowModified());
    menu("mnuRedo").trigger();
    click("cmdTool");
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_EQ(stored().first().place.topLeft(), QPoint(112 * 15, 64 * 15));
    drag(middle(1), middle(1) + QPoint(100, 50));
    pick("Sel1", u"9C"_s);
    pick("Sel1", u"7A"_s);
    EXPECT_EQ(desk(1).pos(), QPoint(112, 64)) << "what was not saved is lost with the class";
}

TEST_F(SeatingPlanWindowTest, AllOfItGoesByKeys) {
    open();
    desk(1).setFocus(Qt::TabFocusReason);
    press(*window, Qt::Key_Tab);
    EXPECT_EQ(canvas().selected(), 3) << "in the order of their making";
    EXPECT_TRUE(canvas().findChild<QWidget*>(u"GrabBox"_s)->isVisible());
    press(*window, Qt::Key_Right);
    press(*window, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(desk(3).geometry(), QRect(80, 15, 57, 49));
    press(*window, Qt::Key_F2);
    EXPECT_FALSE(on<QPlainTextEdit>("DeskCaption").isVisible()) << "a pupil bears his own name";
    canvas().select(0);
    press(*window, Qt::Key_F2);
    ASSERT_TRUE(on<QPlainTextEdit>("DeskCaption").hasFocus());
    QTest::keyClicks(&on<QPlainTextEdit>("DeskCaption"), u"Ms Hill"_s);
    QTest::keyClick(&on<QPlainTextEdit>("DeskCaption"), Qt::Key_Return);
    EXPECT_TRUE(desk(0).hasFocus());
    EXPECT_EQ(desk(0).accessibleName(), u"Ms Hill, the teacher's desk"_s);
    press(*window, Qt::Key_Escape);
    EXPECT_EQ(canvas().selected(), std::nullopt);
    menu("mnuSave").trigger();
    EXPECT_EQ(stored().last().caption, u"Ms Hill"_s);
}

TEST_F(SeatingPlanWindowTest, EmptyDesksComeAndGo) {
    open();
    button("Toolbar1(2)").click();
    EXPECT_EQ(canvas().selected(), -1);
    EXPECT_EQ(desk(-1).pos(), QPoint(0, 0));
    button("Toolbar1(2)").click();
    EXPECT_EQ(stored()[4].id, -2);
    canvas().select(-1);
    press(*window, Qt::Key_Delete);
    EXPECT_EQ(stored().size(), 5);
    canvas().select(1);
    EXPECT_FALSE(button("Toolbar1(3)").isEnabled());
    EXPECT_EQ(label("L3"), u"855 615"_s);
}

TEST_F(SeatingPlanWindowTest, APlanOfARoomStandsBesideTheDefaultOne) {
    open();
    seams.prompts.expect(PromptKind::Input, u"Room ID"_s, u"Lab1"_s);
    button("Toolbar3(2)").click();
    EXPECT_EQ(window->windowTitle(), u"Seating Plans - 7A, room Lab1[*]"_s);
    EXPECT_EQ(on<QComboBox>("C1").currentText(), u"Lab1"_s);
    drag(middle(1), middle(1) + QPoint(100, 50));
    click("cmdTool");
    EXPECT_EQ(stored().first().place.left(), 225);
    EXPECT_EQ(stored({u"7A"_s, u"Lab1"_s}).first().place.left(), 112 * 15);
    button("Toolbar1(2)").click();
    canvas().select(-1);
    button("Toolbar1(3)").click();
    EXPECT_EQ(stored({u"7A"_s, u"Lab1"_s}).size(), 5) << "of default plans only";
    EXPECT_EQ(on<QComboBox>("C1").currentText(), u"Default"_s);
    EXPECT_FALSE(button("cmdDel").isEnabled());
    pick("C1", u"Lab1"_s);
    addPupils(session.CurrentDB, u"7A"_s, {u"New,Kid"_s});
    emit session.GetNotices().pupilsChanged(u"7A"_s);
    EXPECT_EQ(label("LbLag"), u"1 pupil has no desk"_s);
    seams.prompts.expect(PromptKind::Message, u"Delete Seating Plan"_s, AnswerYes);
    click("cmdDel");
    EXPECT_FALSE(on<QComboBox>("C1").isEnabled());
    EXPECT_EQ(planTables(session.CurrentDB, {u"7A"_s, u"Lab1"_s}), PlanTables::None);
}

TEST_F(SeatingPlanWindowTest, APupilWhoGoesTakesTheDeskAndNothingElse) {
    open();
    button("Toolbar3(0)").click();
    drag(middle(1), QPoint(300, 200));
    rows(u"SELECT * FROM Class_7A WHERE ID = 2"_s).Delete();
    emit session.GetNotices().pupilsChanged(u"7A"_s);
    EXPECT_EQ(boxes().size(), 3);
    EXPECT_TRUE(window->isWindowModified());
    while (menu("mnuUndo").isEnabled())
        menu("mnuUndo").trigger();
    EXPECT_EQ(desk(1).pos(), QPoint(15, 15));
    click("cmdTool");
}

TEST_F(SeatingPlanWindowTest, AnOutdatedPlanIsMadeAnew) {
    session.CurrentDB.TableDefs().Append(schemaTableDef(Table::SeatingPlan, {}, u"7A"_s));
    seams.prompts.expect(PromptKind::Message, u"Invalid Plan"_s, AnswerOk);
    open();
    EXPECT_EQ(stored().size(), 4);
    put(u"SELECT * FROM sPlan_7A WHERE ID = 2"_s, u"left"_s, 9000);
    for (const PromptAnswer answer : {AnswerNo, AnswerYes}) {
        seams.prompts.expect(PromptKind::Message, u"Regenerate Plan"_s, answer);
        button("Toolbar1(1)").click();
        EXPECT_EQ(stored()[2].place.left() == 9000, answer == AnswerNo);
    }
}

TEST_F(SeatingPlanWindowTest, ColoursSizesAndTheFontAreKept) {
    open();
    seams.prompts.expect(PromptKind::Colour, {}, 0x0000FF);
    on<QPushButton>("CPick(2)").click();
    EXPECT_EQ(settings.get(setting::ClassroomColor), 0x0000FF);
    const QImage room = canvas().picture();
    EXPECT_EQ(room.pixelColor(room.width() - 2, 2), QColor(Qt::red));
    seams.prompts.expect(PromptKind::Font, {},
                         FontRecord{.name = u"DejaVu Sans"_s, .size = 14, .colour = 0xFF0000});
    on<QPushButton>("cmdFont").click();
    EXPECT_EQ(desk(1).font().pointSize(), 14);
    on<QSpinBox>("Text1(0)").setValue(10);
    on<QPushButton>("ButtonEx1").click();
    EXPECT_EQ(desk(2).width(), 81);
    EXPECT_EQ(desk(0).width(), 113);
    on<QPushButton>("ButtonEx2").click();
    EXPECT_EQ(settings.get(setting::DefaultDeskWidth), 10);
    button("Toolbar2(0)").click();
    button("Toolbar2(1)").click();
    const QPoint before = desk(1).pos();
    drag(middle(1), QPoint(300, 200));
    EXPECT_EQ(desk(1).pos(), before);
    pick("Sel1", u"9C"_s);
    EXPECT_FALSE(button("Toolbar2(1)").isChecked());
}

TEST_F(SeatingPlanWindowTest, APlanThatCantBeMadeLeavesTheWindowWithoutDesks) {
    dao::Recordset open7A = rows(u"Class_7A"_s);
    seams.prompts.expect(PromptKind::Message, u"Unable to generate seating plan"_s, AnswerOk);
    open();
    EXPECT_TRUE(boxes().isEmpty());
    button("Toolbar3(0)").click();
    seams.prompts.expect(PromptKind::Plain, u"Save Plan Error"_s, AnswerOk);
    click("cmdTool");
}

TEST_F(SeatingPlanWindowTest, WithoutClassesNothingIsOffered) {
    for (const QString& code : {u"7A"_s, u"8X"_s, u"9C"_s})
        ASSERT_TRUE(Delete_Class(session.CurrentDB, code, seams.prompts));
    open();
    for (const char* tool : {"Toolbar1(1)", "Toolbar1(2)", "Toolbar3(0)", "Toolbar3(2)"})
        EXPECT_FALSE(on<QAction>(tool).isEnabled()) << tool;
    EXPECT_FALSE(button("cmdTool").isEnabled());
}
