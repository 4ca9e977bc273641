#pragma once

#include "organiser/schedule_rows.h"

#include <QAbstractTableModel>
#include <QList>

class Session;

/// Which items the list shows.
enum class ScheduleMode { All = 0, ActiveOnly = 1, InactiveOnly = 2 };

/// The items of `Schedules` by date and time, as a grid shows them: "Date", "Time", "Active" and
/// "Caption". A place is that of a row, from 0. What changes an item raises what the engine raises;
/// then nothing was changed. The list shows the change once it is read anew.
class ScheduleList : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit ScheduleList(Session& session, QObject* parent = nullptr);

    /// Reads the items of a mode, and has the next one armed.
    void Reload_Recordset(ScheduleMode mode);
    /// Reads the items of the same mode, which another has changed. As that.
    void readAnew();
    ScheduleMode mode() const { return m_mode; }

    const ScheduleItem& item(int place) const { return m_items.at(place); }
    /// The place of the first item that is the same; -1 for none.
    int find(const ScheduleItem& item) const { return static_cast<int>(m_items.indexOf(item)); }
    /// Whether the year has an item of this date and time, listed or not.
    bool isTaken(const QString& date, const QString& time) const;
    void add(const ScheduleItem& item);
    /// An item without a sound keeps the one that it has.
    void change(int place, const ScheduleItem& item);
    void remove(int place);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    Session& m_session;
    ScheduleMode m_mode = ScheduleMode::All;
    dao::Recordset m_rows;
    QList<ScheduleItem> m_items;
};
