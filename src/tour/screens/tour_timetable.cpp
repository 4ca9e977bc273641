#include "tour/screens/tour_timetable.h"

#include "calendar/timetable.h"
#include "core/session.h"
#include "store/table_names.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct FreePeriod {
    QString caption;
    qint32 colour;
};

void fillBreaks(const dao::Database& database) {
    dao::Recordset admin = database.OpenRecordset(AdminTable);
    admin.Edit();
    admin.SetCollect(u"Break1"_s, 2);
    admin.SetCollect(u"Break2"_s, 4);
    admin.Update();
}

/// Upper classes are taught in the laboratory of the first floor, the others in room 12.
QString roomOf(const TimetableCell& cell) {
    if (cell.tag.isEmpty())
        return {};
    return cell.tag.startsWith(u'1') ? u"Lab 4"_s : u"Room 12"_s;
}

void fillWeek(Session& session, int week) {
    const std::array free{FreePeriod{u"Planning"_s, 0xE8E8E8},
                          FreePeriod{u"Year 7 meeting"_s, 0xB4D8FF},
                          FreePeriod{u"Marking"_s, 0xE8E8E8}};
    TimetableGrid grid(session.PeriodsPerDay);
    LoadTT(session.CurrentDB, week, grid);
    size_t next = 0;
    for (int period = 1; period <= grid.periods(); ++period) {
        for (int day = 1; day <= TimetableGrid::Days; ++day) {
            TimetableCell& cell = grid.at(day, period);
            cell.room = roomOf(cell);
            if (!cell.tag.isEmpty())
                continue;
            const FreePeriod& filling = free[next++ % free.size()];
            cell.caption = filling.caption;
            cell.colour = filling.colour;
        }
    }
    SaveTTinfo(session, week, grid);
}

} // namespace

void fillTimetable(Session& session) {
    fillBreaks(session.CurrentDB);
    for (const int week : {0, 1})
        fillWeek(session, week);
}
