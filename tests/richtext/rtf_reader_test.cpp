#include "richtext/rtf_reader.h"

#include "richtext/documents.h"
#include "richtext/objects.h"
#include "richtext/plain_text.h"
#include "richtext/rtf_writer.h"
#include "richtext/text_state.h"
#include "support/engine_files.h"
#include "support/engine_places.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <array>

using namespace richtext;

namespace {

/// The plain text, after a look that it is the same on both roads.
QString plainOf(const QString& rtf) {
    QTextDocument document;
    readDocument(rtf, document);
    const QString plain = plainText(rtf);
    EXPECT_EQ(document.toPlainText().toStdString(), plain.toStdString());
    return plain;
}

} // namespace

TEST(RtfReader, ReadsTheTextOfEveryProgram) {
    const struct {
        const char* what;
        QString rtf;
        QString plain;
    } cases[] = {
        {"no rich text", u"{curly} \\b and\nplain"_s, u"{curly} \\b and\nplain"_s},
        {"control characters in no rich text", u"a\x01\x0c\rb\r\nc\u2029d\ufffc\te"_s,
         u"a\n\nb\nc\nd\ufffd\te"_s},
        {"other programs' line breaks", u"{\\rtf1 a\vb\\'0bc\fd\\u12?e}"_s, u"a\nb\nc\nd\ne"_s},
        {"an empty document", u"{\\rtf1\\ansi\\pard\\par }"_s, u""_s},
        {"the last \\par is the document's end", u"{\\rtf1 a\\par b\\par\n}"_s, u"a\nb"_s},
        {"an empty paragraph at the end", u"{\\rtf1 a\\par\\par }"_s, u"a\n"_s},
        {"no \\par at the end", u"{\\rtf1 a\\par b}"_s, u"a\nb"_s},
        {"a backslash in front of a line break", u"{\\rtf1 a\\\nb\\\r\nc}"_s, u"a\nb\nc"_s},
        {"line breaks in the source", u"{\\rtf1 a\r\nb\nc}"_s, u"abc"_s},
        {"one blank ends a word", u"{\\rtf1 a\\b  b\\b0\\i0 c}"_s, u"a bc"_s},
        {"escapes", u"{\\rtf1 \\\\ \\{\\} \\~x\\_y\\-z}"_s, u"\\ {}  x\u2011y\u00adz"_s},
        {"characters by name", u"{\\rtf1\\bullet\\tab\\emdash\\endash\\lquote\\rquote\\line x}"_s,
         u"\u2022\t\u2014\u2013\u2018\u2019\nx"_s},
        {"Western bytes", u"{\\rtf1\\ansi caf\\'e9 \\'80 \\'93x\\'94}"_s,
         u"caf\u00e9 \u20ac \u201cx\u201d"_s},
        {"bytes as they are", u"{\\rtf1\\ansi caf\u00e9 \u0080}"_s, u"caf\u00e9 \u20ac"_s},
        {"characters that no byte is", u"{\\rtf1\\ansi \u4f60 \u2013}"_s, u"\u4f60 \u2013"_s},
        {"a broken byte", u"{\\rtf1 a\\'zz\\'4}"_s, u"azz4"_s},
        {"Cyrillic by the document", u"{\\rtf1\\ansi\\ansicpg1251 \\'cf\\'f0\\'e8}"_s,
         u"\u041f\u0440\u0438"_s},
        {"Cyrillic by the font",
         u"{\\rtf1\\ansi{\\fonttbl{\\f0 A;}{\\f1\\fcharset204 B;}}\\f1 \\'cf\\f0 \\'cf}"_s,
         u"\u041f\u00cf"_s},
        {"Macintosh", u"{\\rtf1\\mac caf\\'8e}"_s, u"caf\u00e9"_s},
        {"old PCs", u"{\\rtf1\\pc \\'f1\\'f2}"_s, u"\u00b1\u2265"_s},
        {"Japanese, also with a letter as a second byte",
         u"{\\rtf1\\ansi\\ansicpg932 \\'83e\\'83X\\'83\\'67}"_s, u"\u30c6\u30b9\u30c8"_s},
        {"Chinese by the font",
         u"{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset134 S;}}\\f0 \\'c4\\'e3\r\n\\'ba\\'c3 ok}"_s,
         u"\u4f60\u597d ok"_s},
        {"a Western font in a Chinese document",
         u"{\\rtf1\\ansi\\ansicpg936{\\fonttbl{\\f0\\fcharset0 T;}}\\f0 d\\'92un}"_s,
         u"d\u2019un"_s},
        {"\\u and what stands for it", u"{\\rtf1\\uc1\\u8211-x\\u8364\\'80y}"_s,
         u"\u2013x\u20acy"_s},
        {"\\u with two characters, none, and a group's own",
         u"{\\rtf1\\uc2\\u20320\\'c4\\'e3{\\uc0\\u20320}\\u20320??x}"_s, u"\u4f60\u4f60\u4f60x"_s},
        {"\\u below zero, in two halves and beyond",
         u"{\\rtf1\\u-4?\\u-10179?\\u-8704?\\u128512?\\u9999999?}"_s,
         u"\ufffd\U0001f600\U0001f600\ufffd"_s},
        {"what stands for \\u ends with its group", u"{\\rtf1{\\u8211}-x}"_s, u"\u2013-x"_s},
        {"\\upr", u"{\\rtf1{\\upr{ansi}{\\*\\ud{uni\\u8211?}}}}"_s, u"uni\u2013"_s},
        {"groups without text",
         u"{\\rtf1{\\info{\\title T}}{\\stylesheet{\\s1 Heading;}}{\\*\\generator G 5.1;}"
         "{\\header h}{\\*\\listtable{\\list x}}a{\\*\\bkmkstart m}{\\footnote f}b}"_s,
         u"ab"_s},
        {"hidden and deleted text", u"{\\rtf1 a{\\v hidden\\par}\\deleted x\\deleted0 b}"_s,
         u"ab"_s},
        {"a field shows its result",
         u"{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"http://x\"}{\\fldrslt{\\ul here}}}}"_s,
         u"here"_s},
        {"a shape's text",
         u"{\\rtf1 a{\\shp{\\*\\shpinst{\\sp{\\sn n}{\\sv 1}}{\\shptxt in}}"
         "{\\shprslt{\\*\\do old}}}b}"_s,
         u"ainb"_s},
        {"mail made from a page",
         u"{\\rtf1\\fromhtml1{\\*\\htmltag <p>}\\htmlrtf\\par\\htmlrtf0 text}"_s, u"\ntext"_s},
        {"a table",
         u"{\\rtf1\\trowd\\intbl a\\cell b\\cell\\row\\intbl \\cell d\\cell\\row\\pard e}"_s,
         u"a\tb\n\td\ne"_s},
        {"a table in a table",
         u"{\\rtf1\\intbl\\itap2 x\\nestcell y\\nestcell{\\*\\nesttableprops\\nestrow}"
         "{\\nonesttables\\par}\\itap1 z\\cell\\row}"_s,
         u"x\ty\nz"_s},
        {"markers of lists",
         u"{\\rtf1{\\pntext\\'B7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}a\\par"
         "{\\listtext\\pard\\plain 1.\\tab}\\ls1 b\\par}"_s,
         u"a\nb"_s},
        {"an object and a picture",
         u"{\\rtf1 a{\\object\\objemb{\\*\\objdata 01}{\\result{\\pict 00}}}"
         "{\\*\\shppict{\\pict\\pngblip 00}}{\\nonshppict{\\pict 00}}b}"_s,
         u"a\ufffc\ufffcb"_s},
        {"brackets in \\bin", u"{\\rtf1{\\pict\\bin4 }}{\\}{\\*\\x\\bin3 }}}}ok}"_s, u"\ufffcok"_s},
        {"what ends too early", u"{\\rtf1 a{\\b b{\\object{\\*\\objdata 00"_s, u"ab"_s},
        {"what stands behind the document", u"{\\rtf1 a{\\b b}}c\\par{\\i d}}}"_s, u"ab"_s},
        {"characters that a document uses itself", u"{\\rtf1 a\\u8233?\\u-560?\\u-559?\\u0?b}"_s,
         u"a\n\ufffd\ufffdb"_s},
    };
    for (const auto& [what, rtf, plain] : cases)
        EXPECT_EQ(plainOf(rtf).toStdString(), plain.toStdString()) << what;
}

