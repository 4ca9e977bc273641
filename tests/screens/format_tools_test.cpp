// The toolbar and menus that all rich text boxes of a window share.

#include "controls/format_tools.h"

#include "controls/edit_menu.h"
#include "controls/equation_dialog.h"
#include "controls/insert_object_menu.h"
#include "controls/layout_toolbar.h"
#include "controls/rich_text_box.h"
#include "controls/spelling_marks.h"
#include "controls/symbol_dialog.h"
#include "richtext/highlight.h"
#include "richtext/object_files.h"
#include "richtext/objects.h"
#include "support/screen_checks.h"
#include "support/year_session.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTableView>
#include <QVBoxLayout>

namespace {

QAction& entry(const QMenu& menu, const QString& text) {
    for (QAction* action : menu.actions()) {
        if (action->text() == text)
            return *action;
    }
    qFatal("no entry %s", qPrintable(text));
}

QStringList entries(const QMenu& menu) {
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts += action->isSeparator() ? u"-"_s : action->text();
    return texts;
}

class FormatToolsTest : public YearSession {
protected:
    FormatToolsTest() {
        session.Start(path(u"app"_s));
        m_window.setObjectName(u"ORVAfrm"_s);
        auto* layout = new QVBoxLayout(&m_window);
        layout->addWidget(m_tools.toolbar());
        layout->addWidget(m_tools.colourToolbar());
        for (RichTextBox* box : {m_first, m_second}) {
            layout->addWidget(box);
            m_tools.serve(*box);
        }
        m_window.resize(420, 300);
    }

    /// As a person with the window in front; the first box has the focus.
    void show() {
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_first->setFocus();
    }
    void type(const QString& text) { QTest::keyClicks(m_window.focusWidget(), text); }
    QAction& button(int index) { return *m_tools.toolbar()->button(index); }
    /// The captions of the buttons that are pressed.
    QStringList pressed() {
        QStringList tips;
        for (int i = 0; i < m_tools.toolbar()->buttonCount(); ++i) {
            if (button(i).isChecked())
                tips += button(i).toolTip();
        }
        return tips;
    }
    QAction& highlighter(const QString& colour) {
        return entry(*m_tools.colourToolbar()->button(1)->menu<QMenu*>(), colour);
    }
    QAction& colour(const QString& name) {
        return entry(*m_tools.colourToolbar()->button(0)->menu<QMenu*>(), name);
    }

    QWidget m_window;
    RichTextBox* m_first = new RichTextBox(u"Lesson, period 1"_s);
    RichTextBox* m_second = new RichTextBox(u"Lesson, period 2"_s);
    FormatTools m_tools{session, u"BBBB|BB|B"_s, m_window};
};

} // namespace

TEST_F(FormatToolsTest, NothingCanBeDoneBeforeABoxHasTheFocus) {
    EXPECT_EQ(m_tools.box(), nullptr);
    for (int i = 0; i < m_tools.toolbar()->buttonCount(); ++i)
        EXPECT_FALSE(button(i).isEnabled()) << i;
    show();
    EXPECT_EQ(m_tools.box(), m_first);
    EXPECT_TRUE(button(0).isEnabled());
    m_second->setReadOnly(true);
    m_second->setFocus();
    EXPECT_FALSE(button(0).isEnabled());
    checkScreen(m_window, u"format_tools"_s);
}

TEST_F(FormatToolsTest, TheToolbarFollowsTheCaretOfTheBoxInFocus) {
    show();
    button(0).trigger();
    type(u"bold"_s);
    press(m_window, Qt::Key_B, Qt::ControlModifier);
    press(m_window, Qt::Key_I, Qt::ControlModifier);
    type(u" italic"_s);
    EXPECT_EQ(pressed(), QStringList{u"Italic"_s});
    m_first->select(2, 0);
    EXPECT_EQ(pressed(), QStringList{u"Bold"_s});
    m_first->select(2, 5);
    EXPECT_EQ(pressed(), QStringList());
    button(4).trigger();
    EXPECT_EQ(pressed(), QStringList{u"Superscript"_s});
    button(5).trigger();
    EXPECT_EQ(pressed(), QStringList{u"Subscript"_s});
    m_second->setFocus();
    EXPECT_EQ(pressed(), QStringList());
    button(6).trigger();
    EXPECT_EQ(pressed(), QStringList{u"Bullets"_s});
    m_first->setFocus();
    EXPECT_EQ(pressed(), QStringList{u"Subscript"_s});
}

