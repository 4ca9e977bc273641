// The window of the incident reports, driven through its own controls.

#include "incidents/incident_settings.h"
#include "incidents/screens/incident_window.h"
#include "store/table_names.h"
#include "support/class_file.h"
#include "support/screen_planning.h"

#include <QTabWidget>
#include <QTreeView>

namespace {

class IncidentWindowTest : public PlanningScreen<IncidentWindow, ToolWindow::Incidents> {
protected:
    QTreeView& tree() { return on<QTreeView>("tv1"); }
    QPushButton& push(const char* name) { return on<QPushButton>(name); }
    QLineEdit& line(const char* name) { return on<QLineEdit>(name); }
    void add(const QString& forename, const QString& surname) {
        push("cmdNew").click();
        line("Text1(0)").setText({});
        line("Text1(1)").setText({});
        QTest::keyClicks(&line("Text1(0)"), forename);
        QTest::keyClicks(&line("Text1(1)"), surname);
        push("cmdOK").click();
    }
    void select(int pupil, int report = -1) {
        QModelIndex at = tree().model()->index(pupil, 0);
        tree().expand(at);
        if (report >= 0)
            at = tree().model()->index(report, 0, at);
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualRect(at).center());
    }
    QString stored(const QString& field) {
        return richtext::plainText(rows(IncidentDetailsTable).Collect(field).toText());
    }
};

} // namespace

TEST_F(IncidentWindowTest, AReportIsMadeTypedAndKeptAfterTwoSeconds) {
    open();
    EXPECT_FALSE(tree().isEnabled());
    EXPECT_TRUE(push("cmdNew").hasFocus());
    add(u"ann marie"_s, u"O'Brien"_s);
    EXPECT_EQ(tree().currentIndex().parent().data(), u"annmarie O'Brien"_s) << "no blanks in names";
    EXPECT_EQ(label("lbevent"), u"Rudeness to a member of staff"_s);
    EXPECT_TRUE(box("RT1(0)").hasFocus());
    type("RT1(0)", u"Yesterday #threw a chair"_s);
    seams.clock.advance(std::chrono::seconds(2));
    EXPECT_EQ(stored(u"Incident"_s), u"Yesterday Annmarie threw a chair"_s);
    checkScreen(*window, u"incidentfrm"_s);
    push("cmdNew").click();
    EXPECT_EQ(line("Text1(0)").text(), u"annmarie"_s) << "the selected pupil";
    checkScreen(*window, u"incidentfrm_new"_s);
    push("cmdOK").click();
    EXPECT_EQ(rows(IncidentNamesTable).RecordCount(), 1);
    EXPECT_TRUE(box("RT1(0)").plainText().isEmpty()) << "the last report comes first";
    select(0, 1);
    EXPECT_EQ(box("RT1(0)").plainText(), u"Yesterday Annmarie threw a chair"_s);
    select(0);
    EXPECT_FALSE(box("RT1(0)").isEnabled());
    EXPECT_TRUE(box("RT1(0)").plainText().isEmpty());
}

TEST_F(IncidentWindowTest, AnEmptiedBoxKeepsWhatItsFieldHad) {
    open();
    add(u"Ann"_s, u"Lee"_s);
    on<QTabWidget>("LightTab1").setCurrentIndex(4);
    for (const QString& text : {u"Head of year"_s, QString()}) {
        line("text2(2)").selectAll();
        QTest::keyClick(&line("text2(2)"), Qt::Key_Delete);
        QTest::keyClicks(&line("text2(2)"), text);
        select(0);
        select(0, 0);
        EXPECT_EQ(line("text2(2)").text(), u"Head of year"_s);
    }
}

TEST_F(IncidentWindowTest, ADeletedReportTakesWhatIsTypedInItAlong) {
    open();
    add(u"Ann"_s, u"Lee"_s);
    add(u"Bo"_s, u"May"_s);
    type("RT1(0)", u"not kept yet"_s);
    push("cmdDelete").click();
    EXPECT_EQ(tree().model()->rowCount(), 1);
    seams.clock.advance(std::chrono::seconds(5));
    EXPECT_EQ(rows(IncidentDetailsTable).RecordCount(), 1) << "nothing is put back";
    seams.prompts.expect(PromptKind::Message, {}, AnswerOk);
    push("cmdDelete").click();
    EXPECT_EQ(seams.prompts.last().text, u"Unknown selection"_s);
    select(0);
    for (const PromptAnswer answer : {AnswerNo, AnswerYes}) {
        seams.prompts.expect(PromptKind::Message, u"Delete Incidents"_s, answer);
        push("cmdDelete").click();
        EXPECT_EQ(rows(IncidentNamesTable).RecordCount(), answer == AnswerNo ? 1 : 0);
    }
    EXPECT_FALSE(tree().isEnabled());
}

TEST_F(IncidentWindowTest, APupilIsPickedFromAClass) {
    addPupils(session.CurrentDB, u"7A"_s, {u"O'Brien,Mary Ann"_s, u"Lee,Bo"_s});
    put(u"SELECT * FROM Class_7A WHERE Firstname = 'Mary Ann'"_s, u"Tutor"_s, u"Ms Hill"_s);
    open();
    push("cmdNew").click();
    push("cmdClasses").click();
    on<QListWidget>("List2").setCurrentRow(0);
    on<QListWidget>("List3").setCurrentRow(1);
    EXPECT_EQ(line("Text1(2)").text(), u"Ms Hill"_s);
    push("cmdOK").click();
    EXPECT_EQ(tree().currentIndex().parent().data(), u"Mary Ann O'Brien"_s);
    add(u"Bo"_s, u"Lee"_s);
    select(1);
    push("cmdNew").click();
    EXPECT_EQ(line("Text1(0)").text(), u"Mary"_s) << "up to the blank";
    push("cmdOK").click();
    EXPECT_EQ(rows(IncidentNamesTable).RecordCount(), 2) << "the same pupil all the same";
}

TEST_F(IncidentWindowTest, ClosingKeepsTheReportAndAsksForANewOneThatIsNotMade) {
    open();
    add(u"Ann"_s, u"Lee"_s);
    type("RT1(3)", u"letter"_s);
    push("cmdNew").click();
    EXPECT_EQ(stored(u"Further"_s), u"letter"_s);
    QTest::keyClicks(&line("Text1(2)"), u"Hill"_s);
    for (const PromptAnswer answer : {AnswerNo, AnswerYes}) {
        seams.prompts.expect(PromptKind::Message, u"Not saved"_s, answer);
        window->parentWidget()->close();
        EXPECT_EQ(frame->isOpen(ToolWindow::Incidents), answer == AnswerNo);
    }
}
