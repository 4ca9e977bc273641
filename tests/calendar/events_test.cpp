// The calendar of events in the file: which row a month has, how extra rows come and go, tables of
// older files, and the calendar of another year taken over.

#include "calendar/event_import.h"
#include "calendar/event_months.h"
#include "support/engine_jet.h"
#include "support/engine_places.h"
#include "support/year_session.h"

#include <QFileInfo>
#include <QSignalSpy>

namespace {

const QString calendar = u"SELECT * FROM Calendar"_s;

QString rtf(const QString& text) {
    return u"{\\rtf1\\ansi\\pard\\plain\\f0\\fs20 %1\\par }"_s.arg(text);
}

/// Its year is 2024-2025, its today Monday 9 September 2024.
class EventsTest : public YearSession {
protected:
    EventsTest() { openYear(twoWeekAnswers()); }

    dao::Database& year() { return session.CurrentDB; }
    QString keyOf(const EventMonth& month) {
        return openEventMonth(year(), month, 2024).Collect(u"Month").toText();
    }
    static QStringList keys(const dao::Database& database) {
        return rowsOf(database, u"SELECT Month FROM Calendar"_s);
    }
    static QString of(const QString& key) {
        return u"SELECT * FROM Calendar WHERE Month = '%1'"_s.arg(key);
    }
    int sizeOfKey() { return year().TableDefs()[u"Calendar"].Fields()[u"Month"].Size; }
    /// Another year's file, with an event on the first of each base month.
    dao::Database other(const QString& name = u"other.mdb"_s) {
        createYear(oneWeekAnswers(), path(name), seams, ExistingFile::Replace);
        dao::Database made = engine.OpenDatabase(path(name));
        dao::Recordset months = made.OpenRecordset(u"Calendar"_s);
        for (int month = 1; !months.EOF_(); months.MoveNext(), ++month) {
            months.Edit();
            months.SetCollect(u"D1", rtf(u"theirs %1"_s.arg(month)));
            months.Update();
        }
        return made;
    }
    bool take(const QString& name = u"other.mdb"_s) { return importEvents(session, path(name)); }
    QString firstOf(const EventMonth& month) { return eventTexts(year(), month).value(0); }
};

} // namespace

TEST_F(EventsTest, MonthsOfTheAcademicYearHaveBaseRows) {
    const struct {
        EventMonth month;
        QString key;
    } cases[] = {
        {{2024, 9}, u"Sep1"_s},    {{2024, 8}, u"Aug1"_s},    {{2025, 7}, u"Jul1"_s},
        {{2025, 1}, u"Jan1"_s},    {{2025, 8}, u"Aug2025"_s}, {{2024, 7}, u"Jul2024"_s},
        {{2025, 9}, u"Sep2025"_s}, {{1, 1}, u"Jan0001"_s},
    };
    for (const auto& [month, key] : cases)
        EXPECT_EQ(keyOf(month), key);
    EXPECT_EQ(keyOf({2025, 9}), u"Sep2025"_s) << "found, not made again";
    EXPECT_EQ(keys(year()).mid(12),
              QStringList({u"Aug2025"_s, u"Jul2024"_s, u"Sep2025"_s, u"Jan0001"_s}));
}

TEST_F(EventsTest, TheKeyGrowsWithTheFirstExtraRowAndNothingIsLost) {
    put(of(u"Feb1"_s), u"D28"_s, rtf(u"O'Neill"_s));
    put(of(u"Dec1"_s), u"D31"_s, QString(u""_s));
    const QStringList before = rowsOf(year(), calendar);
    EXPECT_EQ(eventTexts(year(), {2025, 9}), QStringList()) << "reading makes no row";
    keyOf({2024, 9});
    EXPECT_EQ(sizeOfKey(), 4);
    {
        const dao::Recordset open = rows(u"Calendar"_s);
        EXPECT_EQ(errorOf([&] { keyOf({2025, 9}); }), dao::TableInUse);
    }
    EXPECT_EQ(rowsOf(year(), calendar), before);
    keyOf({2025, 9});
    EXPECT_EQ(sizeOfKey(), 7);
    EXPECT_EQ(rowsOf(year(), calendar).mid(0, 12), before);
    EXPECT_EQ(eventTexts(year(), {2025, 2}).value(27), u"O'Neill"_s);
    EXPECT_EQ(eventTexts(year(), {2025, 2}).size(), 28);
}