TEST_F(FormatToolsTest, SizesColoursAndFontsActOnTheSelection) {
    show();
    m_first->setRtf(u"one two"_s);
    m_first->select(0, 3);
    const QMenu& sizeMenu = *button(3).menu<QMenu*>();
    EXPECT_EQ(sizeMenu.actions().size(), 12);
    entry(sizeMenu, u"24"_s).trigger();
    EXPECT_EQ(m_first->selectionFormat().fontSize, 24);
    EXPECT_TRUE(entry(sizeMenu, u"24"_s).isChecked());
    colour(u"Red"_s).trigger();
    EXPECT_EQ(m_first->selectionFormat().colour, QColor(255, 0, 0));
    seams.prompts.expect(PromptKind::Colour, {}, 0x00FF00);
    colour(u"Other..."_s).trigger();
    EXPECT_EQ(m_first->selectionFormat().colour, QColor(0, 255, 0));
    colour(u"Default"_s).trigger();
    EXPECT_FALSE(m_first->selectionFormat().colour->isValid());
    seams.prompts.expect(PromptKind::Font, {},
                         FontRecord{.name = u"Courier"_s, .underline = true, .size = 9});
    entry(*m_tools.formatMenu(), u"Font..."_s).trigger();
    EXPECT_EQ(m_first->selectionFormat().fontName, u"Courier"_s);
    EXPECT_EQ(m_first->selectionFormat().underline, true);
    m_first->select(4, 3);
    EXPECT_NE(m_first->selectionFormat().fontName, u"Courier"_s);
}

TEST_F(FormatToolsTest, TheHighlighterMarksTheSelectionAndKnowsItsColour) {
    show();
    m_first->setRtf(u"one two"_s);
    m_first->select(4, 3);
    highlighter(u"Yellow"_s).trigger();
    EXPECT_TRUE(m_first->dataChanged());
    EXPECT_EQ(richtext::GetHighlightColour(m_first->selectedRtf()), QColor(255, 255, 0));
    auto* menu = m_tools.colourToolbar()->button(1)->menu<QMenu*>();
    emit menu->aboutToShow();
    EXPECT_TRUE(highlighter(u"Yellow"_s).isChecked());
    m_first->select(0, 0);
    emit menu->aboutToShow();
    EXPECT_FALSE(highlighter(u"Yellow"_s).isEnabled());
    m_first->select(4, 3);
    emit menu->aboutToShow();
    highlighter(u"None"_s).trigger();
    EXPECT_EQ(richtext::GetHighlightColour(m_first->selectedRtf()), std::nullopt);
}

TEST_F(FormatToolsTest, TheEditMenuDependsOnTheBoxAtThatMoment) {
    show();
    QAction post(u"Add to Planning: 'Notes'"_s);
    m_tools.editMenu()->addSelectionAction(&post);
    QMenu& menu = *m_tools.editMenu();
    const QStringList needSelection = {u"Cut\tCtrl+X"_s, u"Copy\tCtrl+C"_s, u"Delete\tDel"_s};
    m_first->setRtf(u"one two"_s);
    const auto enabled = [&](const QString& text) {
        emit menu.aboutToShow();
        return entry(menu, text).isEnabled();
    };
    for (const QString& text : needSelection)
        EXPECT_FALSE(enabled(text)) << text.toStdString();
    EXPECT_FALSE(post.isEnabled());
    EXPECT_FALSE(enabled(u"Undo\tCtrl+Z"_s));
    m_first->select(0, 4);
    for (const QString& text : needSelection)
        EXPECT_TRUE(enabled(text)) << text.toStdString();
    EXPECT_TRUE(post.isEnabled());

    entry(menu, u"Copy\tCtrl+C"_s).trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"one "_s);
    entry(menu, u"Delete\tDel"_s).trigger();
    EXPECT_EQ(m_first->plainText(), u"two"_s);
    EXPECT_TRUE(enabled(u"Undo\tCtrl+Z"_s));
    entry(menu, u"Undo\tCtrl+Z"_s).trigger();
    EXPECT_EQ(m_first->plainText(), u"one two"_s);
    entry(menu, u"Select All\tCtrl+A"_s).trigger();
    EXPECT_EQ(m_first->selectionLength(), 7);
    EXPECT_TRUE(enabled(u"Cut\tCtrl+X"_s));
    entry(menu, u"Cut\tCtrl+X"_s).trigger();
    EXPECT_EQ(m_first->plainText(), QString());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"one two"_s);
    EXPECT_TRUE(enabled(u"Paste\tCtrl+V"_s));
    entry(menu, u"Paste\tCtrl+V"_s).trigger();
    EXPECT_EQ(m_first->plainText(), u"one two"_s);
    m_first->setReadOnly(true);
    m_first->selectAll();
    EXPECT_FALSE(enabled(u"Cut\tCtrl+X"_s));
    EXPECT_TRUE(enabled(u"Copy\tCtrl+C"_s));
}

