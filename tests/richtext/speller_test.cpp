#include "richtext/speller.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QStringList words(const QString& text) {
    QStringList found;
    for (const richtext::TextRange& word : richtext::wordsToCheck(text))
        found += text.mid(word.start, word.length);
    return found;
}

} // namespace

TEST(Speller, KnowsWhatAWordIs) {
    const struct {
        QString text;
        QStringList words;
    } texts[] = {
        {u""_s, {}},
        {u"Read page 4, twice."_s, {u"Read"_s, u"page"_s, u"twice"_s}},
        {u"don't 'quote' pupils\u2019 it\u2019s"_s,
         {u"don't"_s, u"quote"_s, u"pupils"_s, u"it\u2019s"_s}},
        {u"7XA 7b1 GCSE a I PE"_s, {}},
        {u"see www.bbc.co.uk, http://a.b/cde or ann@school.uk now"_s,
         {u"see"_s, u"or"_s, u"now"_s}},
        {u"well-known and/or \uFFFCobject"_s,
         {u"well"_s, u"known"_s, u"and"_s, u"or"_s, u"object"_s}},
        {u"cafe\u0301 na\u00EFve"_s, {u"cafe\u0301"_s, u"na\u00EFve"_s}},
        {QString(200, u'x'), {}},
        {u"\u03B3\u03B5\u03B9\u03AC the \u043C\u0438\u0440"_s, {u"the"_s}},
    };
    for (const auto& [text, expected] : texts)
        EXPECT_EQ(words(text), expected) << text.toStdString();
}

TEST(Speller, ChecksBritishEnglish) {
    richtext::Speller speller;
    if (speller.isRight(u"colourr"))
        GTEST_SKIP() << "no British dictionary is installed";
    for (const QString& word : {u"colour"_s, u"centre"_s, u"don\u2019t"_s, u"programme"_s})
        EXPECT_TRUE(speller.isRight(word)) << word.toStdString();
    EXPECT_FALSE(speller.isRight(u"center"));
    EXPECT_EQ(speller.mistakes(u"The fotosynthesis of plants"),
              (QList<richtext::TextRange>{{4, 13}}));
    EXPECT_TRUE(speller.suggestions(u"fotosynthesis"_s).contains(u"photosynthesis"_s));
    EXPECT_LE(speller.suggestions(u"teh"_s, 2).size(), 2);
    speller.accept(u"Orvane\u2019s"_s);
    EXPECT_TRUE(speller.isRight(u"Orvane's"));
}

TEST(Speller, WithoutADictionaryEverythingIsRight) {
    richtext::Speller speller(u"/no/such/dictionary"_s);
    EXPECT_TRUE(speller.isRight(u"colourr"));
    EXPECT_TRUE(speller.suggestions(u"colourr"_s).isEmpty());
}
