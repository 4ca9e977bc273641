// How the help is made from its pages, what the real pages hold, and the help window driven through
// its controls.

#include "frame/screens/window_table.h"
#include "help/help_builder.h"
#include "help/help_file.h"
#include "help/screens/help_page_view.h"
#include "help/screens/help_panes.h"
#include "help/screens/help_viewer.h"
#include "help/screens/help_window.h"
#include "support/engine_places.h"
#include "support/screen_checks.h"
#include "support/year_session.h"

#include <QDialog>
#include <QTabWidget>

namespace {

/// Pages of a test's own, with a picture.
class HelpPagesTest : public testing::Test {
protected:
    HelpPagesTest() {
        add(u"contents.txt"_s, u"First chapter\n    one\nSecond chapter\n    two\n"_s);
        add(u"one.md"_s, u"title: Page one\nnumber: 1\nkeywords: a, b c\ncontexts: AFrm\n\n"
                         "See [the other](two.md).\n\n![picture](shown.png)\n"_s);
        add(u"two.md"_s,
            u"title: Page two\nnumber: 2\nwindow: TwoFrm\n\nBack to [one](one.md).\n"_s);
        add(u"shown.png"_s, u"PNG"_s);
    }

    void add(const QString& name, const QString& content) {
        writeFile(folder.filePath(name), content.toUtf8());
    }
    BuiltHelp make(const QStringList& windows = {u"TwoFrm"_s}) const {
        return buildHelp(folder.path(), folder.path(), windows);
    }

