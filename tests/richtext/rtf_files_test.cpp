// Documents for a word processor: written from nothing, and made from a template's bookmarks.

#include "richtext/plain_text.h"
#include "richtext/rtf_document.h"
#include "richtext/rtf_template.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace richtext;

namespace {

const Paper paper{.size = {11906, 16838}, .margins = {1440, 1440, 1440, 1440}};

QString read(const QByteArray& source) {
    return plainText(QString::fromLatin1(source)).simplified();
}

QString start(const QString& name) {
    return u"{\\*\\bkmkstart "_s + name + u'}';
}
QString end(const QString& name) {
    return u"{\\*\\bkmkend "_s + name + u'}';
}

} // namespace

TEST(RtfFiles, ADocumentKeepsEveryCharacterOfItsTexts) {
    const QString text = u"{a}\\b \"c\" é € ß ☺ 𝄞 Жж\ttab\r\nnew\vline"_s;
    RtfDocument document(paper);
    document.addTextBox({0, 0, 2000, 2000}, text, {});
    document.addText(text, {.size = 20, .bold = true, .centred = true});
    document.newPage();
    document.addTable({{{{text, 3000}, {u"2"_s, 3000, {}, qRgb(1, 2, 3)}}}});
    const QString source = QString::fromLatin1(document.source());
    EXPECT_EQ(read(document.source()).count(u"{a}\\b \"c\" é € ß ☺ 𝄞 Жж tab new line"_s), 3);
    EXPECT_TRUE(source.contains(u"\\red1\\green2\\blue3;"_s));
    EXPECT_EQ(source.count(u"\\pagebb"_s), 1);
    EXPECT_TRUE(source.contains(u"\\cellx3000"_s) && source.contains(u"\\cellx6000"_s));
    EXPECT_EQ(source.count(u'{') - source.count(u"\\{"_s),
              source.count(u'}') - source.count(u"\\}"_s));
}

TEST(RtfFiles, ALessonOfAnyLengthGoesIntoACell) {
    const QString lesson = u"0123456789 "_s.repeated(6000);
    RtfDocument document(paper);
    document.addTable({{{{lesson, 4000}}}});
    EXPECT_EQ(read(document.source()), lesson.simplified());
}

TEST(RtfFiles, BookmarksAreFilledWhereverTheyStand) {
    const struct {
        const char* what;
        QString body;
        QString filled; ///< with "N\nM" in the bookmark A, "B" in B
    } cases[] = {
        {"empty", u"x "_s + start(u"A"_s) + end(u"A"_s) + u" y"_s, u"x N M y"_s},
        {"with a text of its own", start(u"A"_s) + u"old\\'e9 \\{text\\}"_s + end(u"A"_s),
         u"N M"_s},
        {"in another case", start(u"a"_s) + u"old"_s + end(u"a"_s) + u'.', u"N M."_s},
        {"missing", u"x y"_s, u"x y"_s},
        {"without an end", u"x "_s + start(u"A"_s) + u"y"_s, u"x N My"_s},
        {"twice",
         start(u"A"_s) + u"1"_s + end(u"A"_s) + u"-"_s + start(u"A"_s) + u"2"_s + end(u"A"_s),
         u"N M-N M"_s},
        {"twice at one place",
         start(u"A"_s) + end(u"A"_s) + u"{\\b "_s + start(u"A"_s) + end(u"A"_s) + u"}\\par "_s +
             start(u"A"_s) + end(u"A"_s),
         u"N M N M"_s},
        {"nested",
         start(u"A"_s) + u"1"_s + start(u"B"_s) + u"2"_s + end(u"B"_s) + u"3"_s + end(u"A"_s),
         u"N M"_s},
        {"crossed",
         start(u"A"_s) + u"1"_s + start(u"B"_s) + u"2"_s + end(u"A"_s) + u"3"_s + end(u"B"_s) +
             u"4"_s,
         u"N M34"_s},
        {"over groups", u"{\\b x"_s + start(u"A"_s) + u"1}{\\i 2"_s + end(u"A"_s) + u"y}"_s,
         u"xN My"_s},
        {"in a cell",
         u"\\trowd\\cellx900\\cellx1800\\intbl "_s + start(u"A"_s) + u"o"_s + end(u"A"_s) +
             u"\\cell "_s + start(u"B"_s) + end(u"B"_s) + u"\\cell\\row\\pard end"_s,
         u"N M B end"_s},
        {"over cells",
         u"\\trowd\\cellx900\\cellx1800\\intbl "_s + start(u"A"_s) + u"1\\cell 2"_s + end(u"A"_s) +
             u"\\cell\\row\\pard end"_s,
         u"N M end"_s},
    };
    for (const auto& each : cases) {
        RtfTemplate form(
            (u"{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}"_s + each.body + u'}').toLatin1());
        form.fillBookmark(u"A"_s, u"N\nM"_s);
        form.fillBookmark(u"B"_s, u"B"_s);
        EXPECT_EQ(read(form.source()), each.filled) << each.what;
    }
}

TEST(RtfFiles, ATemplateTakesATitleAndNothingElseChanges) {
    for (const QString& info : {QString(), u"{\\info{\\author me}{\\title old {x}}}"_s}) {
        const QString head = u"{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}"_s;
        RtfTemplate form((head + info + u"\\bin3 {{{ text}"_s).toLatin1());
        form.setTitle(u"Ann {Lee}"_s);
        const QString source = QString::fromLatin1(form.source());
        EXPECT_TRUE(source.contains(u"{\\title Ann \\{Lee\\}}"_s)) << qPrintable(source);
        EXPECT_EQ(source.count(u"\\title"_s), 1);
        EXPECT_TRUE(source.endsWith(u"\\bin3 {{{ text}"_s));
        EXPECT_FALSE(form.fillBookmark(u"A"_s, u"b"_s));
        EXPECT_EQ(QString::fromLatin1(form.source()), source);
    }
    EXPECT_FALSE(RtfTemplate::isTemplate("PK\x03\x04"));
}
