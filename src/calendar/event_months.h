#pragma once

#include "calendar/event_rows.h"
#include "store/row_binding.h"

#include <QDate>
#include <QSet>
#include <QString>

#include <functional>

class Session;

/// What tells the days of a month page apart.
enum class DayKind { Weekday, Weekend, Holiday };

/// The month pages of the open year's calendar of events: the row of the month that is shown, with
/// the boxes that are bound to its days.
///
/// Every operation that leaves the page writes it first, and does nothing more where that fails. A
/// failure of the engine is told in a box and leaves the page that was shown; where there was none,
/// the month is shown without a row, on which nothing can be written.
class EventMonths {
public:
    explicit EventMonths(Session& session);

    RowBinding& binding() { return m_binding; }
    /// Is called whenever a page is shown.
    void onChange(std::function<void()> changed) { m_changed = std::move(changed); }

    /// Brings an older table up to date and reads the year's dates. Comes before all that follows.
    void load();
    /// Closes the page, which was left, and takes away the extra rows that hold nothing.
    void close();

    /// Shows the page of a month; answers whether it is shown.
    bool ShowMonth(const EventMonth& month);
    const EventMonth& shown() const { return m_month; }
    bool hasRow() const { return m_data.isOpen(); }
    /// The month before or behind the one shown, both of the same year: kept, from January one goes
    /// back to its December.
    EventMonth neighbour(int step) const;
    /// The month as the list of months means it: of the year of its first teaching day, else of
    /// today's.
    EventMonth inTeachingYear(int month) const;

    /// Somebody has typed in a box.
    void typed() { m_isTyped = true; }
    /// Both write what was typed and tell the year of it; as RowBinding's flush and leave.
    bool save();
    Leaving leave();
    /// Takes the calendar over from another year's file, which it asks for. Answers whether that
    /// was done; a page is shown anew in either case.
    bool importFromDatabase();
    /// Adds the events of the mail client's calendar; likewise.
    bool importFromMailClient();

    QString heading() const; ///< the month's name, a line feed and the year
    int days() const;        ///< of the month that is shown
    QDate date(int day) const;
    QString caption(int day) const;  ///< " Monday   07 ", in the person's language
    QString dateText(int day) const; ///< in full
    DayKind kind(int day) const;

private:
    void open(const EventMonth& month);
    void openAgain();
    bool importBehindPage(const std::function<bool()>& import);
    void showNoRow();
    void tell(const dao::EngineError& error) const;
    void tellWritten();

    Session& m_session;
    RowBinding m_binding;
    dao::Recordset m_data;
    int m_calendarYear = 0;
    QList<QDate> m_teachingDays;
    QSet<QDate> m_holidays;
    EventMonth m_month;
    bool m_isTyped = false; ///< since it was written last
    std::function<void()> m_changed;
};
