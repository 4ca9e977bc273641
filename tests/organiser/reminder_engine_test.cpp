// The reminders without a window: which item is armed, when it comes, what becomes of its row, and
// that neither a clock nor a file that misbehaves loses one or repeats it for ever.

#include "organiser/reminder_engine.h"
#include "organiser/reminder_watch.h"
#include "support/year_session.h"

#include <ctime>

using namespace std::chrono_literals;

namespace {

/// A clock that may be put forward or back while timers run on.
class AdjustedClock : public Clock {
public:
    explicit AdjustedClock(ScriptedClock& clock) : m_clock(clock) {}
    QDateTime now() const override { return m_clock.now().addMSecs(ahead.count()); }
    std::unique_ptr<Timer> after(std::chrono::milliseconds delay,
                                 std::function<void()> action) override {
        return m_clock.after(delay, std::move(action));
    }
    std::chrono::milliseconds ahead{};

private:
    ScriptedClock& m_clock;
};

/// The time of a place, as long as it lives.
class InPlace {
public:
    explicit InPlace(const QByteArray& place) : m_before(qgetenv("TZ")) { move(place); }
    ~InPlace() { move(m_before); }
    InPlace(const InPlace&) = delete;
    InPlace& operator=(const InPlace&) = delete;

private:
    static void move(const QByteArray& place) {
        place.isEmpty() ? qunsetenv("TZ") : qputenv("TZ", place);
        ::tzset();
    }
    QByteArray m_before;
};

QDateTime at(const QString& text) {
    return QDateTime::fromString(text, u"yyyy-MM-dd HH:mm:ss"_s);
}

class ReminderEngineTest : public YearSession, public ReminderEffects {
protected:
    void SetUp() override {
        openYear(twoWeekAnswers());
        CheckSchedulesTable(session.CurrentDB);
    }
    void add(const QString& date, const QString& time, const QString& caption,
             const QString& duration = OnceOnly, qint64 type = MessageReminder) {
        dao::Recordset row = rows(u"Schedules"_s);
        row.AddNew();
        setScheduleItem(row, {.date = date,
                              .time = time,
                              .caption = caption,
                              .memo = u"message"_s,
                              .alarm = u"/sound.wav"_s,
                              .type = type,
                              .duration = duration});
        row.Update();
    }
    /// Begins at a moment and lets time pass; answers what came: hh:mm:ss and the caption.
    QStringList play(const QDateTime& from, std::chrono::milliseconds time) {
        log.clear();
        watch.reset();
        engine_.reset(); // their timers are the clock's
        clock = std::make_unique<ScriptedClock>(from);
        adjusted = std::make_unique<AdjustedClock>(*clock);
        engine_ = std::make_unique<ReminderEngine>(session, *adjusted, *this);
        engine_->Check_Schedules();
        clock->advance(time);
        return log;
    }
    QString row(const QString& caption) {
        return rowsOf(session.CurrentDB,
                      u"SELECT TaskDate, TaskTime, Active FROM Schedules WHERE Caption = "
                      "'%1'"_s.arg(caption))
            .join(u';');
    }

    void fired(const ScheduleItem& item) override {
        log += QLocale::c().toString(adjusted->now(), u"HH:mm:ss "_s) + item.caption;
    }
    void show(const ScheduleItem& item) override { shown += item.caption; }
    void play(const QString& path, const std::function<void()>& ended) override {
        sounds += path;
        soundEnded = ended;
    }

    QStringList log, shown, sounds;
    std::function<void()> soundEnded;
    std::unique_ptr<ScriptedClock> clock;
    std::unique_ptr<AdjustedClock> adjusted;
    std::unique_ptr<ReminderEngine> engine_;
    std::unique_ptr<ReminderWatch> watch;
};

const QString errorTitle = u"Schedule Reminder error"_s;

} // namespace

TEST_F(ReminderEngineTest, ArmsUpToSixDaysAhead) {
    add(u"2026-09-07"_s, u"09:00:00"_s, u"far"_s);
    const QDateTime sixDaysBefore = at(u"2026-09-01 09:00:00"_s);
    EXPECT_EQ(play(sixDaysBefore, 24h * 8), QStringList());
    EXPECT_EQ(play(sixDaysBefore.addSecs(3600), 24h * 8), QStringList(u"09:00:00 far"_s));
    EXPECT_EQ(row(u"far"_s), u"2026-09-07|09:00:00|No"_s);
}

TEST_F(ReminderEngineTest, TheWatchFindsWhatWasTooFarAheadAndWhatWasSleptThrough) {
    add(u"2026-09-10"_s, u"09:00:00"_s, u"far"_s);
    add(u"2026-09-11"_s, u"09:00:00"_s, u"slept"_s);
    EXPECT_EQ(play(at(u"2026-09-01 09:00:00"_s), 0ms), QStringList());
    watch = std::make_unique<ReminderWatch>(*engine_, *clock, seams.shell);
    engine_->Check_Schedules();
    EXPECT_FALSE(seams.shell.woken) << "the desktop's buses are left alone at the start";
    clock->advance(24h * 9 + 1min);
    EXPECT_EQ(log, QStringList(u"09:00:00 far"_s));
    adjusted->ahead = 72h; // no timer knows of it
    seams.shell.woken();
    clock->advance(1s);
    EXPECT_EQ(log.value(1), u"09:01:01 slept"_s);
}

