#include "richtext/highlight.h"

#include "richtext/documents.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"

#include <gtest/gtest.h>

#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;
using namespace richtext;

namespace {

const QColor yellow(255, 255, 0);
const QColor green(0, 255, 0);
const QColor red(255, 0, 0);
const QColor automatic;

/// What stands behind the head of the first paragraph up to the document's end.
QString bodyOf(const QTextDocument& document) {
    const QString rtf = writeDocument(document);
    const QString head = u"\\pard\\plain\\f0\\fs20"_s;
    const qsizetype begin = rtf.indexOf(head) + head.size();
    return rtf.sliced(begin, rtf.indexOf(u"\r\n\\par }"_s) - begin).trimmed();
}

QTextCursor selection(QTextDocument& document, qsizetype from, qsizetype to) {
    QTextCursor cursor(&document);
    cursor.setPosition(int(from));
    cursor.setPosition(int(to), QTextCursor::KeepAnchor);
    return cursor;
}

} // namespace

TEST(Highlight, MarksTheSelectionAndKeepsTheOuterColourBehindIt) {
    const struct {
        const char* what;
        QString body; ///< colour 1 is yellow, 2 green, 3 red
        int from, to;
        QColor colour;
        QString marked; ///< the colours numbered in the order of their use
    } cases[] = {
        {"plain text", u"abcdef"_s, 2, 4, yellow, u"ab\\highlight1 cd\\highlight0 ef"_s},
        {"the whole text", u"abcdef"_s, 0, 6, yellow, u"\\highlight1 abcdef\\highlight0"_s},
        {"the whole of a highlighted text", u"\\highlight2 abc\\highlight0 def"_s, 0, 6, yellow,
         u"\\highlight1 abcdef\\highlight0"_s},
        {"inside a highlight, which goes on", u"\\highlight2 abcdef\\highlight0 g"_s, 2, 4, yellow,
         u"\\highlight1 ab\\highlight2 cd\\highlight1 ef\\highlight0 g"_s},
        {"over marks inside", u"ab\\highlight2 c\\highlight0 d\\highlight3 e\\highlight0 fg"_s, 1,
         6, yellow, u"a\\highlight1 bcdef\\highlight0 g"_s},
        {"the start of a highlight", u"\\highlight2 abcd\\highlight0"_s, 0, 2, yellow,
         u"\\highlight1 ab\\highlight2 cd\\highlight0"_s},
        {"the end of a highlight", u"\\highlight2 abcd\\highlight0 ef"_s, 2, 4, yellow,
         u"\\highlight1 ab\\highlight2 cd\\highlight0 ef"_s},
        {"out of a highlight: the colour at the start goes on behind it",
         u"\\highlight2 abc\\highlight0 defg"_s, 2, 5, yellow,
         u"\\highlight1 ab\\highlight2 cde\\highlight1 fg\\highlight0"_s},
        {"into a highlight: it ends behind it", u"ab\\highlight2 cdef\\highlight0 g"_s, 1, 4,
         yellow, u"a\\highlight1 bcd\\highlight0 efg"_s},
        {"automatic removes", u"\\highlight2 abcdef\\highlight0"_s, 0, 6, automatic, u"abcdef"_s},
        {"automatic inside a highlight", u"\\highlight2 abcdef\\highlight0"_s, 2, 4, automatic,
         u"\\highlight1 ab\\highlight0 cd\\highlight1 ef\\highlight0"_s},
        {"a colour that is there already", u"\\highlight1 a\\highlight0 bc"_s, 2, 3, yellow,
         u"\\highlight1 a\\highlight0 b\\highlight1 c\\highlight0"_s},
        {"other formats stay", u"a\\b b\\i c\\b0 d\\i0"_s, 0, 4, red,
         u"\\highlight1 a\\b b\\i c\\b0 d\\highlight0"_s},
        {"over paragraphs", u"abc\\par\\pard\\plain\\f0\\fs20 def"_s, 2, 5, yellow,
         u"ab\\highlight1 c\\highlight0 \r\n\\par \\pard\\plain\\f0\\fs20\\highlight1 d"
         "\\highlight0 ef"_s},
        {"nothing selected", u"abc"_s, 1, 1, yellow, u"abc"_s},
    };
    for (const auto& [what, body, from, to, colour, marked] : cases) {
        QTextDocument document;
        readDocument(test::inDialect(body), document);
        EXPECT_EQ(ApplyHighlight(selection(document, from, to), colour), from != to) << what;
        EXPECT_EQ(bodyOf(document).toStdString(), marked.toStdString()) << what;
    }
}

TEST(Highlight, IsOneStepToUndoAndLeavesNoMarkers) {
    QTextDocument document;
    readDocument(test::inDialect(u"\\highlight2 abc\\highlight0 def{\\pict 00}"_s), document);
    const QString before = writeDocument(document);
    ApplyHighlight(selection(document, 1, 7), yellow);
    const QString after = writeDocument(document);
    EXPECT_TRUE(after.contains(u"{\\pict 00}"_s));
    EXPECT_FALSE(after.contains(u"%%%"_s));
    document.undo();
    EXPECT_EQ(writeDocument(document), before);
}

TEST(Highlight, ANewColourIsOnceInTheTable) {
    QTextDocument document;
    readDocument(test::inDialect(u"abcdef"_s), document);
    ApplyHighlight(selection(document, 0, 1), green);
    ApplyHighlight(selection(document, 2, 3), red);
    ApplyHighlight(selection(document, 4, 5), green);
    EXPECT_EQ(ParseColourTable(writeDocument(document)), (QList<QColor>{automatic, green, red}));
}

TEST(Highlight, ReadsTheColourTable) {
    const struct {
        QString rtf;
        QList<QColor> colours;
    } cases[] = {
        {test::inDialect(u"x"_s), {automatic, yellow, green, red}},
        {u"{\\rtf1{\\colortbl ;}x}"_s, {automatic}},
        {u"{\\rtf1{\\colortbl;\\red255\\green0\\blue0;;\\red0\\green255\\blue0;}x}"_s,
         {automatic, red, automatic, green}},
        {u"{\\rtf1{\\colortbl\\red255\\green0\\blue0;\\red0\\green255\\blue0;}x}"_s, {red, green}},
        {u"{\\rtf1{\\colortbl;\\ctint9\\red0\\green255\\blue999;}x}"_s,
         {automatic, QColor(0, 255, 255)}},
        {u"{\\rtf1 x}"_s, {}},
        {u"{\\rtf1{\\colortbl ;"_s, {}},
        {u""_s, {}},
    };
    for (const auto& [rtf, colours] : cases)
        EXPECT_EQ(ParseColourTable(rtf), colours) << rtf.toStdString();
}

TEST(Highlight, TellsAFragmentsFirstColour) {
    const struct {
        QString body;
        std::optional<QColor> colour;
    } cases[] = {
        {u"abc"_s, std::nullopt},
        {u"a\\highlight2 b\\highlight0\\highlight3 c"_s, green},
        {u"a\\highlight0 b"_s, automatic},
        {u"a\\highlight7 b"_s, std::nullopt},
        {u"a\\highlight b"_s, std::nullopt},
    };
    for (const auto& [body, colour] : cases)
        EXPECT_EQ(GetHighlightColour(test::inDialect(body)), colour) << body.toStdString();
}
