#include "calendar/event_months.h"

#include "calendar/event_import.h"
#include "calendar/mail_events.h"
#include "calendar/term_weeks.h"
#include "core/clock.h"
#include "core/engine_failure.h"
#include "core/session.h"
#include "store/engine/error.h"

#include <QLocale>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

EventMonths::EventMonths(Session& session)
    : m_session(session), m_binding(session.GetSeams().prompts) {}

void EventMonths::tell(const dao::EngineError& error) const {
    tellFailure(m_session.GetSeams().prompts, {u"Calendar of Events Error"}, error);
}

void EventMonths::load() {
    try {
        Change_Field_type(m_session.CurrentDB);
        m_calendarYear = calendarYear(m_session.CurrentDB);
        const TermDays terms = GetTermDays(m_session.CurrentDB);
        m_teachingDays = terms.days.mid(1);
        const QList<QDate> holidays = FillHolsArray(terms);
        m_holidays = QSet<QDate>(holidays.begin(), holidays.end());
    } catch (const dao::EngineError& error) {
        tell(error);
    }
}

void EventMonths::close() {
    m_data.Close();
    try {
        if (m_session.CurrentDB.isOpen())
            Clean_COE(m_session.CurrentDB);
    } catch (const dao::EngineError&) {
        // Empty rows that could not be taken away now go the next time.
    }
}

/// The page that was shown is closed before: to make a row may change the table.
void EventMonths::open(const EventMonth& month) {
    m_data.Close();
    m_data = openEventMonth(m_session.CurrentDB, month, m_calendarYear);
    m_binding.setData(m_data);
    m_binding.load();
    m_month = month;
}

/// After what has failed or closed the page.
void EventMonths::openAgain() {
    try {
        open(m_month);
    } catch (const dao::EngineError& error) {
        tell(error);
        showNoRow();
    }
}

/// The boxes must never show another row than the one that they would be written to.
void EventMonths::showNoRow() {
    m_data = {};
    m_binding.setData(m_data);
    m_binding.load();
}

bool EventMonths::ShowMonth(const EventMonth& month) {
    if (leave() != Leaving::Done)
        return false;
    const bool hadRow = hasRow();
    bool isShown = true;
    try {
        open(month);
    } catch (const dao::EngineError& error) {
        isShown = false;
        tell(error);
        if (hadRow) {
            openAgain();
        } else {
            showNoRow();
            m_month = month;
        }
    }
    if (m_changed)
        m_changed();
    return isShown;
}

EventMonth EventMonths::neighbour(int step) const {
    return {m_month.year, (m_month.month - 1 + step + MonthsPerYear) % MonthsPerYear + 1};
}

EventMonth EventMonths::inTeachingYear(int month) const {
    const auto first = std::find_if(m_teachingDays.begin(), m_teachingDays.end(),
                                    [month](QDate day) { return day.month() == month; });
    const QDate date = first == m_teachingDays.end() ? m_session.GetSeams().clock.today() : *first;
    return {date.year(), month};
}

/// Whoever shows events of the year hears of them once they are in the file.
void EventMonths::tellWritten() {
    if (std::exchange(m_isTyped, false))
        emit m_session.GetNotices().eventsChanged();
}

bool EventMonths::save() {
    const bool isWritten = m_binding.flush();
    if (isWritten)
        tellWritten();
    return isWritten;
}

Leaving EventMonths::leave() {
    const Leaving page = m_binding.leave();
    if (page == Leaving::Done)
        tellWritten();
    return page;
}

bool EventMonths::importFromDatabase() {
    if (!confirmEventImport(m_session.GetSeams().prompts) || leave() != Leaving::Done)
        return false;
    const QString path =
        m_session.ChooseDatabaseFile(u"Select the file to import term dates from:"_s);
    if (path.isEmpty())
        return false;
    return importBehindPage([&] { return importEvents(m_session, path); });
}

bool EventMonths::importFromMailClient() {
    return leave() == Leaving::Done &&
           importBehindPage([this] { return COEImportFromOutlook(m_session); });
}

/// Nothing may have the table open while it is changed as a whole.
bool EventMonths::importBehindPage(const std::function<bool()>& import) {
    m_data.Close();
    const bool isDone = import();
    openAgain();
    if (m_changed)
        m_changed();
    return isDone;
}

QString EventMonths::heading() const {
    return MonthName(m_month.month, QLocale()) + u'\n' + QString::number(m_month.year);
}

int EventMonths::days() const {
    return date(1).daysInMonth();
}

QDate EventMonths::date(int day) const {
    return {m_month.year, m_month.month, day};
}

QString EventMonths::caption(int day) const {
    return u" %1   %2 "_s.arg(QLocale().dayName(date(day).dayOfWeek()))
        .arg(day, 2, 10, QLatin1Char('0'));
}

QString EventMonths::dateText(int day) const {
    return QLocale().toString(date(day), QLocale::LongFormat);
}

DayKind EventMonths::kind(int day) const {
    if (!isSchoolWeekday(date(day)))
        return DayKind::Weekend;
    return m_holidays.contains(date(day)) ? DayKind::Holiday : DayKind::Weekday;
}