TEST_F(FormatToolsTest, TheEditMenuOffersOtherSpellings) {
    if (richtext::Speller::shared().isRight(u"colourr"))
        GTEST_SKIP() << "no British dictionary is installed";
    show();
    m_first->setRtf(u"{\\rtf1\\ansi\\pard the {\\b colourr}\\par}"_s);
    m_first->spelling().check();
    m_first->select(6, 0);
    QMenu& menu = *m_tools.editMenu();
    emit menu.aboutToShow();
    entry(menu, u"colour"_s).trigger();
    EXPECT_EQ(m_first->plainText().trimmed(), u"the colour"_s);
    m_first->select(4, 6);
    EXPECT_EQ(m_first->selectionFormat().bold, true);
    m_first->select(1, 0);
    emit menu.aboutToShow();
    EXPECT_FALSE(entries(menu).contains(u"colour"_s));
    EXPECT_EQ(entries(menu).first(), u"Undo\tCtrl+Z"_s);
}

TEST_F(FormatToolsTest, ASymbolTakesTheSelectionsPlaceInItsFont) {
    show();
    m_first->setRtf(u"a = pi"_s);
    m_first->selectAll();
    m_first->setFontName(u"Courier"_s);
    m_first->select(4, 2);
    QString font;
    whenAsked([&](QWidget& window) {
        checkScreen(window, u"frmChars"_s);
        control<QComboBox>(window, u"cmbGroup"_s).setCurrentText(u"Greek"_s);
        auto& table = control<QTableView>(window, u"grdChars"_s);
        for (int cell = 0; table.currentIndex().data().toString() != u"\u03C0"_s && cell < 200;
             ++cell)
            table.setCurrentIndex(table.model()->index(cell / 16, cell % 16));
        font = control<QComboBox>(window, u"cmbFont"_s).currentText();
        window.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    entry(*m_tools.insertMenu(), u"Symbol..."_s).trigger();
    EXPECT_EQ(m_first->plainText(), u"a = \u03C0"_s);
    type(u"!"_s);
    EXPECT_EQ(m_first->plainText(), u"a = \u03C0!"_s);
    const auto fontAt = [&](int position) {
        m_first->select(position, 1);
        return *m_first->selectionFormat().fontName;
    };
    EXPECT_EQ(fontAt(4), font);
    EXPECT_EQ(fontAt(5), fontAt(0));
}

TEST_F(FormatToolsTest, AnEquationIsMadeAndEditedAgain) {
    show();
    const auto typeFormula = [](const QString& formula) {
        whenAsked([formula](QWidget& window) {
            checkScreen(window, u"EquationFrm"_s);
            control<QLineEdit>(window, u"txtFormula"_s).setText(formula);
            window.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        });
    };
    typeFormula(u"x^2 <= pi"_s);
    entry(*m_tools.insertMenu(), u"Equation Editor"_s).trigger();
    auto object = richtext::objectAt(m_first->textCursor());
    ASSERT_TRUE(object);
    EXPECT_EQ(object->className, u"Equation"_s);
    EXPECT_EQ(object->name, u"x\u00B2 \u2264 \u03C0"_s);

    m_first->select(0, 1);
    typeFormula(object->name + u" + 1"_s);
    emit m_tools.editMenu()->aboutToShow();
    entry(*m_tools.editMenu(), u"Open Object"_s).trigger();
    EXPECT_EQ(m_first->plainText(), QString(QChar::ObjectReplacementCharacter));
    m_first->select(0, 1);
    EXPECT_EQ(richtext::objectAt(m_first->textCursor())->name, u"x\u00B2 \u2264 \u03C0 + 1"_s);
}

TEST_F(FormatToolsTest, APackagedFileIsOpenedFromAPrivateCopy) {
    show();
    const QString original = writeFile(path(u"Work sheet.txt"_s), "2 + 2 =");
    seams.prompts.expect(PromptKind::File, u" Select the file to link to :"_s, original);
    entry(*m_tools.insertMenu(), u"Packager..."_s).trigger();
    EXPECT_TRUE(richtext::holdsObject(m_first->rtf()));
    m_first->setRtf(m_first->rtf());
    QFile::remove(original);

    m_first->select(0, 1);
    emit m_first->objectActivated();
    ASSERT_EQ(seams.shell.runs.size(), 1);
    EXPECT_EQ(seams.shell.runs[0].verb, u"Open"_s);
    const QString copy = seams.shell.runs[0].file;
    EXPECT_EQ(QFileInfo(copy).fileName(), u"Work sheet.txt"_s);
    EXPECT_EQ(bytesOf(copy), QByteArray("2 + 2 ="));
    delete &richtext::ObjectFiles::ofProcess({}); // as the end of the program does
    EXPECT_FALSE(QFile::exists(copy));

    seams.prompts.expect(PromptKind::File, u" Select the file to link to :"_s, original);
    seams.prompts.expect(PromptKind::Plain, u"Insert Object"_s, AnswerOk);
    entry(*m_tools.insertMenu(), u"Packager..."_s).trigger();
    EXPECT_TRUE(seams.prompts.last().text.contains(original));
}

TEST_F(FormatToolsTest, AFileBeyondTheLimitIsRefusedWithTheReason) {
    show();
    m_first->setLimit(2000);
    const QString file = writeFile(path(u"Work sheet.txt"_s), QByteArray(1000, 'x'));
    seams.prompts.expect(PromptKind::File, u" Select the file to link to :"_s, file);
    seams.prompts.expect(PromptKind::Plain, u"Too much data"_s, AnswerOk);
    entry(*m_tools.insertMenu(), u"Packager..."_s).trigger();
    EXPECT_FALSE(m_first->dataChanged());
    EXPECT_TRUE(seams.prompts.last().text.contains(u"Lesson, period 1"_s));
}

TEST_F(FormatToolsTest, APictureIsScaledDownOnRequest) {
    show();
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(Qt::white);
    for (int i = 0; i < picture.height(); ++i)
        picture.setPixel(qHash(i) % 400, i, qHash(i));
    QApplication::clipboard()->setImage(picture);
    m_first->setLimit(4000);
    for (const auto& [answer, isThere] : {std::pair(AnswerNo, false), std::pair(AnswerYes, true)}) {
        seams.prompts.expect(PromptKind::Plain, u"Too much data"_s, answer);
        press(m_window, Qt::Key_V, Qt::ControlModifier);
        QCoreApplication::processEvents();
        EXPECT_EQ(m_first->dataChanged(), isThere);
        EXPECT_LE(m_first->rtf().size(), 4000);
    }
}

TEST_F(FormatToolsTest, OneMenuStandsInSeveralPlaces) {
    LayoutToolbar bar(u"Keys"_s, u"BB"_s, u"One|Insert"_s, u"bold|insert_object"_s);
    QMenu other;
    other.addMenu(m_tools.insertMenu());
    bar.setMenu(1, m_tools.insertMenu());
    for (QMenu* menu : {&other, static_cast<QMenu*>(m_tools.editMenu())})
        EXPECT_EQ(entry(*menu, u"Insert Object"_s).menu<QMenu*>(), m_tools.insertMenu());
    EXPECT_EQ(bar.button(1)->menu<QMenu*>(), m_tools.insertMenu());
    EXPECT_EQ(bar.button(1)->toolTip(), u"Insert"_s);
}

TEST_F(FormatToolsTest, AShortToolbarLeavesTheOtherCommandsToTheMenu) {
    QWidget window;
    FormatTools tools(session, u"BBB"_s, window);
    auto* box = new RichTextBox(u"Day 1"_s, &window);
    tools.serve(*box);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    box->setFocus();
    EXPECT_EQ(tools.toolbar()->buttonCount(), 3);
    entry(*tools.formatMenu(), u"Superscript"_s).trigger();
    entry(*entry(*tools.formatMenu(), u"Font Size"_s).menu<QMenu*>(), u"18"_s).trigger();
    EXPECT_EQ(box->selectionFormat().offset, CharOffset::Superscript);
    EXPECT_EQ(box->selectionFormat().fontSize, 18);
    EXPECT_TRUE(entry(*tools.formatMenu(), u"Superscript"_s).isChecked());
}

TEST_F(FormatToolsTest, TheToolbarOutlivesItsBox) {
    show();
    m_second->setEnabled(false);
    delete m_first;
    EXPECT_EQ(m_tools.box(), nullptr);
    EXPECT_FALSE(button(0).isEnabled());
    emit m_tools.editMenu()->aboutToShow();
    m_second->setEnabled(true);
    m_second->setFocus();
    EXPECT_TRUE(button(0).isEnabled());
}
