// The rich text box by itself: the document in and out, what is typed, pasted and copied.

#include "controls/rich_text_box.h"

#include "controls/spelling_marks.h"
#include "richtext/objects.h"
#include "richtext/pictures.h"
#include "support/screen_checks.h"

#include <QClipboard>
#include <QMimeData>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextList>
#include <QVBoxLayout>

namespace {

const QString lesson = u"{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Arial;}}\r\n"
                       "{\\colortbl ;\\red255\\green0\\blue0;}\r\n"
                       "\\pard\\plain\\f0\\fs24 Read \\b page\\b0  4\r\n"
                       "\\par \\pard\\plain\\f0\\fs24\\cf1 Homework\r\n\\par }"_s;

class RichTextBoxTest : public testing::Test {
protected:
    RichTextBoxTest() {
        m_box.resize(300, 200);
        m_box.show();
        m_box.setFocus();
    }

    void type(const QString& text) { QTest::keyClicks(&m_box, text); }

    RichTextBox m_box{u"Lesson, period 1"_s};
};

void putOnClipboard(const QString& type, const QByteArray& bytes) {
    auto* data = new QMimeData;
    data->setData(type, bytes);
    data->setText(u"the plain form"_s);
    QApplication::clipboard()->setMimeData(data);
}

} // namespace

