// The timetable as a document: one week or two, a page each, in the cells' colours.

#include "calendar/timetable_document.h"

#include "calendar/timetable.h"
#include "richtext/plain_text.h"
#include "support/year_session.h"

namespace {

class TimetableDocumentTest : public YearSession {
protected:
    QString made(TimetableWeeks weeks) {
        DocumentPlace place{.appPath = {}, .webAddress = {}, .target = path(u"made.rtf"_s)};
        QFile::remove(place.target);
        CreateTimetableDocument(session, place, weeks);
        QFile file(place.target);
        return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
    }
};

} // namespace

TEST_F(TimetableDocumentTest, HasAPageEachWeek) {
    openYear(twoWeekAnswers());
    TimetableGrid grid(session.PeriodsPerDay);
    LoadTT(session.CurrentDB, 0, grid);
    grid.applyEdit(1, 1, {.caption = u"Maths & co"_s, .colour = 0x201008, .room = u"R7"_s});
    SaveTTinfo(session, 0, grid);
    const QString both = made(TimetableWeeks::Both);
    EXPECT_EQ(both.count(u"\\pagebb"_s), 1);
    EXPECT_TRUE(both.contains(u"\\landscape"_s));
    EXPECT_TRUE(both.contains(u"\\red8\\green16\\blue32;"_s)) << "red is the low byte";
    EXPECT_TRUE(both.contains(u"\\red255\\green255\\blue255;"_s)) << "text that reads on it";
    const QString text = richtext::plainText(both).simplified();
    EXPECT_TRUE(text.contains(u"Period Monday Tuesday Wednesday Thursday Friday 1 Maths & co R7"_s))
        << qPrintable(text);
    EXPECT_TRUE(made(TimetableWeeks::First).contains(u"Week A"_s));
    EXPECT_FALSE(made(TimetableWeeks::Second).contains(u"Week A"_s));
}

TEST_F(TimetableDocumentTest, OfOneWeekHasNoSecond) {
    openYear(oneWeekAnswers());
    seams.prompts.expect(PromptKind::Message, u"Document creation cancelled"_s, AnswerOk);
    EXPECT_TRUE(made(TimetableWeeks::Second).isEmpty());
    EXPECT_EQ(made(TimetableWeeks::Both).count(u"Monday"_s), 1);
}
