#include "store/engine/error.h"
#include "store/engine/names.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace dao;

namespace {

int sign(int order) {
    return order < 0 ? -1 : (order > 0 ? 1 : 0);
}

} // namespace

TEST(CompareText, PutsTextsInTheirOrderBothWaysAndInBothEncodings) {
    // In order; texts that are one and the same stand together, divided by "=".
    const QStringList ordered{QStringLiteral(""),
                              QStringLiteral("7A"),
                              QStringLiteral("_"),
                              QStringLiteral("a=A"),
                              QStringLiteral("ab=AB=aB"),
                              QStringLiteral("\u00c1b=\u00e1B"),
                              QStringLiteral("abc"),
                              QStringLiteral("\u00e1bc"),
                              QStringLiteral("E=e"),
                              QStringLiteral("e\u0301=E\u0301"),
                              QStringLiteral("\u00c9=\u00e9"),
                              QStringLiteral("\u00ea=\u00ca"),
                              QStringLiteral("F=f"),
                              QStringLiteral("Lodz"),
                              QStringLiteral("M\u00fcller=M\u00dcLLER"),
                              QStringLiteral("Mullers"),
                              QStringLiteral("STRASSE"),
                              QStringLiteral("STRA\u1e9eE=stra\u00dfe"),
                              QStringLiteral("z"),
                              QStringLiteral("\u03a3\u03b1=\u03c3\u03b1"),
                              QStringLiteral("\u0416=\u0436"),
                              QStringLiteral("\U00010400=\U00010428")};
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
        {QStringLiteral("Class_7A"), QStringLiteral("Class_7A")},
        {QStringLiteral("_x"), QStringLiteral("_x")},
        {QStringLiteral("\u00c9l\u00e8ve"), QStringLiteral("\u00c9l\u00e8ve")},
        {QStringLiteral("Top"), QStringLiteral("Top")},
        {QStringLiteral("7A"), QStringLiteral("[7A]")},
        {QStringLiteral("order"), QStringLiteral("[order]")},
        {QStringLiteral("Like"), QStringLiteral("[Like]")},
        {QStringLiteral("Post-It"), QStringLiteral("[Post-It]")},
        {QStringLiteral("01/09/24 1"), QStringLiteral("[01/09/24 1]")},
        {QStringLiteral("a]b"), QStringLiteral("[a]]b]")},
        {QStringLiteral("7[A]"), QStringLiteral("[7[A]]]")},
        {QStringLiteral(""), QStringLiteral("[]")},
    };
    for (const auto& [name, written] : cases)
        EXPECT_EQ(writeName(name), written);
    EXPECT_EQ(writeText(u"O'Brien's"), QStringLiteral("'O''Brien''s'"));
}

TEST(CheckName, RefusesWhatCannotBeAName) {
    for (const QString& name : {QStringLiteral("a"), QString(64, u'x'), QStringLiteral("7[A]^_"),
                                QStringLiteral("O'Brien \"x\""), QStringLiteral("a ")})
        EXPECT_NO_THROW(checkName(name));
    for (const QString& name :
         {QString(), QString(65, u'x'), QStringLiteral(" a"), QStringLiteral("a.b"),
          QStringLiteral("a!"), QStringLiteral("a`"), QStringLiteral("a\tb"), QString(QChar(0)),
          QStringLiteral("a\u0085"), QString(QChar(0xd800))}) {
        try {
            checkName(name);
            ADD_FAILURE() << qPrintable(name);
        } catch (const EngineError& error) {
            EXPECT_EQ(error.number(), InvalidName);
        }
    }
}

TEST(MatchesLike, FollowsJetsPatterns) {
    struct Case {
        const char16_t* pattern;
        const char16_t* matching; ///< divided by blanks
        const char16_t* others;
    };
    const Case cases[] = {
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
    for (const Case& each : cases) {
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
    EXPECT_FALSE(matchesLike(text, QStringLiteral("a*").repeated(200) + u'b'));
    EXPECT_TRUE(matchesLike(text, QStringLiteral("*a").repeated(200)));
}