TEST(RtfReader, ReadsHowCharactersLook) {
    using Check = std::function<bool(const QTextCharFormat&)>;
    const auto has = [](auto getter, auto value) {
        return [=](const QTextCharFormat& format) { return (format.*getter)() == value; };
    };
    const Check isBold = has(&QTextCharFormat::fontWeight, int(QFont::Bold));
    const Check isUnderlined = has(&QTextCharFormat::fontUnderline, true);
    const Check isRaised =
        has(&QTextCharFormat::verticalAlignment, QTextCharFormat::AlignSuperScript);
    const Check isLowered =
        has(&QTextCharFormat::verticalAlignment, QTextCharFormat::AlignSubScript);
    const auto highlight = [](QColor colour) -> Check {
        return [=](const QTextCharFormat& format) {
            return colour.isValid() ? format.background().color() == colour
                                    : !format.hasProperty(QTextFormat::BackgroundBrush);
        };
    };
    const auto family = [](const QString& name) -> Check {
        return [=](const QTextCharFormat& format) {
            return format.fontFamilies().toStringList() == QStringList{name};
        };
    };
    const struct {
        QString body; ///< its first "x" is looked at
        Check isAsWanted;
        bool wanted;
    } cases[] = {
        {u"\\b x"_s, isBold, true},
        {u"\\b\\b0 x"_s, isBold, false},
        {u"{\\b b}x"_s, isBold, false},
        {u"\\b\\plain x"_s, isBold, false},
        {u"\\ulwave x"_s, isUnderlined, true},
        {u"\\ul a\\ulnone x"_s, isUnderlined, false},
        {u"\\i x"_s, has(&QTextCharFormat::fontItalic, true), true},
        {u"\\strike x"_s, has(&QTextCharFormat::fontStrikeOut, true), true},
        {u"\\super x"_s, isRaised, true},
        {u"\\up6 x"_s, isRaised, true},
        {u"\\up6 a\\up0 x"_s, isRaised, false},
        {u"\\super a\\nosupersub x"_s, isRaised, false},
        {u"\\dn x"_s, isLowered, true},
        {u"\\super\\sub x"_s, isLowered, true},
        {u"\\fs21 x"_s, has(&QTextCharFormat::fontPointSize, 10.5), true},
        {u"\\plain x"_s, has(&QTextCharFormat::fontPointSize, 12.0), true},
        {u"x"_s, family(u"Arial"_s), true},
        {u"\\f1 x"_s, family(u"Courier"_s), true},
        {u"\\f1\\plain x"_s, family(u"Arial"_s), true},
        {u"\\cf3 x"_s, [](const auto& f) { return f.foreground().color() == Qt::red; }, true},
        {u"\\cf3\\cf0 x"_s, [](const auto& f) { return f.foreground() == Qt::NoBrush; }, true},
        {u"\\cf99 x"_s, [](const auto& f) { return f.foreground() == Qt::NoBrush; }, true},
        {u"\\highlight2 x"_s, highlight(Qt::green), true},
        {u"\\chcbpat2 x"_s, highlight(Qt::green), true},
        {u"\\highlight2 a\\highlight0 x"_s, highlight({}), true},
        {u"\\highlight99 x"_s, highlight({}), true},
    };
    for (const auto& [body, isAsWanted, wanted] : cases) {
        QTextDocument document;
        readDocument(test::inDialect(body), document);
        const QTextCursor found = document.find(u"x"_s);
        EXPECT_EQ(isAsWanted(found.charFormat()), wanted) << body.toStdString();
    }
}