TEST_F(ReminderEngineTest, TheTimeOfDayDecidesWhateverBecomesOfTheClock) {
    add(u"2026-09-01"_s, u"12:00:00"_s, u"noon"_s);
    EXPECT_EQ(play(at(u"2026-09-01 11:00:00"_s), 30min), QStringList());
    watch = std::make_unique<ReminderWatch>(*engine_, *clock, seams.shell);
    engine_->Check_Schedules();
    adjusted->ahead = -2h;
    clock->advance(2h);
    EXPECT_EQ(log, QStringList()) << "put back";
    adjusted->ahead = 2h;
    clock->advance(61s);
    EXPECT_EQ(log.size(), 1) << "put forward";
}

TEST_F(ReminderEngineTest, EachRepetitionGoesOnInItsOwnWay) {
    const struct {
        QString today; ///< 4 September 2026 is a Friday
        QString next;
    } days[] = {{u"2026-09-03"_s, u"2026-09-04"_s},
                {u"2026-09-04"_s, u"2026-09-07"_s},
                {u"2026-09-05"_s, u"2026-09-06"_s},
                {u"2026-09-06"_s, u"2026-09-07"_s}};
    for (const auto& [today, next] : days) {
        add(today, u"00:00:00"_s, today, EveryDay);
        EXPECT_EQ(play(at(today + u" 00:00:00"_s), 1min), QStringList(u"00:00:00 "_s + today));
        EXPECT_EQ(row(today), next + u"|00:00:00|Yes"_s);
        changeRecord(session.CurrentDB,
                     u"SELECT * FROM Schedules WHERE Caption = '%1'"_s.arg(today), u"Active"_s,
                     u"No"_s);
    }
    add(u"2026-08-12"_s, u"12:00:00"_s, u"weekly"_s, EveryWeek);
    EXPECT_EQ(play(at(u"2026-09-02 09:00:00"_s), 2h),
              QStringList({u"09:00:01 weekly"_s, u"09:00:02 weekly"_s, u"09:00:03 weekly"_s}));
    EXPECT_EQ(row(u"weekly"_s), u"2026-09-02|12:00:00|Yes"_s);
}

TEST_F(ReminderEngineTest, TwoItemsOfOneMinuteComeOnceEach) {
    add(u"2026-09-01"_s, u"12:00:00"_s, u"one"_s);
    add(u"2026-09-01"_s, u"12:00:00"_s, u"two"_s);
    add(u"2026-09-01"_s, u"12:00:00"_s, u"silent"_s, EveryWeek, 3);
    EXPECT_EQ(play(at(u"2026-09-01 11:59:00"_s), 1h).size(), 3);
    EXPECT_EQ(shown, QStringList({u"one"_s, u"two"_s}));
    EXPECT_EQ(row(u"one"_s), u"2026-09-01|12:00:00|No"_s);
    EXPECT_EQ(row(u"two"_s), u"2026-09-01|12:00:00|No"_s);
    EXPECT_EQ(row(u"silent"_s), u"2026-09-08|12:00:00|Yes"_s);
}

TEST_F(ReminderEngineTest, AnItemEditedWhileItIsArmedComesAsItIsThen) {
    add(u"2026-09-01"_s, u"12:00:00"_s, u"item"_s);
    play(at(u"2026-09-01 11:00:00"_s), 1min);
    put(u"Schedules"_s, u"TaskTime"_s, u"13:00:00"_s); // even where nobody told of it
    clock->advance(90min);
    EXPECT_EQ(log, QStringList());
    put(u"Schedules"_s, u"TaskTime"_s, u"12:45:00"_s);
    emit session.GetNotices().remindersChanged();
    clock->advance(20min);
    EXPECT_EQ(log, QStringList(u"12:45:00 item"_s));
}

TEST_F(ReminderEngineTest, AfterASoundTheNextOneWaitsForItsEnd) {
    add(u"2026-09-01"_s, u"12:00:00"_s, u"sound"_s, OnceOnly, SoundOnlyReminder);
    add(u"2026-09-01"_s, u"12:00:00"_s, u"then"_s);
    EXPECT_EQ(play(at(u"2026-09-01 11:59:00"_s), 5min).size(), 1);
    EXPECT_EQ(sounds, QStringList(u"/sound.wav"_s));
    emit session.GetNotices().remindersChanged();
    clock->advance(5min);
    EXPECT_EQ(log.size(), 1);
    soundEnded();
    clock->advance(1s);
    EXPECT_EQ(log.value(1), u"12:09:01 then"_s);
    add(u"2026-09-01"_s, u"12:10:00"_s, u"last sound"_s, OnceOnly, SoundOnlyReminder);
    engine_->Check_Schedules();
    clock->advance(1min);
    session.CloseAllDatabases(); // while it plays
    soundEnded();
    EXPECT_FALSE(engine_->isWaiting());
}