    QTemporaryDir folder;
};

/// The help that the build made.
HelpBook realBook() {
    ReadHelp read = readHelpFile(test::built(u"share/orva/ORVA.hlp"_s));
    EXPECT_TRUE(read.book) << "build orva_help first: " << read.fault.toStdString();
    return read.book.value_or(HelpBook());
}

class HelpWindowTest : public testing::Test {
protected:
    HelpWindowTest() {
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    HelpPageView& view() { return control<HelpPageView>(window, u"HelpPage"_s); }
    QString shown() { return view().page() < 0 ? QString() : book.pages[view().page()].name; }
    void click(const QString& button) { control<QToolButton>(window, button).click(); }
    void type(const QString& field, const QString& text) {
        auto& edit = control<QLineEdit>(window, field);
        edit.setFocus();
        edit.clear();
        QTest::keyClicks(&edit, text);
    }

    QTemporaryDir folder;
    Settings settings{folder.filePath(u"settings.ini"_s)};
    HelpBook book = realBook();
    HelpWindow window{book, settings, nullptr};
};

} // namespace

TEST_F(HelpPagesTest, PagesBecomeABook) {
    const BuiltHelp built = make();
    EXPECT_EQ(built.faults, QStringList());
    const HelpBook& book = built.book;
    ASSERT_EQ(book.pages.size(), 2);
    EXPECT_EQ(book.pages[0].keywords, QStringList({u"a"_s, u"b c"_s}));
    EXPECT_EQ(book.pages[0].text.simplified(), u"See the other.");
    EXPECT_EQ(book.chapters.size(), 2);
    EXPECT_EQ(book.pictures.value(u"shown.png"_s), "PNG");
}

TEST_F(HelpPagesTest, APageAboutAMissingWindowIsLeftOut) {
    const BuiltHelp built = make({});
    EXPECT_EQ(built.faults, QStringList());
    ASSERT_EQ(built.book.pages.size(), 1);
    ASSERT_EQ(built.book.chapters.size(), 1);
    EXPECT_TRUE(built.book.pages[0].markdown.contains(u"See the other."));
}

TEST_F(HelpPagesTest, FaultsAreTold) {
    const struct {
        QString name;
        QString content;
        QString fault;
    } cases[] = {
        {u"one.md"_s, u"title: One\nnumber: 1\n\n[x](three.md)"_s,
         u"one: has a link to \"three.md\""_s},
        {u"one.md"_s, u"title: One\nnumber: 1\n\n[x](https://x.org)"_s, u"one: has a link to"_s},
        {u"two.md"_s, u"title: Two\nnumber: 2\nwindow: X\n\n[x](three.md)"_s, u"two: has a link"_s},
        {u"one.md"_s, u"title: One\nnumber: 1\n\n![x](none.png)"_s, u"one: shows \"none.png\""_s},
        {u"one.md"_s, u"title: One\nnumber: 2\n\ntext"_s, u"two: claims number 2"_s},
        {u"two.md"_s, u"title: Two\nnumber: 2\ncontexts: B, AFrm\n\ntext"_s, u"two: claims AFrm"_s},
        {u"one.md"_s, u"number: 1\n\ntext"_s, u"one: has no title"_s},
        {u"one.md"_s, u"title: One\n\ntext"_s, u"one: has no number"_s},
        {u"one.md"_s, u"title: One\nnumber: 1\nwindows: A\n\ntext"_s,
         u"one: has the unknown line"_s},
        {u"three.md"_s, u"title: Three\nnumber: 3\n\ntext"_s, u"three: is not in the contents"_s},
        {u"contents.txt"_s, u"C\n one\n two\n four\n"_s,
         u"four: is in the contents and has no page"_s},
        {u"contents.txt"_s, u"C\n one\n two\n one\n"_s, u"one: is in the contents twice"_s},
    };
    for (const auto& [name, content, fault] : cases) {
        const QString file = folder.filePath(name);
        const QByteArray former = bytesOf(file);
        add(name, content);
        EXPECT_TRUE(make().faults.join(u'\n').contains(fault)) << fault.toStdString();
        if (former.isEmpty())
            QFile::remove(file);
        else
            writeFile(file, former);
    }
}

TEST(HelpPages, TheRealPagesAreWhole) {
    QStringList windows;
    for (const WindowEntry& entry : windowTable())
        windows += entry.name;
    const BuiltHelp built = buildHelp(test::helpPages(), test::built(u"help/pictures"_s), windows);
    EXPECT_EQ(built.faults, QStringList());
    for (const QString& window : windows)
        EXPECT_GE(built.book.topicOf({window}), 0) << "no page about " << window.toStdString();
    for (const HelpPage& page : built.book.pages) {
        EXPECT_FALSE(page.keywords.isEmpty()) << page.name.toStdString();
        EXPECT_FALSE(page.text.contains(u"**")) << page.name.toStdString();
    }
}

TEST_F(HelpWindowTest, IsFitForEverybody) {
    auto& tabs = control<QTabWidget>(window, u"HelpTabs"_s);
    for (const HelpCommand command : {HelpIndex, HelpSearch}) {
        window.showHelp(command);
        checkScreen(window, u"HelpFrm_%1"_s.arg(tabs.currentIndex()));
    }
    press(window, Qt::Key_F, Qt::ControlModifier);
    type(u"SearchField"_s, u"backup file"_s);
    press(window, Qt::Key_Return);
    checkScreen(window, u"HelpFrm_found"_s);
    window.showHelp(HelpContext, {u"StartupWiz"_s});
    checkScreen(window, u"HelpFrm_page"_s);
}

TEST_F(HelpWindowTest, ContentsIndexAndSearchLeadToPages) {
    EXPECT_EQ(shown(), u"welcome");
    window.showHelp(HelpIndex);
    press(window, Qt::Key_Down);
    press(window, Qt::Key_Return);
    EXPECT_EQ(shown(), u"files");
    EXPECT_EQ(window.windowTitle(), u"ORVA Help: Where your files are");

    auto& tabs = control<QTabWidget>(window, u"HelpTabs"_s);
    tabs.setCurrentIndex(1);
    type(u"IndexField"_s, u"Encr"_s);
    press(window, Qt::Key_Return);
    EXPECT_EQ(shown(), u"passwords");

    for (int presses = 0; presses < 2; ++presses) { // also where the search is in front
        view().setFocus();
        press(window, Qt::Key_S, Qt::AltModifier);
        QCoreApplication::processEvents();
        EXPECT_TRUE(control<QLineEdit>(window, u"SearchField"_s).hasFocus());
    }
    type(u"SearchField"_s, u"older format"_s);
    press(window, Qt::Key_Return);
    EXPECT_EQ(shown(), u"older-files");
    EXPECT_FALSE(view().extraSelections().isEmpty());
    type(u"SearchField"_s, u"xyzzy"_s);
    EXPECT_TRUE(
        control<QListWidget>(window, u"SearchList"_s).item(0)->text().startsWith(u"No page"));
    press(window, Qt::Key_Return);
    EXPECT_EQ(shown(), u"older-files");
}

TEST_F(HelpWindowTest, TheWayBackIsKept) {
    EXPECT_FALSE(control<QToolButton>(window, u"Help_Btns(0)"_s).isEnabled());
    view().setFocus();
    QTest::keyClick(&view(), Qt::Key_Tab); // the first link of the page
    QTest::keyClick(&view(), Qt::Key_Return);
    EXPECT_EQ(shown(), u"first-start");
    window.showHelp(HelpContext, {u"PasswordORVA"_s});
    EXPECT_EQ(shown(), u"passwords");
    click(u"Help_Btns(0)"_s);
    EXPECT_EQ(shown(), u"first-start");
    press(window, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(shown(), u"welcome");
    press(window, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(shown(), u"first-start");
    click(u"Help_Btns(1)"_s);
    EXPECT_EQ(shown(), u"passwords");
    click(u"Help_Btns(2)"_s);
    EXPECT_EQ(shown(), u"welcome");
    window.showHelp(HelpContext, {u"UnknownFrm"_s});
    EXPECT_EQ(shown(), u"welcome");
}

TEST_F(HelpWindowTest, FindsInThePageAndZooms) {
    window.showHelp(HelpContext, {u"ProgressFrm"_s});
    press(window, Qt::Key_F, Qt::ControlModifier);
    type(u"FindField"_s, u"oldest"_s);
    const int first = view().textCursor().position();
    EXPECT_EQ(view().textCursor().selectedText(), u"oldest");
    press(window, Qt::Key_Return);
    EXPECT_GT(view().textCursor().position(), first);
    press(window, Qt::Key_F3); // round the end
    EXPECT_EQ(view().textCursor().position(), first);
    type(u"FindField"_s, u"hippopotamus"_s);
    EXPECT_EQ(control<QLabel>(window, u"FindState"_s).text(), u"Not in this page");
    press(window, Qt::Key_Escape);
    EXPECT_FALSE(control<QLineEdit>(window, u"FindField"_s).isVisible());

    const auto size = [this] { return view().font().pointSize(); };
    const int usual = size();
    click(u"Help_Btns(4)"_s);
    EXPECT_EQ(size(), usual + 1);
    press(window, Qt::Key_Minus, Qt::ControlModifier);
    press(window, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(size(), usual - 1);
    press(window, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(size(), usual);
    press(window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(HelpWindowTest, PicturesAreNoWiderThanTheView) {
    for (const int width : {900, 600, 1200}) {
        window.resize(width, 600);
        QCoreApplication::processEvents();
        EXPECT_LE(view().document()->idealWidth(), view().viewport()->width()) << width;
    }
}

namespace {

class HelpViewerTest : public YearSession {
protected:
    HelpViewerTest() {
        session.Start(path(u"app"_s));
        main.setObjectName(u"mdiORVA"_s);
        main.show();
    }

    HelpWindow* window() const {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* help = qobject_cast<HelpWindow*>(widget))
                return help;
        }
        return nullptr;
    }

    QWidget main;
    HelpViewer viewer{session, main};
};

} // namespace

TEST_F(HelpViewerTest, AskedFromADialogItStaysUsableAndOutlivesTheDialog) {
    {
        QDialog dialog(&main);
        dialog.setObjectName(u"PasswordORVA"_s);
        auto* field = new QLineEdit(&dialog);
        dialog.setModal(true);
        dialog.show();
        viewer.showHelp(HelpContext, field);
        ASSERT_TRUE(window());
        EXPECT_EQ(window()->windowTitle(), u"ORVA Help: Years with a password");
        EXPECT_EQ(window()->parentWidget(), &dialog); // else the dialog would keep input from it
        EXPECT_TRUE(window()->isVisible());
    }
    ASSERT_TRUE(window());
    EXPECT_EQ(window()->parentWidget(), &main);
    EXPECT_TRUE(window()->isVisible());

    const HelpWindow* first = window();
    window()->close();
    viewer.showHelp(HelpIndex);
    EXPECT_EQ(window(), first);
    EXPECT_TRUE(first->isVisible());
}

TEST_F(HelpViewerTest, AFileThatCantBeUsedIsTold) {
    ASSERT_TRUE(QDir().mkpath(session.helpFile())); // a folder, which nothing can replace
    seams.prompts.expect(PromptKind::Plain, u"ORVA Help"_s, AnswerOk);
    viewer.showHelp(HelpIndex);
    EXPECT_TRUE(seams.prompts.last().text.contains(session.helpFile()));
    EXPECT_FALSE(window());
    ASSERT_TRUE(QDir().rmdir(session.helpFile()));
    viewer.showHelp(HelpIndex);
    EXPECT_TRUE(window());
    EXPECT_TRUE(QFile::exists(session.helpFile()));
}