TEST(RtfReader, ReadsParagraphsAndLists) {
    QTextDocument document;
    readDocument(
        test::inDialect(u"\\qc\\li720\\fi-360\\ri300\\sb150\\sa75\\sl360\\slmult1 a\\par"
                        "\\pard{\\pntext\\'95\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'95}}\\li720 b"
                        "\\par{\\pntext\\'95\\tab}c\\par"
                        "\\pard{\\listtext 1.\\tab}\\li1440\\ls1 d\\par"
                        "\\pard e\\par{\\listtext\\pard\\plain i.\\tab}\\pard\\ls2 f"_s),
        document);
    const QTextBlockFormat format = document.begin().blockFormat();
    EXPECT_EQ(format.alignment(), Qt::AlignHCenter);
    EXPECT_EQ(format.leftMargin(), 48);
    EXPECT_EQ(format.textIndent(), -24);
    EXPECT_EQ(format.rightMargin(), 20);
    EXPECT_EQ(format.topMargin(), 10);
    EXPECT_EQ(format.bottomMargin(), 5);
    EXPECT_EQ(format.lineHeight(), 150);
    const struct {
        int style;
        int level;
        int number;
    } lists[] = {{0, 0, 0},
                 {QTextListFormat::ListDisc, 1, 0},
                 {QTextListFormat::ListDisc, 1, 1},
                 {QTextListFormat::ListDecimal, 2, 0},
                 {0, 0, 0},
                 {QTextListFormat::ListLowerRoman, 1, 0}};
    ASSERT_EQ(document.blockCount(), int(std::size(lists)));
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const auto& wanted = lists[block.blockNumber()];
        const QTextList* const list = block.textList();
        ASSERT_EQ(list != nullptr, wanted.style != 0) << block.text().toStdString();
        if (list) {
            EXPECT_EQ(list->format().style(), wanted.style) << block.text().toStdString();
            EXPECT_EQ(list->format().indent(), wanted.level) << block.text().toStdString();
            EXPECT_EQ(list->itemNumber(block), wanted.number) << block.text().toStdString();
        }
    }
}