TEST_F(RichTextBoxTest, WhatIsSetIsUnchangedAndWhatIsTypedIsNot) {
    QSignalSpy edited(&m_box, &RichTextBox::edited);
    for (const QString& text : {lesson, QString(), u"plain"_s}) {
        m_box.setRtf(text);
        EXPECT_FALSE(m_box.dataChanged());
        EXPECT_FALSE(m_box.document()->isUndoAvailable());
    }
    EXPECT_TRUE(edited.isEmpty());
    m_box.setRtf(lesson);
    EXPECT_EQ(m_box.plainText(), u"Read page 4\nHomework"_s);
    const QString before = m_box.rtf();
    type(u"x"_s);
    EXPECT_TRUE(m_box.dataChanged());
    EXPECT_FALSE(edited.isEmpty());
    EXPECT_EQ(m_box.plainText(), u"xRead page 4\nHomework"_s);
    QTest::keyClick(&m_box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(m_box.dataChanged());
    EXPECT_EQ(m_box.rtf(), before);
}

TEST_F(RichTextBoxTest, ReadsAndWritesTheLookOfASelection) {
    m_box.setRtf(lesson);
    m_box.select(5, 4);
    EXPECT_EQ(m_box.selectedText(), u"page"_s);
    EXPECT_EQ(m_box.selectionFormat().bold, true);
    EXPECT_EQ(m_box.selectionFormat().fontSize, 12);
    EXPECT_FALSE(m_box.selectionFormat().colour->isValid());
    m_box.select(0, 100);
    EXPECT_EQ(m_box.selectionStart(), 0);
    EXPECT_EQ(m_box.selectionLength(), 20);
    EXPECT_EQ(m_box.selectionFormat().bold, std::nullopt);
    EXPECT_EQ(m_box.selectionFormat().colour, std::nullopt);
    EXPECT_EQ(m_box.selectionFormat().fontName, u"Arial"_s);

    const struct {
        std::function<void()> change;
        std::function<bool(const SelectionFormat&)> holds;
    } changes[] = {
        {[&] { m_box.setBold(true); }, [](auto& look) { return look.bold == true; }},
        {[&] { m_box.setItalic(true); }, [](auto& look) { return look.italic == true; }},
        {[&] { m_box.setUnderline(true); }, [](auto& look) { return look.underline == true; }},
        {[&] { m_box.setFontSize(18); }, [](auto& look) { return look.fontSize == 18; }},
        {[&] { m_box.setFontName(u"Times"_s); },
         [](auto& look) { return look.fontName == u"Times"_s; }},
        {[&] { m_box.setColour(Qt::blue); }, [](auto& look) { return look.colour == Qt::blue; }},
        {[&] { m_box.setColour({}); }, [](auto& look) { return look.colour == QColor(); }},
        {[&] { m_box.setCharOffset(CharOffset::Subscript); },
         [](auto& look) { return look.offset == CharOffset::Subscript; }},
        {[&] { m_box.setBullet(true); }, [](auto& look) { return look.bullet == true; }},
        {[&] { m_box.setBullet(false); }, [](auto& look) { return look.bullet == false; }},
    };
    int number = 0;
    for (const auto& [change, holds] : changes) {
        m_box.setRtf(lesson);
        m_box.selectAll();
        change();
        EXPECT_TRUE(holds(m_box.selectionFormat())) << number;
        const QString kept = m_box.rtf();
        m_box.setRtf(kept);
        m_box.selectAll();
        EXPECT_TRUE(holds(m_box.selectionFormat())) << "read again " << number;
        EXPECT_EQ(m_box.plainText(), u"Read page 4\nHomework"_s) << number;
        ++number;
    }
}

TEST_F(RichTextBoxTest, TheDefaultFontIsForEmptyBoxesAndNoChange) {
    const FontRecord font{.name = u"Courier"_s, .italic = true, .size = 14, .colour = 0x0000FF};
    for (const QString& empty : {QString(), u" "_s, u"\n"_s}) {
        m_box.setRtf(empty);
        EXPECT_TRUE(m_box.applyDefaultFont(font));
        EXPECT_FALSE(m_box.dataChanged());
        EXPECT_FALSE(m_box.document()->isUndoAvailable());
    }
    m_box.setRtf({});
    m_box.applyDefaultFont(font);
    type(u"a"_s);
    m_box.select(0, 1);
    EXPECT_EQ(m_box.selectionFormat().fontName, u"Courier"_s);
    EXPECT_EQ(m_box.selectionFormat().fontSize, 14);
    EXPECT_EQ(m_box.selectionFormat().italic, true);
    EXPECT_EQ(m_box.selectionFormat().colour, QColor(255, 0, 0));

    m_box.setRtf(lesson);
    EXPECT_FALSE(m_box.applyDefaultFont(font));
    m_box.setRtf({});
    QTextCursor cursor = m_box.textCursor();
    richtext::insertObject(cursor, richtext::equation(u"a = b"_s));
    EXPECT_FALSE(m_box.applyDefaultFont(font));
}

TEST_F(RichTextBoxTest, CopiesAsRichTextAndPastesWhatItCopied) {
    m_box.setRtf(lesson);
    m_box.select(5, 4);
    QTest::keyClick(&m_box, Qt::Key_C, Qt::ControlModifier);
    const QMimeData* data = QApplication::clipboard()->mimeData();
    EXPECT_TRUE(data->data(u"text/rtf"_s).startsWith("{\\rtf1"));
    EXPECT_EQ(data->text(), u"page"_s);
    m_box.setRtf({});
    QTest::keyClick(&m_box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(m_box.plainText(), u"page"_s);
    m_box.selectAll();
    EXPECT_EQ(m_box.selectionFormat().bold, true);
}

TEST_F(RichTextBoxTest, PastesFromOtherPrograms) {
    const struct {
        QString type;
        QByteArray bytes;
        QString plain;
    } clipboards[] = {
        {u"text/rtf"_s, "{\\rtf1\\ansi{\\b caf\\'e9}\\par two}", u"caf\u00E9\ntwo"_s},
        {u"application/rtf"_s, "{\\rtf1\\ansi \\b one}", u"one"_s},
        {u"text/html"_s, "<p><b>one</b></p><ul><li><b>two</b></li></ul>", u"one\ntwo"_s},
        {u"text/html"_s, "<b>a</b><img src='file:///etc/passwd'>", u"a"_s},
        {u"text/rtf"_s, "no rich text", u"the plain form"_s},
        {u"image/x-unknown"_s, "?", u"the plain form"_s},
    };
    for (const auto& [type, bytes, plain] : clipboards) {
        m_box.setRtf({});
        putOnClipboard(type, bytes);
        QTest::keyClick(&m_box, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(m_box.plainText().trimmed(), plain) << type.toStdString();
        const QString kept = m_box.rtf();
        m_box.setRtf(kept);
        EXPECT_EQ(m_box.rtf(), kept) << type.toStdString();
        EXPECT_EQ(m_box.plainText().trimmed(), plain) << type.toStdString();
    }
    m_box.setRtf({});
    m_box.setReadOnly(true);
    QTest::keyClick(&m_box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(m_box.plainText(), QString());
}

TEST_F(RichTextBoxTest, APictureAloneIsPasted) {
    m_box.setRtf({});
    QImage picture(30, 20, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QApplication::clipboard()->setImage(picture);
    QTest::keyClick(&m_box, Qt::Key_V, Qt::ControlModifier);
    m_box.setRtf(m_box.rtf());
    EXPECT_EQ(m_box.plainText(), QString(QChar::ObjectReplacementCharacter));
    EXPECT_EQ(richtext::pictureOf(m_box.rtf()).size(), picture.size());
}

TEST_F(RichTextBoxTest, CtrlYIsRedoToo) {
    m_box.setRtf(lesson);
    type(u"x"_s);
    QTest::keyClick(&m_box, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&m_box, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(m_box.plainText(), u"xRead page 4\nHomework"_s);
}

TEST_F(RichTextBoxTest, TabLeavesTheBoxAndCtrlTabTypesOne) {
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* first = new RichTextBox(u"First"_s);
    auto* second = new RichTextBox(u"Second"_s);
    layout->addWidget(first);
    layout->addWidget(second);
    window.show();
    first->setFocus();
    press(window, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(first->plainText(), u"\t"_s);
    press(window, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), second);
    checkScreen(window, u"rich_text_boxes"_s);
}

TEST_F(RichTextBoxTest, ADoubleClickOpensAnObjectAndTheDocumentKeepsIt) {
    m_box.setRtf(lesson);
    m_box.select(5, 0);
    QTextCursor cursor = m_box.textCursor();
    richtext::insertObject(cursor, richtext::equation(u"E = mc\u00B2"_s));
    m_box.setTextCursor(cursor);
    const QRect after = m_box.cursorRect();
    QSignalSpy activated(&m_box, &RichTextBox::objectActivated);
    QTest::mouseDClick(m_box.viewport(), Qt::LeftButton, {},
                       after.center() - QPoint(after.width() + 8, 0));
    EXPECT_EQ(activated.size(), 1);
    EXPECT_EQ(m_box.selectionLength(), 1);
    QTest::mouseDClick(m_box.viewport(), Qt::LeftButton, {}, after.center() + QPoint(8, 0));
    EXPECT_EQ(activated.size(), 1);
    const QString kept = m_box.rtf();
    EXPECT_TRUE(richtext::holdsObject(kept));
    m_box.setRtf(kept);
    m_box.select(5, 1);
    ASSERT_TRUE(richtext::objectAt(m_box.textCursor()));
    EXPECT_EQ(richtext::objectAt(m_box.textCursor())->className, u"Equation"_s);
    checkScreen(m_box, u"rich_text_object"_s);
}

TEST_F(RichTextBoxTest, MisspelledWordsAreMarkedAndTheDocumentIsNot) {
    if (richtext::Speller::shared().isRight(u"colourr"))
        GTEST_SKIP() << "no British dictionary is installed";
    m_box.setRtf(u"The colourr of the centre\nanothr line"_s);
    const QString before = m_box.rtf();
    SpellingMarks& spelling = m_box.spelling();
    spelling.check();
    m_box.select(6, 0);
    const QTextCursor mistake = spelling.mistakeAt(m_box.textCursor());
    EXPECT_EQ(mistake.selectedText(), u"colourr"_s);
    EXPECT_TRUE(spelling.suggestions(u"colourr"_s).contains(u"colour"_s));
    EXPECT_EQ(m_box.rtf(), before);
    EXPECT_FALSE(m_box.dataChanged());

    // Typed in front of it, the mark goes along; typed in it, it waits for the next pause.
    m_box.select(0, 0);
    type(u"So "_s);
    m_box.select(9, 0);
    EXPECT_EQ(spelling.mistakeAt(m_box.textCursor()).selectedText(), u"colourr"_s);
    type(u"x"_s);
    EXPECT_FALSE(spelling.mistakeAt(m_box.textCursor()).hasSelection());
    m_box.select(31, 0);
    EXPECT_EQ(spelling.mistakeAt(m_box.textCursor()).selectedText(), u"anothr"_s);
    checkScreen(m_box, u"rich_text_spelling"_s);
    spelling.accept(u"anothr"_s);
    EXPECT_FALSE(spelling.mistakeAt(m_box.textCursor()).hasSelection());
}
