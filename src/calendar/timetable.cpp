#include "calendar/timetable.h"

#include "calendar/class_colours.h"
#include "core/dates.h"
#include "core/session.h"
#include "store/engine/error.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// `Classcodes` by position. The days of week A stand from position 1 on, of week B from 8 on.
enum ClassPosition { ClassCode = 0, ClassDayBeforeMonday = 0, ClassCaption = 6, ClassColourAt = 7 };
constexpr int DayBeforeMondayB = 7;

/// `ExtraTTinfo` and `ExtraTTinfoB` by position.
enum ExtraPosition { ExtraDay, ExtraPeriod, ExtraCaption, ExtraColour };

bool isDay(qint64 day) {
    return day >= 1 && day <= TimetableGrid::Days;
}

qint32 colourOf(const dao::Value& value) {
    return static_cast<qint32>(value.toInteger());
}

void show(TimetableCell& cell, const dao::Value& caption, const dao::Value& colour) {
    if (!caption.isNull())
        cell.caption = caption.toText();
    if (!colour.isNull())
        cell.colour = colourOf(colour);
}

QString extraTable(int weekIndex) {
    return weekIndex == 1 ? ExtraTTinfoBTable : ExtraTTinfoTable;
}

int periodOf(const dao::Value& value) {
    return static_cast<int>(value.toInteger());
}

void loadExtraCells(const dao::Database& database, int weekIndex, TimetableGrid& grid) {
    dao::Recordset extra = database.OpenRecordset(extraTable(weekIndex));
    for (; !extra.EOF_(); extra.MoveNext()) {
        const qint64 day = extra.Collect(ExtraDay).toInteger();
        if (isDay(day))
            show(grid.at(static_cast<int>(day), periodOf(extra.Collect(ExtraPeriod))),
                 extra.Collect(ExtraCaption), extra.Collect(ExtraColour));
    }
}

/// Shows a class in the periods of one day, given as digits.
void showClass(const dao::Recordset& classes, int day, const QString& digits, TimetableGrid& grid) {
    for (const QChar digit : digits) {
        TimetableCell& cell = grid.at(day, digit.digitValue());
        show(cell, classes.Collect(ClassCaption), classes.Collect(ClassColourAt));
        const dao::Value code = classes.Collect(ClassCode);
        if (!code.isNull())
            cell.tag = code.toText();
    }
}

void loadClasses(const dao::Database& database, int weekIndex, TimetableGrid& grid) {
    const int before = weekIndex == 1 ? DayBeforeMondayB : ClassDayBeforeMonday;
    dao::Recordset classes = database.OpenRecordset(ClasscodesTable);
    for (; !classes.EOF_(); classes.MoveNext()) {
        for (int day = 1; day <= TimetableGrid::Days; ++day)
            showClass(classes, day, classes.Collect(before + day).toText(), grid);
    }
}

void makeRoomsTable(const dao::Database& database) {
    if (!TableExists(database, RoomIDTable))
        CreateRoomIDTable(database);
}

void loadRooms(const dao::Database& database, int weekIndex, TimetableGrid& grid) {
    makeRoomsTable(database);
    dao::Recordset rooms = database.OpenRecordset(RoomIDTable);
    for (; !rooms.EOF_(); rooms.MoveNext()) {
        const dao::Value week = rooms.Collect(u"Week");
        const qint64 day = rooms.Collect(u"Day").toInteger();
        if (!week.isNull() && week.toInteger() == weekIndex && isDay(day))
            grid.at(static_cast<int>(day), periodOf(rooms.Collect(u"Period"))).room =
                rooms.Collect(u"Caption").toText();
    }
}

/// Calls `save` with the day and period of each cell, period by period.
template<typename Save>
void forEachCell(const TimetableGrid& grid, Save save) {
    for (int period = 1; period <= grid.periods(); ++period) {
        for (int day = 1; day <= TimetableGrid::Days; ++day)
            save(day, period, grid.at(day, period));
    }
}

void saveClassCell(const dao::Database& database, const TimetableCell& cell) {
    dao::Recordset classes = database.OpenRecordset(ClasscodesTable);
    for (; !classes.EOF_(); classes.MoveNext()) {
        if (classes.Collect(ClassCode).toText() != cell.tag)
            continue;
        classes.Edit();
        classes.SetCollect(ClassCaption, cell.caption);
        classes.SetCollect(ClassColourAt, cell.colour);
        classes.Update();
    }
}

void saveExtraCell(const dao::Database& database, const QString& table, int day, int period,
                   const TimetableCell& cell) {
    dao::Recordset found = database.OpenRecordset(
        u"SELECT * FROM %1 WHERE Day = %2 AND Period = %3"_s.arg(table).arg(day).arg(period));
    if (found.RecordCount() > 1)
        return;
    if (found.RecordCount() == 1) {
        found.Edit();
    } else {
        found.AddNew();
        found.SetCollect(ExtraDay, day);
        found.SetCollect(ExtraPeriod, period);
    }
    found.SetCollect(ExtraCaption, cell.caption);
    found.SetCollect(ExtraColour, cell.colour);
    found.Update();
}