TEST_F(ReminderEngineTest, WhatMakesNoSenseIsToldOnceAndPassedOver) {
    add(u"2026-02-30"_s, u"12:00:00"_s, u"date"_s);
    add(u"2026-09-01"_s, u"11:61:00"_s, u"time"_s);
    add(u"2026-09-01"_s, u""_s, u"no time"_s);
    add(u"2026-09-01"_s, u"11:00:00"_s, u"repetition"_s, u"M"_s);
    add(u"2026-09-01"_s, u"12:00:00"_s, u"good"_s);
    add(u"2026-09-01"_s, u"12:01:00"_s, u"good too"_s);
    const QStringList before = rowsOf(session.CurrentDB, u"SELECT * FROM Schedules"_s).first(4);
    seams.prompts.expect(PromptKind::Plain, errorTitle, AnswerOk);
    EXPECT_EQ(play(at(u"2026-09-01 11:59:00"_s), 1h),
              QStringList({u"12:00:00 good"_s, u"12:01:00 good too"_s}));
    EXPECT_TRUE(seams.prompts.last().text.contains(u"date\nno time\nrepetition\ntime"_s))
        << qPrintable(seams.prompts.last().text);
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT * FROM Schedules"_s).first(4), before);
}

TEST_F(ReminderEngineTest, AFileThatCannotBeWrittenIsToldOnceAndTriedAgain) {
    add(u"2026-09-01"_s, u"12:00:00"_s, u"item"_s);
    add(u"2026-09-01"_s, u"12:30:00"_s, u"later"_s, EveryDay);
    {
        seams.prompts.expect(PromptKind::Plain, errorTitle, AnswerOk);
        const FileSizeLimit fullDisk(1);
        EXPECT_EQ(play(at(u"2026-09-01 11:59:00"_s), 2h),
                  QStringList({u"12:00:00 item"_s, u"12:30:00 later"_s}));
    }
    EXPECT_EQ(row(u"item"_s), u"2026-09-01|12:00:00|Yes"_s);
    clock->advance(10min);
    EXPECT_EQ(log.size(), 2);
    EXPECT_EQ(row(u"item"_s), u"2026-09-01|12:00:00|No"_s);
    EXPECT_EQ(row(u"later"_s), u"2026-09-02|12:30:00|Yes"_s);
}

TEST_F(ReminderEngineTest, TheNightsOfTheChangedClock) {
    const InPlace london("Europe/London");
    add(u"2026-03-29"_s, u"01:30:00"_s, u"skipped"_s);
    EXPECT_EQ(play(at(u"2026-03-28 23:00:00"_s), 12h), QStringList(u"02:30:00 skipped"_s));
    add(u"2026-10-25"_s, u"01:30:00"_s, u"twice"_s);
    EXPECT_EQ(play(at(u"2026-10-24 23:00:00"_s), 12h), QStringList(u"01:30:00 twice"_s));
    add(u"2026-03-30"_s, u"09:00:00"_s, u"behind"_s);
    EXPECT_EQ(play(at(u"2026-03-28 09:00:00"_s), 72h), QStringList(u"09:00:00 behind"_s));
}

TEST_F(ReminderEngineTest, AnOlderTableIsBroughtUpToDateByTheFirstThatNeedsIt) {
    for (const bool byWindow : {true, false}) {
        session.CurrentDB.TableDefs()[u"Schedules"].Fields().Delete(u"Type");
        session.CurrentDB.TableDefs()[u"Schedules"].Fields().Delete(u"Duration");
        dao::Recordset row = rows(u"Schedules"_s);
        row.AddNew();
        for (const auto& [field, text] :
             std::initializer_list<std::pair<QString, QString>>{{u"TaskDate"_s, u"2026-09-01"_s},
                                                                {u"TaskTime"_s, u"12:00:00"_s},
                                                                {u"Caption"_s, u"old"_s},
                                                                {u"Active"_s, u"Yes"_s}})
            row.SetCollect(field, text);
        row.Update();
        row.Close();
        if (byWindow)
            CheckSchedulesTable(session.CurrentDB);
        EXPECT_EQ(play(at(u"2026-09-01 11:59:00"_s), 1h), QStringList(u"12:00:00 old"_s));
        EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT Type, Duration FROM Schedules"_s).last(),
                  u"1|X"_s);
    }
}

TEST_F(ReminderEngineTest, AYearWithoutItemsHasNothingToWaitFor) {
    play(at(u"2026-09-01 11:59:00"_s), 1h);
    EXPECT_EQ(clock->running(), 0);
    session.CurrentDB.TableDefs().Delete(u"Schedules");
    play(at(u"2026-09-01 11:59:00"_s), 1h);
    EXPECT_EQ(clock->running(), 0);
}
