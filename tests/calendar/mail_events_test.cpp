// Events of the mail client in the calendar of events.

#include "calendar/event_rows.h"
#include "calendar/mail_events.h"
#include "richtext/plain_text.h"
#include "support/year_session.h"

namespace {

MailEvent event(QDate day, const QString& subject, const QString& body = {}) {
    return {.Start = day.startOfDay(), .IsRecurring = false, .Subject = subject, .Body = body};
}

const QString Head = u"{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 MS Sans "
                     u"Serif;}}\r\n\\viewkind4\\uc1\\pard\\lang2057\\f0\\fs17 "_s;

class MailEventsTest : public YearSession {
protected:
    MailEventsTest() { openYear(oneWeekAnswers()); }
    QString day(int month, int day) {
        return eventTexts(session.CurrentDB, {month < 8 ? 2025 : 2024, month}).at(day - 1);
    }
};

} // namespace

TEST(MailEventText, ADocumentIsMadeOrGoesOn) {
    const QDate day(2026, 9, 7);
    const struct {
        QString before;
        MailEvent added;
        QString after;
    } cases[] = {
        {{}, event(day, u"Trip"_s), Head + u"Trip \r\n\\par }"_s},
        {{}, event(day, u"Trip"_s, u"Zoo"_s), Head + u"Trip :- \\i Zoo \\i0  \r\n\\par }"_s},
        {Head + u"Trip \r\n\\par }"_s, event(day, u"Play"_s),
         Head + u"Trip \r\n\\par Play \r\n\\par }"_s},
        {Head + u"\r\n\\par }"_s, event(day, u"Play"_s), Head + u"Play \r\n\\par }"_s},
        {Head + u"} \\par"_s, event(day, u"Play"_s), Head + u"} \\par"_s},
    };
    for (const auto& [before, added, after] : cases)
        EXPECT_EQ(withEvent(before, added).toStdString(), after.toStdString());
    const QString odd = withEvent({}, event(day, u"{A} \\b é Ω"_s, u"one\r\ntwo"_s));
    EXPECT_EQ(richtext::plainText(odd), u"{A} \\b é Ω :- one\ntwo  "_s);
}

TEST_F(MailEventsTest, EveryItemLandsInTheAcademicYear) {
    seams.mail.events.items = {event({2031, 3, 5}, u"Trip"_s), event({2024, 3, 5}, u"Play"_s),
                               event({2024, 9, 30}, u"O'Hare"_s)};
    ASSERT_TRUE(COEImportFromOutlook(session));
    EXPECT_EQ(day(3, 5).simplified(), u"Trip Play"_s);
    EXPECT_EQ(day(9, 30).trimmed(), u"O'Hare"_s);
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT Month FROM Calendar"_s).size(), 12);
}

TEST_F(MailEventsTest, WithoutItemsTheReasonIsTold) {
    seams.prompts.expect(PromptKind::Message, u"No Events Found"_s, AnswerOk);
    EXPECT_FALSE(COEImportFromOutlook(session));
    EXPECT_EQ(seams.prompts.last().text,
              u"Sorry but no calendar events could be found in outlook!"_s);
    seams.mail.events.fault = u"No server."_s;
    seams.prompts.expect(PromptKind::Message, u"No Events Found"_s, AnswerOk);
    EXPECT_FALSE(COEImportFromOutlook(session));
    EXPECT_TRUE(seams.prompts.last().text.endsWith(u"\n\nNo server."_s));
}
