#include "richtext/work_area.h"

#include "richtext/default_format.h"
#include "richtext/documents.h"
#include "richtext/plain_text.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"

#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;
using namespace richtext;

TEST(WorkArea, AppendsAFragmentAtTheEndOfTheText) {
    const QString fragment = test::inDialect(u"\\b quiz"_s);
    EXPECT_EQ(appendFragment(QString(), fragment), fragment);
    EXPECT_EQ(plainText(appendFragment(test::inDialect(u""_s), fragment)), u"quiz"_s);

    const QString appended = appendFragment(test::inDialect(u"one\\par\\i two"_s), fragment);
    QTextDocument document;
    readDocument(appended, document);
    EXPECT_EQ(document.toPlainText(), u"one\ntwoquiz"_s);
    EXPECT_EQ(document.find(u"two"_s).charFormat().fontWeight(), int(QFont::Normal));
    const QTextCharFormat format = document.find(u"quiz"_s).charFormat();
    EXPECT_EQ(format.fontWeight(), int(QFont::Bold));
    EXPECT_FALSE(format.fontItalic());

    const QString bullets =
        test::inDialect(u"{\\pntext\\'95\\tab}{\\*\\pn\\pnlvlblt}\\li720 a\\par{\\pntext x}b"_s);
    readDocument(appendFragment(test::inDialect(u""_s), bullets), document);
    EXPECT_EQ(document.toPlainText(), u"a\nb"_s);
    EXPECT_NE(document.begin().textList(), nullptr) << "an empty text takes the paragraph's format";
    readDocument(appendFragment(test::inDialect(u"x"_s), bullets), document);
    EXPECT_EQ(document.toPlainText(), u"xa\nb"_s);
    EXPECT_EQ(document.begin().textList(), nullptr) << "one with text keeps its own";
    EXPECT_NE(document.lastBlock().textList(), nullptr);

    EXPECT_EQ(plainText(appendFragment(appended, test::inDialect(u"a\\par b"_s))),
              u"one\ntwoquiza\nb"_s);
}

TEST(WorkArea, RemovesByThePlainTextsPositions) {
    const QString rtf = test::inDialect(u"ab\\b cd\\par e\\'e9{\\pict 00}f\\~\\u8364?g"_s);
    const QString plain = plainText(rtf);
    EXPECT_EQ(plain, u"abcd\ne\u00e9\ufffcf \u20acg"_s);
    for (qsizetype position = 0; position < plain.size(); ++position) {
        for (qsizetype length = 1; length <= plain.size(); ++length)
            EXPECT_EQ(plainText(removeText(rtf, position, length)),
                      QString(plain).remove(position, length))
                << position << " " << length;
    }
    for (const auto& [position, length] : {std::pair(-1, 1), {12, 1}, {3, 0}, {0, -1}})
        EXPECT_EQ(removeText(rtf, position, length), rtf);
}

TEST(WorkArea, ATextCountsAsEmpty) {
    for (const QString& text : {u""_s, u" "_s, u"\n"_s, u"\r\n"_s})
        EXPECT_TRUE(isEmptyText(text));
    for (const QString& text : {u"  "_s, u"a"_s, u"\n\n"_s, u"\ufffc"_s})
        EXPECT_FALSE(isEmptyText(text));
}

TEST(DefaultFormat, StandsAtTheStartOfTheLastParagraph) {
    const QString head =
        u"{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil Arial;}{\\f3\\fnil Comic Sans MS;}}\r\n"
        "{\\colortbl ;\\red0\\green0\\blue0;\\red16\\green32\\blue255;}\r\n"_s;
    const QString empty = head + u"\\pard\\plain\\f0\\fs17\r\n\\par }"_s;
    const struct {
        QString rtf;
        FontRecord font;
        QString body;
    } cases[] = {
        {empty,
         {u"Comic Sans MS"_s, true, true, true, 12, 0xFF2010},
         u"\\pard\\plain\\f3\\cf2\\fs24\\b\\i\\ul\\par }\r\n"_s},
        {empty,
         {u"Arial"_s, false, false, false, 8, 0},
         u"\\pard\\plain\\f0\\cf1\\fs16\\par }\r\n"_s},
        {empty,
         {u"Unknown"_s, false, true, false, 8, 255},
         u"\\pard\\plain\\f0\\cf3\\fs16\\i\\par }\r\n"_s},
        {head + u"\\pard\\plain\\f0\\fs17 \r\n\\par \\pard\\plain\\f0\\fs17\r\n\\par }"_s,
         {u"Arial"_s, false, false, false, 10, 0},
         u"\\pard\\plain\\f0\\fs17 \r\n\\par \\pard\\plain\\f0\\cf1\\fs20\\par }\r\n"_s},
        {head + u"\\pard\\f0\\fs17\\par }"_s, {}, u"\\pard\\f0\\fs17\\par }"_s},
        {head + u"\\pard\\plain\\par }"_s, {}, u"\\pard\\plain\\par }"_s},
    };
    for (const auto& [rtf, font, body] : cases)
        EXPECT_EQ(SetDefaultFormat(rtf, font).toStdString(), (head + body).toStdString());
    EXPECT_EQ(SetDefaultFormat(u""_s, {}), u""_s);
    const QString once = SetDefaultFormat(empty, {});
    EXPECT_EQ(SetDefaultFormat(once, {}), once);
}

TEST(DefaultFormat, IsInForceForWhatIsTypedThen) {
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextCharFormat format;
    format.setFontFamilies({u"Comic Sans MS"_s});
    format.setForeground(QColor(16, 32, 255));
    cursor.setBlockCharFormat(format);
    readDocument(SetDefaultFormat(writeDocument(document),
                                  {u"Comic Sans MS"_s, true, false, true, 12, 0xFF2010}),
                 document);
    EXPECT_EQ(document.blockCount(), 1);
    const QTextCharFormat set = document.begin().charFormat();
    EXPECT_EQ(set.fontFamilies().toStringList(), QStringList{u"Comic Sans MS"_s});
    EXPECT_EQ(set.fontPointSize(), 12);
    EXPECT_EQ(set.foreground().color(), QColor(16, 32, 255));
    EXPECT_EQ(set.fontWeight(), int(QFont::Bold));
    EXPECT_TRUE(set.fontUnderline());
}
