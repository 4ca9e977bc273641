// The hunt for a text through all sheets: what counts as a hit, where it stands, and that the hunt
// goes on whatever happens to the sheets meanwhile.

#include "planning/lesson_search.h"

#include "core/database_closing.h"
#include "richtext/rtf_reader.h"
#include "support/planning_year.h"

#include <QTextDocument>

namespace {

/// Thirteen sheets of five periods, the first of 24-09-04, the last of 24-09-27.
class LessonSearchTest : public PlanningYear {
protected:
    LessonSearchTest() { openYear(twoWeekAnswers()); }

    /// The next hit as "24-09-09 1 5" with the position from 0; empty at the end.
    static QString next(LessonSearch& search) {
        LessonSearch::State state = search.lookOn();
        while (state == LessonSearch::State::Looking)
            state = search.lookOn();
        const LessonHit& hit = search.hit();
        return state == LessonSearch::State::Ended
                   ? QString()
                   : u"%1 %2 %3"_s.arg(hit.planDate).arg(hit.period).arg(hit.position);
    }
    QStringList all(const LessonQuery& query) {
        LessonSearch search(session, query);
        QStringList hits;
        for (QString hit = next(search); !hit.isEmpty(); hit = next(search))
            hits += hit;
        return hits;
    }
};

} // namespace

TEST_F(LessonSearchTest, AHitIsWhereTheBoxSelectsIt) {
    const QString head = u"{\\rtf1\\ansi{\\colortbl ;\\red255\\green255\\blue0;}\\pard\\plain "_s;
    const struct {
        QString text;
        QString wanted;
        bool matchesCase;
        qsizetype position; ///< -1: no hit
    } cases[] = {
        {u"Plain quiz"_s, u"quiz"_s, true, 6},
        {head + u"two\\par a Q{\\b ui}z here\\par }"_s, u"quiz"_s, false, 6},
        {head + u"two\\par a Q{\\b ui}z here\\par }"_s, u"quiz"_s, true, -1},
        {head + u"re\\highlight1 ad pa\\highlight0 ge\\par }"_s, u"d page"_s, true, 3},
        {head + u"see {\\pict\\pngblip 89504e47} then quiz\\par }"_s, u"quiz"_s, true, 11},
        {head + u"\\u-10179?\\u-8704? quiz\\par }"_s, u"quiz"_s, true, 3},
        {head + u"a\\~quiz\\par }"_s, u"A QUIZ"_s, false, 0},
        {head + u"caf\\'e9 b\\'fccher\\par }"_s, u"B\u00DCCHER"_s, false, 5},
        {head + u"pard\\par }"_s, u"plain"_s, false, -1},
        {head + u"one\\par two\\par }"_s, u"onetwo"_s, false, -1},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(qPrintable(each.text));
        store(u"24-09-09"_s, u"Lesson3"_s, each.text);
        const QStringList hits =
            all({.text = each.wanted, .box = SheetBox::Lesson, .matchesCase = each.matchesCase});
        const QStringList expected =
            each.position < 0 ? QStringList() : QStringList(u"24-09-09 3 %1"_s.arg(each.position));
        EXPECT_EQ(hits, expected);
        if (each.position < 0)
            continue;
        QTextDocument document;
        richtext::readDocument(each.text, document);
        EXPECT_EQ(document.toPlainText().mid(each.position, each.wanted.size()).toLower(),
                  each.wanted.toLower());
    }
}

TEST_F(LessonSearchTest, GoesThroughPeriodsAndSheetsToTheLastOfBoth) {
    const std::pair<QString, QString> texts[] = {{u"24-09-27"_s, u"Lesson5"_s},
                                                 {u"24-09-04"_s, u"Lesson2"_s},
                                                 {u"24-09-27"_s, u"Lesson1"_s},
                                                 {u"24-09-13"_s, u"Homework1"_s}};
    for (const auto& [date, field] : texts)
        store(date, field, u"It's a quiz, the quiz"_s);
    EXPECT_EQ(all({.text = u"'s a q"_s}),
              QStringList({u"24-09-04 2 2"_s, u"24-09-27 1 2"_s, u"24-09-27 5 2"_s}));
    EXPECT_EQ(all({.text = u"quiz"_s, .box = SheetBox::Homework}), QStringList(u"24-09-13 1 7"_s));
    LessonSearch search(session, {.text = u"none"_s});
    EXPECT_EQ(next(search), QString());
    EXPECT_EQ(search.percentDone(), 100);
}

TEST_F(LessonSearchTest, GoesOnOverSheetsThatChangeMeanwhile) {
    for (const QString& date : {u"24-09-05"_s, u"24-09-06"_s, u"24-09-09"_s})
        store(date, u"Lesson1"_s, u"quiz"_s);
    LessonSearch search(session, {.text = u"quiz"_s});
    EXPECT_EQ(search.lookOn(), LessonSearch::State::Looking);
    rows(sheet(u"24-09-05"_s)).Delete();
    EXPECT_EQ(next(search), u"24-09-06 1 0"_s);
    rows(sheet(u"24-09-06"_s)).Delete(); // with the hit
    store(u"24-09-09"_s, u"Lesson1"_s, u"no more"_s);
    store(u"24-09-27"_s, u"Lesson1"_s, u"a quiz"_s);
    EXPECT_EQ(search.lookOn(), LessonSearch::State::Looking);
    CloseRecordsets(session.CurrentDB, seams.prompts);
    EXPECT_EQ(next(search), u"24-09-27 1 2"_s);
    session.CloseAllDatabases();
    EXPECT_THROW(search.lookOn(), dao::EngineError);
}
