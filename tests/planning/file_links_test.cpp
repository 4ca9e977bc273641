// The links of a sheet's periods.

#include "planning/file_links.h"

#include "support/year_session.h"

namespace {

class PeriodLinksTest : public YearSession {
protected:
    PeriodLinksTest() { openYear(oneWeekAnswers()); }

    bool add(const QString& date, int period, const QString& name, const QString& path) {
        seams.prompts.expect(PromptKind::Link, u"Create a File Link"_s, LinkAnswer{name, path});
        return AddFileLink(session.CurrentDB, seams.prompts, date, period);
    }
    QStringList names(const QString& date, int period) {
        QStringList found;
        for (const FileLink& link : GetFileLinks(session.CurrentDB, seams.prompts, date, period))
            found += link.name;
        return found;
    }

    const QString monday = u"24-09-09"_s;
    const QString tuesday = u"24-09-10"_s;
};

} // namespace

TEST_F(PeriodLinksTest, ANameIsUniqueInItsPeriod) {
    EXPECT_EQ(names(monday, 1), QStringList());
    EXPECT_TRUE(add(monday, 1, u"Dad's maths"_s, u"http://example.org/1"_s));
    seams.prompts.expect(PromptKind::Link, u"Create a File Link"_s,
                         LinkAnswer{u"dad's maths"_s, u"http://example.org/2"_s});
    seams.prompts.expect(PromptKind::Message, u"Duplicate name"_s, AnswerOk);
    EXPECT_FALSE(AddFileLink(session.CurrentDB, seams.prompts, monday, 1));
    EXPECT_TRUE(add(monday, 2, u"Dad's maths"_s, u"http://example.org/3"_s));
    seams.prompts.expect(PromptKind::Link, u"Create a File Link"_s);
    EXPECT_FALSE(AddFileLink(session.CurrentDB, seams.prompts, monday, 1));
    EXPECT_EQ(names(monday, 1), QStringList{u"Dad's maths"_s});
    EXPECT_EQ(names(tuesday, 1), QStringList());
    EXPECT_EQ(AllFileLinks(session.CurrentDB, seams.prompts).size(), 2);
    EXPECT_TRUE(ReadFileLinks(session.CurrentDB, u"' OR '1'='1"_s).isEmpty());
}

TEST_F(PeriodLinksTest, OpensByDateAndRemovesByNameAlone) {
    add(monday, 1, u"site"_s, u"http://example.org/1"_s);
    add(tuesday, 1, u"site"_s, u"http://example.org/2"_s);
    add(tuesday, 1, u"gone"_s, u"/no/such/file.txt"_s);
    OpenLink(session.CurrentDB, settings, seams.seams(), tuesday, u"site"_s);
    EXPECT_EQ(seams.shell.runs.last().file, u"http://example.org/2"_s);
    seams.prompts.expect(PromptKind::Plain, u"File doesn't exist"_s, AnswerOk);
    OpenLink(session.CurrentDB, settings, seams.seams(), tuesday, u"gone"_s);
    EXPECT_TRUE(seams.prompts.last().text.contains(u"/no/such/file.txt"_s));
    RemoveFileLink(session.CurrentDB, seams.prompts, u"site"_s);
    EXPECT_EQ(names(monday, 1), QStringList());
    EXPECT_EQ(names(tuesday, 1), (QStringList{u"site"_s, u"gone"_s}));
}