TEST_F(EventsTest, EmptyExtraRowsGoAndNoOthers) {
    const QString object = u"{\\rtf1\\ansi{\\object\\objemb{\\*\\objclass Package}}\\par }"_s;
    const struct {
        EventMonth month;
        dao::Value content;
    } cases[] = {{{2025, 9}, {}},
                 {{2025, 10}, rtf(u" "_s)},
                 {{2025, 11}, rtf(u"kept"_s)},
                 {{2025, 12}, QString(u""_s)},
                 {{2026, 1}, object}};
    for (const auto& [month, content] : cases)
        put(of(keyOf(month)), u"D31"_s, content);
    Clean_COE(year());
    EXPECT_EQ(keys(year()).mid(11), QStringList({u"Dec1"_s, u"Nov2025"_s, u"Jan2026"_s}));
}

TEST_F(EventsTest, AMonthWithoutItsRowIsAFailureAndNoOtherMonthIsShownForIt) {
    dao::Recordset months = rows(u"Calendar"_s);
    months.MoveLast();
    months.Delete();
    months.Close();
    EXPECT_EQ(errorOf([&] { keyOf({2024, 12}); }), dao::NoCurrentRecord);
    keyOf({2025, 9}); // stands where December should
    EXPECT_EQ(errorOf([&] { keyOf({2024, 12}); }), dao::NoCurrentRecord);

    EventMonths pages(session);
    pages.load();
    ASSERT_TRUE(pages.ShowMonth({2024, 11}));
    seams.prompts.expect(PromptKind::Plain, u"Calendar of Events Error"_s, 1);
    EXPECT_FALSE(pages.ShowMonth({2024, 12}));
    EXPECT_EQ(pages.shown(), (EventMonth{2024, 11}));
    EXPECT_TRUE(pages.hasRow());
}

