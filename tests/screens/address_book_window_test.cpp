// The address book's window, driven through its own controls.

#include "organiser/screens/address_book_window.h"
#include "support/screen_planning.h"

#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTreeView>

namespace {

class AddressBookWindowTest : public PlanningScreen<AddressBookWindow, ToolWindow::AddressBook> {
protected:
    void TearDown() override {
        frame.reset();
        session.CloseAllDatabases();
    }
    void add(const QString& name) {
        seams.prompts.expect(PromptKind::Input, u"Enter Contact Name:"_s, name);
        on<QPushButton>("FlatButton1(0)").click();
    }
    QString selected() { return on<QTreeView>("TV1").currentIndex().data().toString(); }
    QLineEdit& line(int field) { return control<QLineEdit>(*window, u"HT1(%1)"_s.arg(field)); }
    Contact stored(int number) {
        AddressBook book(session);
        EXPECT_TRUE(book.load_Contacts_DB());
        return book.contact(book.entries().value(number)).value_or(Contact());
    }
};

} // namespace

TEST_F(AddressBookWindowTest, AContactIsAddedTypedAndFoundAgain) {
    open();
    EXPECT_TRUE(on<QLabel>("L3").isVisible());
    checkScreen(*window, u"ContactsFrm_front"_s);
    add(u"Ann Lee"_s);
    EXPECT_EQ(selected(), u"Ann Lee"_s);
    line(HomePostcode).setFocus();
    QTest::keyClicks(&line(HomePostcode), u"AB1 2CD"_s);
    seams.clock.advance(std::chrono::seconds(2));
    EXPECT_EQ(stored(0)[HomePostcode], u"AB1 2CD"_s);
    checkScreen(*window, u"ContactsFrm"_s);
    add(u"Bo O'Brien"_s);
    EXPECT_TRUE(line(HomePostcode).text().isEmpty());
    line(Surname).selectAll();
    QTest::keyClicks(&line(Surname), u"Abel"_s);
    on<QPushButton>("FlatButton1(2)").click();
    EXPECT_EQ(selected(), u"Bo Abel"_s);
    QTreeView& tree = on<QTreeView>("TV1");
    tree.setCurrentIndex(tree.model()->index(0, 0, tree.model()->index(u'L' - u'A', 0)));
    EXPECT_EQ(line(HomePostcode).text(), u"AB1 2CD"_s);
    EXPECT_EQ(selected(), u"Ann Lee"_s);
}

TEST_F(AddressBookWindowTest, TheFrontPageIsWrittenOnLeavingIt) {
    open();
    on<QLabel>("L3").setFocus();
    press(*window, Qt::Key_Return);
    ASSERT_TRUE(on<QPlainTextEdit>("T1").isVisible());
    QTest::keyClicks(&on<QPlainTextEdit>("T1"), u"In case of fire: 999"_s);
    on<QTreeView>("TV1").setFocus();
    EXPECT_EQ(label("L3"), u"In case of fire: 999"_s);
    close();
    open();
    EXPECT_EQ(label("L3"), u"In case of fire: 999"_s);
}
