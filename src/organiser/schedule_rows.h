#pragma once

#include "store/engine/engine.h"

#include <QDateTime>
#include <QString>

/// The rows of `Schedules`: what they say, how they are told, how one goes on once it was due.

/// What an item does when it is due. Of every other number it does nothing but go on.
inline constexpr qint64 MessageReminder = 1;
inline constexpr qint64 SoundOnlyReminder = 2;

/// How an item repeats, as `Duration` has it.
inline const QString OnceOnly = QStringLiteral("X");
inline const QString EveryDay = QStringLiteral("D"); ///< from Monday to Friday
inline const QString EveryWeek = QStringLiteral("W");

struct ScheduleItem {
    QString date = {}; ///< yyyy-mm-dd
    QString time = {}; ///< hh:mm:00
    QString caption = {};
    QString memo = {};
    bool isActive = true;
    QString alarm = {}; ///< the path of a wave file; empty for none
    bool loops = false;
    qint64 type = MessageReminder;
    QString duration = OnceOnly;

    bool operator==(const ScheduleItem&) const = default;
};

/// Makes the table where it is missing, and gives one of an older program the fields that it lacks:
/// its items are messages that come once. Raises what the engine raises, as all here.
void CheckSchedulesTable(const dao::Database& database);

/// The current row.
ScheduleItem scheduleItem(const dao::Recordset& row);
/// Fills the row that is being edited or added. Without an alarm the one in the row stays.
void setScheduleItem(dao::Recordset& row, const ScheduleItem& item);

/// A date and a time as the table has them.
QString scheduleDate(QDate date);
QString scheduleTime(QTime time);

/// When an item is due; invalid where its date or time makes no sense.
QDateTime dueTime(const ScheduleItem& item);
/// Whether its date, time and repetition all make sense.
bool makesSense(const ScheduleItem& item);

/// The moment of a date and a time in this place: of a time that comes twice the first, and an hour
/// later where a change of the clock skips it.
QDateTime localMoment(QDate date, QTime time);

/// Lets an item that was due go on, in its row: one that comes once is no longer active, a daily
/// one comes on the day after today, after a Friday on Monday, a weekly one a week after its own
/// date. That of a daily one is meant so: also one that was late comes on the next working day.
void advanceItem(dao::Recordset& row, QDate today);

/// An item in lines, for the person.
QString scheduleDetails(const ScheduleItem& item);
