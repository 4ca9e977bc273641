#include "organiser/schedule_list.h"

#include "core/session.h"
#include "store/engine/names.h"

using namespace Qt::StringLiterals;

namespace {

QString scheduleSource(ScheduleMode mode) {
    switch (mode) {
    case ScheduleMode::ActiveOnly:
        return u"SELECT * FROM Schedules WHERE Active = 'Yes' ORDER BY TaskDate,Tasktime"_s;
    case ScheduleMode::InactiveOnly:
        return u"SELECT * FROM Schedules WHERE Active = 'No' ORDER BY TaskDate,Tasktime"_s;
    default:
        return u"SELECT * FROM Schedules ORDER BY TaskDate,TaskTime"_s;
    }
}

enum ScheduleColumn { DateColumn, TimeColumn, ActiveColumn, CaptionColumn, ScheduleColumns };

} // namespace

ScheduleList::ScheduleList(Session& session, QObject* parent)
    : QAbstractTableModel(parent), m_session(session) {}

void ScheduleList::Reload_Recordset(ScheduleMode mode) {
    m_mode = mode;
    readAnew();
    emit m_session.GetNotices().remindersChanged();
}

void ScheduleList::readAnew() {
    dao::Recordset rows = m_session.CurrentDB.OpenRecordset(scheduleSource(m_mode));
    QList<ScheduleItem> items;
    for (; !rows.EOF_(); rows.MoveNext())
        items += scheduleItem(rows);
    beginResetModel();
    m_rows = rows;
    m_items = items;
    endResetModel();
}

bool ScheduleList::isTaken(const QString& date, const QString& time) const {
    const QString source = u"SELECT * FROM Schedules WHERE TaskDate = %1 AND TaskTime = %2"_s.arg(
        dao::writeText(date), dao::writeText(time));
    return !m_session.CurrentDB.OpenRecordset(source).EOF_();
}

void ScheduleList::add(const ScheduleItem& item) {
    dao::Recordset rows = m_session.CurrentDB.OpenRecordset(scheduleSource(ScheduleMode::All));
    rows.AddNew();
    setScheduleItem(rows, item);
    rows.Update();
}

void ScheduleList::change(int place, const ScheduleItem& item) {
    m_rows.SetAbsolutePosition(place);
    m_rows.Edit();
    setScheduleItem(m_rows, item);
    m_rows.Update();
}

void ScheduleList::remove(int place) {
    m_rows.SetAbsolutePosition(place);
    m_rows.Delete();
}

int ScheduleList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

int ScheduleList::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ScheduleColumns;
}

QVariant ScheduleList::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const ScheduleItem& item = m_items.at(index.row());
    switch (index.column()) {
    case DateColumn:
        return item.date;
    case TimeColumn:
        return item.time;
    case ActiveColumn:
        return item.isActive ? u"Yes"_s : u"No"_s;
    default:
        return item.caption;
    }
}

QVariant ScheduleList::headerData(int section, Qt::Orientation orientation, int role) const {
    static const QStringList captions{u"Date"_s, u"Time"_s, u"Active"_s, u"Caption"_s};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return captions.value(section);
}
