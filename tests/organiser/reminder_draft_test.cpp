// What is checked before an item is saved, the clock of twelve hours, and the sounds on offer.

#include "organiser/reminder_draft.h"
#include "organiser/sound_list.h"
#include "organiser/twelve_hours.h"
#include "support/engine_files.h"
#include "support/recording_seams.h"

#include "core/settings.h"

namespace {

const QDateTime draftNow(QDate(2026, 9, 1), QTime(12, 0));

ReminderDraft goodDraft() {
    return {.caption = u"title"_s,
            .message = u"message"_s,
            .date = draftNow.date(),
            .time = QTime(12, 1)};
}

} // namespace

TEST(ReminderDraftTest, SavingTellsTheFirstThingThatIsWrong) {
    const auto without = [](const std::function<void(ReminderDraft&)>& change) {
        ReminderDraft draft = goodDraft();
        change(draft);
        return draft;
    };
    const struct {
        ReminderDraft draft;
        QString title; ///< of the box; empty: it may be saved
        bool isTaken = false;
    } cases[] = {
        {goodDraft(), {}},
        {without([](auto& d) { d.caption.clear(), d.date = d.date.addDays(-1); }), u"No Caption"_s},
        {without([](auto& d) { d.date = QDate(); }), u"Invalid Date"_s},
        {without([](auto& d) { d.date = d.date.addDays(-1); }), u"Invalid Date"_s, true},
        {without([](auto& d) { d.date = d.date.addDays(-1), d.isDaily = true; }), {}},
        {without([](auto& d) { d.time = QTime(12, 0); }), u"Invalid Time"_s, true},
        {without([](auto& d) { d.time = QTime(12, 0), d.isWeekly = true; }), {}},
        {without([](auto& d) { d.message.clear(), d.date = d.date.addDays(-1); }), u"No message"_s,
         true},
        {without([](auto& d) { d.message.clear(), d.type = SoundOnlyReminder; }), {}},
        {goodDraft(), u"Duplicate Task"_s, true},
    };
    for (const auto& [draft, title, isTaken] : cases) {
        ScriptedPrompts prompts;
        if (!title.isEmpty())
            prompts.expect(PromptKind::Plain, title, AnswerOk);
        EXPECT_EQ(maySave(draft, draftNow, prompts,
                          [isTaken = isTaken](const QString& date, const QString& time) {
                              EXPECT_EQ(date.size() + time.size(), 18);
                              return isTaken;
                          }),
                  title.isEmpty());
    }
    ScriptedPrompts none;
    EXPECT_TRUE(maySave(goodDraft(), draftNow, none, {})) << "what is edited may keep its time";
}

TEST(ReminderDraftTest, ARowComesBackAsItWasWritten) {
    ReminderDraft draft = goodDraft();
    draft.isWeekly = draft.loops = true;
    draft.sound = u"/bell's.wav"_s;
    EXPECT_EQ(draftOf(itemOf(draft)), draft);
    EXPECT_EQ(scheduleDetails(itemOf(draft)),
              u"Date:   2026-09-01\nTime:   12:01:00 - Weekly Event\nActive: Yes\nType:   Message "
              "Reminder\nSound: bell's.wav"_s);
}

TEST(TwelveHoursTest, MidnightAndNoonAreTwelve) {
    const std::pair<QTime, QString> times[] = {{QTime(0, 5), u"12:05 AM"_s},
                                               {QTime(1, 0), u"01:00 AM"_s},
                                               {QTime(12, 0), u"12:00 PM"_s},
                                               {QTime(23, 59), u"11:59 PM"_s}};
    for (const auto& [time, text] : times) {
        const TwelveHours hours(time);
        EXPECT_EQ(hours.text(TwelveHours::Hour) + u':' + hours.text(TwelveHours::Minute) + u' ' +
                      hours.text(TwelveHours::Half),
                  text);
        EXPECT_EQ(hours.time(), time);
    }
    TwelveHours hours(QTime(23, 59));
    for (const auto part : {TwelveHours::Hour, TwelveHours::Minute, TwelveHours::Half})
        hours.step(part, 1);
    EXPECT_EQ(hours.time(), QTime(0, 0));
    for (const auto part : {TwelveHours::Hour, TwelveHours::Minute, TwelveHours::Half})
        hours.step(part, -1);
    EXPECT_EQ(hours.time(), QTime(23, 59));
}

using SoundListTest = EngineFiles;

TEST_F(SoundListTest, OffersWhatWasChosenAndWhatTheDesktopLists) {
    Settings settings(path(u"settings.ini"_s));
    for (const QString& name : {u"a.wav"_s, u"b & c.WAV"_s, u"chosen.wav"_s, u"song.ogg"_s})
        writeFile(path(name), "x");
    const auto bookmark = [&](const QString& file, const QString& modified) {
        return u"<bookmark href=\"file://%1\" modified=\"%2\"/>"_s.arg(path(file), modified);
    };
    const QString list =
        writeFile(path(u"recent.xbel"_s),
                  (u"<?xml version=\"1.0\"?><xbel version=\"1.0\">"_s +
                   bookmark(u"a.wav"_s, u"2026-01-01T10:00:00.5Z"_s) +
                   bookmark(u"b%20&amp;%20c.WAV"_s, u"2026-02-01T10:00:00Z"_s) +
                   bookmark(u"song.ogg"_s, u"2026-03-01T10:00:00Z"_s) +
                   bookmark(u"gone.wav"_s, u"2026-03-01T10:00:00Z"_s) + u"<bookmark href=\"x"_s)
                      .toUtf8());
    NoteReminderSound(settings, path(u"a.wav"_s));
    NoteReminderSound(settings, path(u"chosen.wav"_s));
    EXPECT_EQ(ReminderSounds(settings, list),
              QStringList({path(u"chosen.wav"_s), path(u"a.wav"_s), path(u"b & c.WAV"_s)}));
    EXPECT_EQ(ReminderSounds(settings, path(u"none"_s)).size(), 2);
}
