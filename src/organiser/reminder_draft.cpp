#include "organiser/reminder_draft.h"

#include "core/prompts.h"

using namespace Qt::StringLiterals;

namespace {

bool refuseDraft(Prompts& prompts, const QString& text, const QString& title) {
    prompts.PlainBox(text, OkButton | InformationIcon, title);
    return false;
}

bool hasCaption(const ReminderDraft& draft, Prompts& prompts) {
    return !draft.caption.isEmpty() ||
           refuseDraft(prompts, u"You must enter a caption for this Reminder Event"_s,
                       u"No Caption"_s);
}

bool hasMessage(const ReminderDraft& draft, Prompts& prompts) {
    return draft.type != MessageReminder || !draft.message.isEmpty() ||
           refuseDraft(prompts, u"You must enter a message to display for this Reminder Event"_s,
                       u"No message"_s);
}

/// One that repeats may begin in the past.
bool isToCome(const ReminderDraft& draft, const QDateTime& now, Prompts& prompts) {
    if (draft.isDaily || draft.isWeekly)
        return true;
    if (draft.date < now.date())
        return refuseDraft(prompts,
                           u"The date you have entered for this Reminder Event has already "
                           "passed!\nPlease change the date."_s,
                           u"Invalid Date"_s);
    if (draft.date == now.date() && draft.time <= now.time())
        return refuseDraft(prompts,
                           u"The Time you have entered for this event has already passed!\n"
                           "Please change the time."_s,
                           u"Invalid Time"_s);
    return true;
}

} // namespace

ReminderDraft newDraft(const QDateTime& now) {
    return {.date = now.date(), .time = QTime(now.time().hour(), now.time().minute())};
}

ReminderDraft draftOf(const ScheduleItem& item) {
    const QTime time = QTime::fromString(item.time.left(5), u"HH:mm"_s);
    return {.caption = item.caption,
            .message = item.memo,
            .date = QDate::fromString(item.date, u"yyyy-MM-dd"_s),
            .time = time.isValid() ? time : QTime(0, 0),
            .isDaily = item.duration == EveryDay,
            .isWeekly = item.duration == EveryWeek,
            .type = item.type == SoundOnlyReminder ? SoundOnlyReminder : MessageReminder,
            .sound = item.alarm,
            .loops = item.loops};
}

ScheduleItem itemOf(const ReminderDraft& draft) {
    return {.date = scheduleDate(draft.date),
            .time = scheduleTime(draft.time),
            .caption = draft.caption,
            .memo = draft.message,
            .isActive = true,
            .alarm = draft.sound,
            .loops = draft.loops,
            .type = draft.type,
            .duration = draft.isDaily    ? EveryDay
                        : draft.isWeekly ? EveryWeek
                                         : OnceOnly};
}

bool mayTest(const ReminderDraft& draft, Prompts& prompts) {
    return hasCaption(draft, prompts) && hasMessage(draft, prompts);
}

bool maySave(const ReminderDraft& draft, const QDateTime& now, Prompts& prompts,
             const std::function<bool(const QString& date, const QString& time)>& isTaken) {
    if (!hasCaption(draft, prompts))
        return false;
    if (!draft.date.isValid())
        return refuseDraft(prompts, u"You must enter a date for this Reminder Event"_s,
                           u"Invalid Date"_s);
    if (!draft.message.isEmpty() && !isToCome(draft, now, prompts))
        return false;
    if (!hasMessage(draft, prompts))
        return false;
    const bool isNew = !isTaken || !isTaken(scheduleDate(draft.date), scheduleTime(draft.time));
    return isNew || refuseDraft(prompts,
                                u"A item for this date and time already exists!\n"
                                "Please change the time or date."_s,
                                u"Duplicate Task"_s);
}