// The files show, each in its program's manner, what these programs write; the text beside each is
// what a reader of it sees.
TEST(RtfReader, ReadsTheFilesOfWordProcessors) {
    const QDir folder(test::testData(u"rtf"_s));
    const QStringList names = folder.entryList({u"*.rtf"_s}, QDir::Files);
    EXPECT_GE(names.size(), 5);
    for (const QString& name : names) {
        const QString text = QFileInfo(name).completeBaseName() + u".txt"_s;
        const QString rtf = QString::fromLatin1(bytesOf(folder.filePath(name)));
        const QString plain = QString::fromUtf8(bytesOf(folder.filePath(text)));
        ASSERT_FALSE(plain.isEmpty()) << name.toStdString();
        EXPECT_EQ(plainOf(rtf).toStdString(), plain.chopped(1).toStdString()) << name.toStdString();

        QTextDocument document;
        readDocument(rtf, document);
        QTextDocument again;
        readDocument(writeDocument(document), again);
        EXPECT_EQ(test::describe(again).toStdString(), test::describe(document).toStdString())
            << name.toStdString();
    }
}

TEST(RtfReader, AFragmentJoinsTheParagraphThatItComesInto) {
    const struct {
        QString fragment;
        QString plain;
    } cases[] = {
        {test::inDialect(u"\\b one"_s), u"a[one]\nb"_s},
        {test::inDialect(u"one\\par two"_s), u"a[one\ntwo]\nb"_s},
        {u"plain\ntext"_s, u"a[plain\ntext]\nb"_s},
        {u""_s, u"a[]\nb"_s},
        {test::inDialect(u"{\\pict 00}"_s), u"a[\ufffc]\nb"_s},
    };
    for (const auto& [fragment, plain] : cases) {
        QTextDocument document;
        readDocument(test::inDialect(u"a[xx]\\par b"_s), document);
        QTextCursor at = document.find(u"xx"_s);
        insertFragment(at, fragment);
        EXPECT_EQ(document.toPlainText().toStdString(), plain.toStdString());
        EXPECT_EQ(at.position(), plain.indexOf(u']'));
        document.undo();
        EXPECT_EQ(document.toPlainText(), u"a[xx]\nb"_s);
    }
}
