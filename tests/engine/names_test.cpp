#include "store/engine/error.h"
#include "store/engine/names.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace Qt::StringLiterals;

using namespace dao;

namespace {

int sign(int order) {
    return order < 0 ? -1 : (order > 0 ? 1 : 0);
}

} // namespace

TEST(CompareText, PutsTextsInTheirOrderBothWaysAndInBothEncodings) {
    // In order, from the empty one on; texts that are one and the same are divided by "=".
    const QStringList ordered =
        u" 7A _ a=A ab=AB=aB \u00c1b=\u00e1B abc \u00e1bc E=e e\u0301=E\u0301 "
        "\u00c9=\u00e9 \u00ea=\u00ca F=f Lodz M\u00fcller=M\u00dcLLER Mullers STRASSE "
        "STRA\u1e9eE=stra\u00dfe z \u03a3\u03b1=\u03c3\u03b1 \u0416=\u0436 "
        "\U00010400=\U00010428"_s.split(u' ');
    for (qsizetype i = 0; i < ordered.size(); ++i) {
        for (qsizetype j = 0; j < ordered.size(); ++j) {
            for (const QString& a : ordered[i].split(u'=')) {
                for (const QString& b : ordered[j].split(u'=')) {
                    const int expected = sign(int(i - j));
                    EXPECT_EQ(sign(compareText(a, b)), expected) << qPrintable(a + u' ' + b);
                    EXPECT_EQ(sign(compareUtf8(a.toUtf8(), b.toUtf8())), expected)
                        << qPrintable(a + u' ' + b);
                    EXPECT_EQ(sameName(a, b), expected == 0);
                    EXPECT_EQ(folded(a) == folded(b), expected == 0);
                }
            }
        }
    }
}

TEST(CompareText, SurvivesBytesThatAreNoUtf8) {
    EXPECT_NE(compareUtf8("a\xff", "a"), 0);
    EXPECT_EQ(compareUtf8(QByteArrayView("a\0b", 3), QByteArrayView("A\0B", 3)), 0);
    EXPECT_LT(compareUtf8("a\xc3", "b"), 0);
}

TEST(WriteName, BracketsOnlyWhatWouldNotParse) {
    const QList<std::pair<QString, QString>> cases{
        {u"Class_7A"_s, u"Class_7A"_s},
        {u"_x"_s, u"_x"_s},
        {u"\u00c9l\u00e8ve"_s, u"\u00c9l\u00e8ve"_s},
        {u"Top"_s, u"Top"_s},
        {u"7A"_s, u"[7A]"_s},
        {u"order"_s, u"[order]"_s},
        {u"Like"_s, u"[Like]"_s},
        {u"Post-It"_s, u"[Post-It]"_s},
        {u"01/09/24 1"_s, u"[01/09/24 1]"_s},
        {u"a]b"_s, u"[a]]b]"_s},
        {u"7[A]"_s, u"[7[A]]]"_s},
        {u""_s, u"[]"_s},
    };
    for (const auto& [name, written] : cases)
        EXPECT_EQ(writeName(name), written);
    EXPECT_EQ(writeText(u"O'Brien's"), u"'O''Brien''s'"_s);
}

TEST(CheckName, RefusesWhatCannotBeAName) {
    for (const QString& name :
         {u"a"_s, QString(64, u'x'), u"7[A]^_"_s, u"O'Brien \"x\""_s, u"a "_s})
        EXPECT_NO_THROW(checkName(name));
    for (const QString& name :
         {QString(), QString(65, u'x'), u" a"_s, u"a.b"_s, u"a!"_s, u"a`"_s, u"a\tb"_s,
          QString(QChar(0)), u"a\u0085"_s, QString(QChar(0xd800))}) {
        try {
            checkName(name);
            ADD_FAILURE() << qPrintable(name);
        } catch (const EngineError& error) {
            EXPECT_EQ(error.number(), InvalidName);
        }
    }
}

TEST(MatchesLike, FollowsJetsPatterns) {
    const struct {
        const char16_t* pattern;
        const char16_t* matching; ///< divided by blanks
        const char16_t* others;
    } cases[] = {
        {u"", u"", u"a"},
        {u"smith", u"Smith SMITH", u"smithy asmith"},
        {u"A*", u"a Ab abc", u"ba"},
        {u"*a", u"a ba aa aba", u"ab"},
        {u"*an*an*", u"banana anan", u"ban an"},
        {u"a?c", u"abc aXC a\u00e9c a\U0001f600c", u"ac abbc"},
        {u"#-##", u"1-23", u"a-23 1-2 \u0661-23"},
        {u"[a-c]x", u"ax Bx cX", u"dx x"},
        {u"[!a-c]x", u"dx", u"Ax x"},
        {u"[A-C]", u"b \u00e1", u"d"},
        {u"[!]", u"!", u"a"},
        {u"!", u"!", u"a"},
        {u"[-a]", u"- A", u"b"},
        {u"[a-]", u"- a", u"b"},
        {u"[!-a]", u"b", u"- a"},
        {u"[a-c-e]", u"b - e", u"d"},
        {u"[c-a]", u"", u"b"},
        {u"[]a[]b[]", u"ab", u"a"},
        {u"[[]x[*]", u"[x*", u"x [x"},
        {u"[?][#]", u"?#", u"a1"},
        {u"a]", u"a]", u"a"},
        {u"7[[]A]", u"7[A]", u"7A"},
        {u"*[0-9]", u"x1", u"1x"},
        {u"\u00c9t\u00e9", u"\u00e9T\u00c9", u"ete"},
        {u"\u0416*", u"\u0436x", u"x"},
    };
    for (const auto& each : cases) {
        for (const QString& text : QString::fromUtf16(each.matching).split(u' '))
            EXPECT_EQ(matchesLike(text, each.pattern), each.matching[0] || !each.pattern[0])
                << qPrintable(QString::fromUtf16(each.pattern) + u' ' + text);
        for (const QString& text : QString::fromUtf16(each.others).split(u' '))
            EXPECT_FALSE(matchesLike(text, each.pattern))
                << qPrintable(QString::fromUtf16(each.pattern) + u' ' + text);
    }
    for (const char16_t* open : {u"[", u"a[b", u"[]a[", u"[[]["})
        EXPECT_THROW(matchesLike(u"zz", open), EngineError);
}

TEST(MatchesLike, ManyStarsStayCheap) {
    // With every star tried at every place this would not end in a lifetime.
    const QString text(5000, u'a');
    EXPECT_FALSE(matchesLike(text, u"a*"_s.repeated(200) + u'b'));
    EXPECT_TRUE(matchesLike(text, u"*a"_s.repeated(200)));
}
