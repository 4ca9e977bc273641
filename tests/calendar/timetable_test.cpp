#include "calendar/timetable.h"

#include "store/record_steps.h"
#include "support/year_session.h"

namespace {

constexpr qint32 red = 0x0000FF;

/// A year with two timetables, open in a session.
class TimetableTest : public YearSession {
protected:
    TimetableTest() { openYear(twoWeekAnswers()); }

    void add(const QString& table, const QList<dao::Value>& values) {
        dao::Recordset records = rows(table);
        records.AddNew();
        for (int i = 0; i < values.size(); ++i)
            records.SetCollect(i, values[i]);
        records.Update();
    }
    TimetableGrid load(int week = 0) {
        TimetableGrid grid(session.PeriodsPerDay);
        LoadTT(session.CurrentDB, week, grid);
        return grid;
    }
    int loadFailure(TimetableGrid& grid) {
        return errorOf([&] { LoadTT(session.CurrentDB, 0, grid); });
    }
};

TEST_F(TimetableTest, LoadsTheWeekAskedForAndMakesTheRoomsTable) {
    ASSERT_FALSE(TableExists(session.CurrentDB, RoomIDTable));
    const TimetableGrid a = load(0);
    const TimetableGrid b = load(1);
    EXPECT_TRUE(TableExists(session.CurrentDB, RoomIDTable));
    EXPECT_TRUE(a.isWhole());
    EXPECT_EQ(a.at(1, 1), (TimetableCell{u"7A"_s, 16744448, u"7A"_s, {}}));
    EXPECT_EQ(a.at(1, 2), TimetableCell());
    EXPECT_EQ(b.at(1, 2).tag, u"9C"_s);
    EXPECT_EQ(b.at(3, 5).tag, u"7A"_s);
    EXPECT_EQ(b.at(5, 2), TimetableCell());
}

TEST_F(TimetableTest, ReadsWhatTheTablesHoldInTheirOrder) {
    put(u"SELECT * FROM ExtraTTinfo WHERE Day = 1 AND Period = 2"_s, u"Caption"_s, u"Free"_s);
    add(ExtraTTinfoTable, {1, 1, u"behind a class"_s, 5});
    add(ExtraTTinfoTable, {6, 1, u"Saturday"_s, 5});
    put(u"SELECT * FROM Classcodes WHERE Classcode = '7A'"_s, u"Mon"_s, u"113"_s);
    load();
    add(RoomIDTable, {1, 2, 0, u"Hall"_s});
    add(RoomIDTable, {1, 3, 1, u"other week"_s});
    add(RoomIDTable, {1, 3, {}, u"no week"_s});
    const TimetableGrid grid = load();
    EXPECT_EQ(grid.at(1, 1).caption, u"7A"_s);
    EXPECT_EQ(grid.at(1, 2).caption, u"Free"_s);
    EXPECT_EQ(grid.at(1, 2).room, u"Hall"_s);
    EXPECT_EQ(grid.at(1, 3).tag, u"7A"_s);
    EXPECT_EQ(grid.at(1, 3).room, QString());
}

TEST_F(TimetableTest, APeriodBeyondTheGridEndsTheLoading) {
    for (const QString& digits : {u"10"_s, u"16"_s, u"1x"_s}) {
        put(u"SELECT * FROM Classcodes WHERE Classcode = '7A'"_s, u"Mon"_s, digits);
        TimetableGrid grid(session.PeriodsPerDay);
        EXPECT_EQ(loadFailure(grid), dao::NoSuchItem) << qPrintable(digits);
        EXPECT_FALSE(grid.isWhole());
        EXPECT_EQ(grid.at(1, 1).tag, u"7A"_s); // what came before stands
    }
}

TEST_F(TimetableTest, WhatWasNotReadIsNotOverwritten) {
    put(u"SELECT * FROM ExtraTTinfo WHERE Day = 3 AND Period = 2"_s, u"Caption"_s, u"Duty"_s);
    TimetableGrid whole = load();
    whole.at(3, 2).room = u"Yard"_s;
    SaveTTinfo(session, 0, whole);
    put(u"SELECT * FROM Classcodes WHERE Classcode = '7A'"_s, u"Mon"_s, u"0"_s);
    TimetableGrid part(session.PeriodsPerDay);
    ASSERT_EQ(loadFailure(part), dao::NoSuchItem);
    part.at(3, 4).room = u"Gym"_s;
    SaveTTinfo(session, 0, part);
    put(u"SELECT * FROM Classcodes WHERE Classcode = '7A'"_s, u"Mon"_s, u"1"_s);
    const TimetableGrid after = load();
    EXPECT_EQ(after.at(3, 2).caption, u"Duty"_s);
    EXPECT_EQ(after.at(3, 2).room, u"Yard"_s);
    EXPECT_EQ(after.at(3, 4).room, u"Gym"_s);
}

TEST_F(TimetableTest, AnEditReachesTheWholeClassButItsRoom) {
    TimetableGrid grid = load();
    grid.applyEdit(1, 1, {u"Year 7"_s, red, u"L1"_s});
    EXPECT_EQ(grid.at(1, 1), (TimetableCell{u"Year 7"_s, red, u"7A"_s, u"L1"_s}));
    for (const TimetableCell& other : {grid.at(1, 3), grid.at(5, 2)})
        EXPECT_EQ(other, (TimetableCell{u"Year 7"_s, red, u"7A"_s, {}}));
    grid.applyEdit(2, 1, {u"Free"_s, NoColourChosen, {}});
    EXPECT_EQ(grid.at(2, 1), (TimetableCell{u"Free"_s, DefaultCellColour, {}, {}}));
    EXPECT_EQ(grid.at(2, 2), TimetableCell());
    grid.paste(1, 3, grid.copied(2, 1));
    EXPECT_EQ(grid.at(1, 3).caption, u"Free"_s);
    EXPECT_EQ(grid.at(1, 1).caption, u"Year 7"_s);
}

TEST_F(TimetableTest, SavesAllThreeTablesAndTheSessionsColours) {
    TimetableGrid grid = load();
    grid.applyEdit(1, 1, {u"O'Hara's \"7\""_s, red, u"L'1"_s});
    grid.applyEdit(2, 5, {u"Free"_s, red, {}});
    SaveTTinfo(session, 0, grid);
    EXPECT_EQ(load(), grid);
    EXPECT_EQ(load(1).at(3, 5).caption, u"O'Hara's \"7\""_s); // one class, both weeks
    EXPECT_EQ(load(1).at(2, 5), TimetableCell());
    EXPECT_EQ(session.ClassColours.first().colour, red);
    EXPECT_EQ(rows(RoomIDTable).RecordCount(), 1);
    EXPECT_EQ(rows(u"SELECT * FROM Classcodes WHERE Classcode = '7A'"_s).Collect(u"Mon").toText(),
              u"13"_s);

    grid.applyEdit(1, 1, {grid.at(1, 1).caption, red, u"L2"_s});
    SaveTTinfo(session, 0, grid);
    EXPECT_EQ(rows(RoomIDTable).Collect(u"Caption").toText(), u"L2"_s);
    grid.at(1, 1).room.clear();
    SaveTTinfo(session, 0, grid);
    EXPECT_EQ(rows(RoomIDTable).RecordCount(), 0);
}

TEST_F(TimetableTest, EveryFreeCellHasARowAndACellWithTwoIsLeftAlone) {
    dao::Recordset extra = rows(ExtraTTinfoTable);
    DeleteAllRecords(extra, seams.prompts);
    for (const QString& caption : {u"first"_s, u"second"_s})
        add(ExtraTTinfoTable, {2, 1, caption, 7});
    TimetableGrid grid = load();
    grid.at(2, 1).caption = u"lost"_s;
    SaveTTinfo(session, 0, grid);
    const int freeCells = 5 * 5 - 3;
    EXPECT_EQ(rows(ExtraTTinfoTable).RecordCount(), freeCells + 1);
    EXPECT_EQ(load().at(2, 1).caption, u"second"_s);
    EXPECT_EQ(load().at(4, 4), TimetableCell());
}

TEST_F(TimetableTest, AFailureLeavesTheFileAndTheColoursAsTheyWere) {
    TimetableGrid grid = load();
    const TimetableGrid before = grid;
    grid.applyEdit(1, 1, {u"changed"_s, red, {}});
    grid.at(5, 5).room = QString(LongestCaption + 1, u'x');
    EXPECT_THROW(SaveTTinfo(session, 0, grid), dao::EngineError);
    EXPECT_EQ(load(), before);
    EXPECT_EQ(session.ClassColours.first().colour, 16744448);
}

TEST_F(TimetableTest, AYearWithOneWeekHasNoOtherTable) {
    openYear(oneWeekAnswers());
    TimetableGrid grid = load();
    grid.at(2, 2).caption = u"Free"_s;
    SaveTTinfo(session, 0, grid);
    EXPECT_EQ(load(), grid);
    EXPECT_FALSE(TableExists(session.CurrentDB, ExtraTTinfoBTable));
}

} // namespace
