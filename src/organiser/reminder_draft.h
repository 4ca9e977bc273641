#pragma once

#include "organiser/schedule_rows.h"

#include <functional>

class Prompts;

/// The message of an item that only sounds.
inline const QString SoundOnlyMessage = QStringLiteral("Sound only reminder");

/// An item as the person writes it.
struct ReminderDraft {
    QString caption = {};
    QString message = {};
    QDate date; ///< invalid where none can be read
    QTime time;
    bool isDaily = false;
    bool isWeekly = false;
    qint64 type = MessageReminder;
    QString sound = {}; ///< empty for "< NONE >"
    bool loops = false;

    bool operator==(const ReminderDraft&) const = default;
};

/// A new one: today, now.
ReminderDraft newDraft(const QDateTime& now);
ReminderDraft draftOf(const ScheduleItem& item);
/// The row that it becomes; active.
ScheduleItem itemOf(const ReminderDraft& draft);

/// Whether a draft has what its test needs: a title and a message. If not it is told.
bool mayTest(const ReminderDraft& draft, Prompts& prompts);
/// Whether a draft may be saved: the first thing that is wrong with it is told. `isTaken` says
/// whether there is an item of this date and time, and is empty for one that is edited.
bool maySave(const ReminderDraft& draft, const QDateTime& now, Prompts& prompts,
             const std::function<bool(const QString& date, const QString& time)>& isTaken);
