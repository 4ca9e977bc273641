#pragma once

#include "calendar/event_months.h"
#include "calendar/screens/events_commands.h"
#include "controls/kept_writing.h"

#include <QWidget>

#include <functional>

class EventsBar;
class MonthPage;
class QScrollArea;

/// The calendar of events: the teacher's dates, a page a month with a box a day. What is written in
/// it is on disk at the latest two seconds after the first key that is not, and whenever the
/// window, the program or the page is left; nobody has to save.
class EventsWindow : public QWidget {
    Q_OBJECT

public:
    /// How an event comes to the planning sheet of its date: puts a rich text into a block, in
    /// place of what stands there. Raises what the engine raises.
    using PostToSheet = std::function<void(QDate date, DayBlock block, const QString& rtf)>;

    EventsWindow(Session& session, PostToSheet postToSheet);
    ~EventsWindow() override;

    /// Shows the month of a date and selects its day.
    void SelectDate(QDate date);
    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void makeParts();
    void bindBoxes();
    void connectParts();
    void followColours();
    bool showMonth(const EventMonth& month);
    void showPage();
    void showGrounds();
    void daySelected(int day);
    void showSelectedDay();
    void goToNeighbour(int step);
    void showPlanning();
    void post(DayBlock block);
    void scheduleEvent();
    void selectTodayAfter(bool isImported);

    Session& m_session;
    PostToSheet m_postToSheet;
    EventMonths m_months;
    FormatTools* m_tools;
    EventsBar* m_bar;
    EventsCommands* m_commands;
    MonthPage* m_page;
    QScrollArea* m_scroll;
    KeptWriting m_writing; ///< last
};
