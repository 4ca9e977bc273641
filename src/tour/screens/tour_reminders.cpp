#include "tour/screens/tour_reminders.h"

#include "core/clock.h"
#include "core/session.h"
#include "frame/screens/main_window.h"
#include "organiser/schedule_rows.h"
#include "organiser/screens/reminder_window.h"
#include "organiser/screens/reminders_window.h"
#include "store/table_names.h"
#include "tour/screens/tour_pictures.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/// A reminder of the tour, by the days from today.
struct TourReminder {
    int day;
    QTime time;
    QString caption;
    QString memo;
    QString duration = OnceOnly;
    bool isActive = true;
};

const TourReminder tourReminders[] = {
    {-6, QTime(12, 30), u"Reports"_s, u"Year 7 reports to the office"_s, OnceOnly, false},
    {0, QTime(13, 5), u"Duty"_s, u"Break duty in the lower yard until 13:25."_s, EveryWeek},
    {1, QTime(8, 40), u"Register"_s, u"Send the tutor group's register to the office."_s, EveryDay},
    {2, QTime(15, 45), u"Parents' evening"_s,
     u"Year 9, main hall. Take the mark book, the reports and the list of appointments."_s},
    {5, QTime(16, 0), u"Trip money"_s, u"Count the money for the museum and bank it."_s},
};

ScheduleItem rowOf(const TourReminder& reminder, QDate today) {
    return {.date = scheduleDate(today.addDays(reminder.day)),
            .time = scheduleTime(reminder.time),
            .caption = reminder.caption,
            .memo = reminder.memo,
            .isActive = reminder.isActive,
            .duration = reminder.duration};
}

} // namespace

void fillReminders(Session& session) {
    CheckSchedulesTable(session.CurrentDB);
    dao::Recordset rows = session.CurrentDB.OpenRecordset(SchedulesTable);
    for (const TourReminder& reminder : tourReminders) {
        rows.AddNew();
        setScheduleItem(rows, rowOf(reminder, session.GetSeams().clock.today()));
        rows.Update();
    }
}

void visitReminders(Session& session, MainWindow& frame, TourPictures& pictures) {
    frame.open(ToolWindow::Reminders);
    if (auto* window = frame.findChild<RemindersWindow*>()) {
        window->findChild<QPushButton*>(u"XPmenu(2)"_s)->click();
        pictures.save(frame, u"Schedulefrm_edit"_s);
    }
    frame.CloseOpenForms();
    ReminderWindow reminder(session, rowOf(tourReminders[3], session.GetSeams().clock.today()));
    reminder.show();
    pictures.save(reminder, u"ReminderFrm"_s);
}