TEST_F(EventsTest, DaysOfAnOlderFileBecomeMemos) {
    year().TableDefs().Delete(u"Calendar");
    appendTable(year(), u"Calendar"_s, [] {
        QList<dao::Field> fields{dao::TableDef::CreateField(u"Month"_s, dao::DataType::Text, 4)};
        for (int day = 1; day <= 31; ++day)
            fields += emptyableField(dayField(day), dao::DataType::Text, 255);
        return fields;
    }());
    dao::Recordset months = rows(u"Calendar"_s);
    for (int month = 1; month <= 12; ++month) {
        months.AddNew();
        months.SetCollect(u"Month", baseMonthKey(month, QLocale::c()));
        months.SetCollect(u"D3", u"it's old"_s);
        months.Update();
    }
    months.Close();
    const QStringList before = rowsOf(year(), calendar);
    for (int run = 0; run < 2; ++run) {
        Change_Field_type(year());
        EXPECT_EQ(rowsOf(year(), calendar), before);
    }
    EXPECT_EQ(year().TableDefs()[u"Calendar"].Fields()[u"D31"].Type, dao::DataType::Memo);
    put(of(u"May1"_s), u"D3"_s, QString(70'000, u'x'));
}

TEST_F(EventsTest, AnImportGoesInStepToTheEndOfTheShorterTable) {
    put(of(keyOf({2025, 9})), u"D2"_s, rtf(u"ours"_s));
    put(of(keyOf({2025, 10})), u"D2"_s, rtf(u"ours too"_s));
    {
        dao::Database from = other();
        changeRecord(from, u"Calendar"_s, u"D2"_s, rtf(u"paired by place"_s));
        changeRecord(from, u"Calendar"_s, u"Month"_s, u"Xyz1"_s);
        openEventMonth(from, {2030, 3}, 2024);
    }
    QSignalSpy told(&session.GetNotices(), &Notices::eventsChanged);
    EXPECT_TRUE(take());
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(firstOf({2025, 6}), u"theirs 6"_s);
    EXPECT_EQ(eventTexts(year(), {2025, 1}).value(1), u"paired by place"_s);
    EXPECT_EQ(keys(year()).constFirst(), u"Xyz1"_s);
    EXPECT_EQ(keys(year()).mid(12), QStringList({u"Mar2030"_s, u"Oct2025"_s, u"Sep2025"_s}));
    EXPECT_EQ(eventTexts(year(), {2025, 9}).value(1), u"ours"_s);
    EXPECT_EQ(eventTexts(year(), {2025, 10}).value(1), u"ours too"_s);

    openYear(twoWeekAnswers());
    EXPECT_TRUE(take());
    EXPECT_EQ(keys(year()).size(), 12);
}

TEST_F(EventsTest, WhatCannotBeTakenOverLeavesTheCalendarAsItWas) {
    const QStringList before = rowsOf(year(), calendar);
    writeFile(path(u"letter.mdb"_s), "Dear Sir or Madam");
    other(u"bare.mdb"_s).TableDefs().Delete(u"Calendar");
    other(u"narrow.mdb"_s).TableDefs()[u"Calendar"].Fields().Delete(u"D7");
    const struct {
        QString file;
        QString title;
    } cases[] = {{u"year.mdb"_s, u"Already Open"_s},
                 {u"bare.mdb"_s, u"Invalid format"_s},
                 {u"narrow.mdb"_s, u"Bad format"_s},
                 {u"letter.mdb"_s, u"Bad format"_s},
                 {u"gone.mdb"_s, u"Bad format"_s}};
    for (const auto& [file, title] : cases) {
        seams.prompts.expect(PromptKind::Message, title, AnswerOk);
        EXPECT_FALSE(take(file));
        EXPECT_EQ(rowsOf(year(), calendar), before) << qPrintable(file);
    }
    changeRecord(other(), u"Calendar"_s, u"D9"_s, QString(200'000, u'x'));
    const FileSizeLimit fullDisk(QFileInfo(path()).size());
    seams.prompts.expect(PromptKind::Message, u"Bad format"_s, AnswerOk);
    EXPECT_FALSE(take());
    EXPECT_EQ(rowsOf(year(), calendar), before);
}

TEST_F(EventsTest, ProtectedFilesAskForTheirPassword) {
    other().NewPassword({}, u"geheim"_s);
    seams.prompts.expect(PromptKind::Password, {}, u"wrong"_s);
    seams.prompts.expect(PromptKind::Message, u"Invalid Password"_s, AnswerOk);
    seams.prompts.expect(PromptKind::Password, {}, u"geheim"_s);
    EXPECT_TRUE(take());
    EXPECT_EQ(firstOf({2025, 1}), u"theirs 1"_s);
    seams.prompts.expect(PromptKind::Password, {});
    EXPECT_FALSE(take()) << "called off";
}

TEST_F(EventsTest, GenuineJetFilesAreTakenToo) {
    const QByteArray jet = bytesOf(test::testData(u"jet/year_ab_jet4.mdb"_s));
    writeFile(path(u"jet.mdb"_s), jet);
    const dao::Database source = engine.OpenDatabase(path(u"jet.mdb"_s), false, true);
    ASSERT_TRUE(source.isJetFile());
    EXPECT_TRUE(take(u"jet.mdb"_s));
    EXPECT_EQ(rowsOf(year(), calendar), rowsOf(source, calendar));
    EXPECT_FALSE(eventTexts(year(), {2025, 1}).value(12).isEmpty());
    EXPECT_TRUE(bytesOf(path(u"jet.mdb"_s)) == jet);

    openYear(twoWeekAnswers());
    writeFile(path(u"locked.mdb"_s), withPassword(jet, QByteArray("x\0y\0", 4), true));
    seams.prompts.expect(PromptKind::Password, {}, u"xy"_s);
    EXPECT_TRUE(take(u"locked.mdb"_s));
    EXPECT_EQ(rowsOf(year(), calendar), rowsOf(source, calendar));
}
