#include "tour/screens/tour_events.h"

#include "calendar/event_rows.h"
#include "core/clock.h"
#include "core/session.h"
#include "tour/screens/tour_texts.h"

using namespace Qt::StringLiterals;

namespace {

struct SchoolEvent {
    int day;
    QString text; ///< as HTML
};

const SchoolEvent schoolEvents[] = {
    {2, u"<b>Start of the half term.</b> Assembly in the hall, 8:50"_s},
    {4, u"Open evening, 17:00 to 19:30, maths room: <i>puzzles and Pythagoras</i>"_s},
    {6, u"Year 11 <span style='background:#ffff00'>mock papers</span> to the exams office"_s},
    {11, u"Parents' evening Year 9"_s},
    {13, u"Minibus to the city museum with 8M1, back by <u>15:10</u>"_s},
    {17, u"Department meeting<br/>Bring: schemes of work, list of textbooks"_s},
    {20, u"<span style='color:#ff0000'>Reports for Year 7 due</span>"_s},
    {24, u"Training day, no lessons"_s},
    {26, u"Maths challenge, Years 12 and 13, library"_s},
    {27, u"Chess match at home, 15:45"_s},
};

} // namespace

void fillEvents(Session& session) {
    const QDate today = session.GetSeams().clock.today();
    dao::Recordset month = openEventMonth(session.CurrentDB, {today.year(), today.month()},
                                          calendarYear(session.CurrentDB));
    month.Edit();
    for (const SchoolEvent& event : schoolEvents)
        month.SetCollect(dayField(event.day), rtfOf(event.text));
    month.Update();
}