void saveCells(const dao::Database& database, int weekIndex, const TimetableGrid& grid) {
    const TimetableCell unread;
    forEachCell(grid, [&](int day, int period, const TimetableCell& cell) {
        if (!cell.tag.isEmpty())
            return saveClassCell(database, cell);
        const bool isEmpty = cell.caption.isEmpty() && cell.colour == unread.colour;
        if (grid.isWhole() || !isEmpty)
            saveExtraCell(database, extraTable(weekIndex), day, period, cell);
    });
}

void removeRoom(dao::Recordset& found) {
    if (found.RecordCount() == 1)
        found.Delete();
}

void saveRoom(const dao::Database& database, int weekIndex, int day, int period,
              const QString& room) {
    dao::Recordset found = database.OpenRecordset(
        u"SELECT * FROM RoomID WHERE Week = %1 AND Period = %2 AND Day = %3"_s.arg(weekIndex)
            .arg(period)
            .arg(day));
    const bool exists = found.RecordCount() > 0;
    if (room.isEmpty())
        return removeRoom(found);
    if (exists && found.Collect(u"Caption").toText() == room)
        return;
    if (exists)
        found.Edit();
    else
        found.AddNew();
    found.SetCollect(u"Day", day);
    found.SetCollect(u"Period", period);
    found.SetCollect(u"Week", weekIndex);
    found.SetCollect(u"Caption", room);
    found.Update();
}

void saveRooms(const dao::Database& database, int weekIndex, const TimetableGrid& grid) {
    makeRoomsTable(database);
    forEachCell(grid, [&](int day, int period, const TimetableCell& cell) {
        if (grid.isWhole() || !cell.room.isEmpty())
            saveRoom(database, weekIndex, day, period, cell.room);
    });
}

} // namespace

TimetableGrid::TimetableGrid(int periods) : m_periods(std::max(periods, 0)) {
    clear();
}

qsizetype TimetableGrid::indexOf(int day, int period) const {
    if (!isDay(day) || period < 1 || period > m_periods)
        throw dao::EngineError(dao::NoSuchItem, u"The timetable has no such period."_s);
    return (period - 1) * Days + day - 1;
}

const TimetableCell& TimetableGrid::at(int day, int period) const {
    return m_cells.at(indexOf(day, period));
}

TimetableCell& TimetableGrid::at(int day, int period) {
    return m_cells[indexOf(day, period)];
}

void TimetableGrid::clear() {
    m_cells = QList<TimetableCell>(qsizetype(m_periods) * Days);
    m_isWhole = false;
}

void TimetableGrid::applyEdit(int day, int period, const CellEdit& edit) {
    TimetableCell& edited = at(day, period);
    edited.caption = edit.caption;
    if (edit.colour != NoColourChosen)
        edited.colour = edit.colour;
    edited.room = edit.room;
    if (edited.tag.isEmpty())
        return;
    for (TimetableCell& other : m_cells) {
        if (other.tag == edited.tag)
            paste(other, {edited.caption, edited.colour});
    }
}

CopiedCell TimetableGrid::copied(int day, int period) const {
    return {at(day, period).caption, at(day, period).colour};
}

void TimetableGrid::paste(int day, int period, const CopiedCell& copied) {
    paste(at(day, period), copied);
}

TimetableYear readTimetableYear(const dao::Database& database) {
    const dao::Recordset admin = database.OpenRecordset(AdminTable);
    TimetableYear year;
    year.periodsPerDay = static_cast<int>(admin.Collect(u"PeriodsPerDay").toInteger());
    year.teacher = admin.Collect(u"Teacher").toText();
    year.twoWeeks = admin.Collect(u"TTweekly").toInteger() == 1;
    for (size_t i = 0; i < year.breaks.size(); ++i)
        year.breaks[i] = static_cast<qint32>(admin.Collect(u"Break%1"_s.arg(i + 1)).toInteger());
    return year;
}

QString timetableTitle(const TimetableYear& year) {
    return u"Timetable for :"_s + year.teacher;
}

void LoadTT(const dao::Database& database, int weekIndex, TimetableGrid& grid) {
    grid.clear();
    loadExtraCells(database, weekIndex, grid);
    loadClasses(database, weekIndex, grid);
    loadRooms(database, weekIndex, grid);
    grid.setWhole(true);
}

void SaveTTinfo(Session& session, int weekIndex, const TimetableGrid& grid) {
    const QList<ClassColour> before = session.ClassColours;
    dao::Transaction whole(session.CurrentDB);
    saveCells(session.CurrentDB, weekIndex, grid);
    saveRooms(session.CurrentDB, weekIndex, grid);
    whole.commit();
    LoadClassColours(session); // last, so that it never shows what was undone
    if (session.ClassColours != before)
        emit session.GetNotices().classesChanged();
}

QString cellPlace(int day, int period) {
    return u"%1, period %2"_s.arg(DayName(day + 1)).arg(period);
}
