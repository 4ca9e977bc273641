#include "controls/date_calendar.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QTextCharFormat>
#include <QToolButton>

using namespace Qt::StringLiterals;

DateCalendar::DateCalendar(const QString& name, QWidget* parent) : QCalendarWidget(parent) {
    setFirstDayOfWeek(Qt::Sunday);
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setDateEditEnabled(false);
    // The toolkit's red of the weekend can't be read in every scheme.
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        setWeekdayTextFormat(day, {});
    setAccessibleName(name);
    nameParts(name);
    connect(this, &QCalendarWidget::selectionChanged, this, &DateCalendar::describeSelection);
    describeSelection();
}

/// The parts have no other handle than the names that the toolkit gives them.
void DateCalendar::nameParts(const QString& name) {
    const struct {
        QString part;
        QString words;
    } names[] = {
        {u"qt_calendar_prevmonth"_s, u"%1, previous month"_s},
        {u"qt_calendar_monthbutton"_s, u"%1, month"_s},
        {u"qt_calendar_yearbutton"_s, u"%1, year"_s},
        {u"qt_calendar_yearedit"_s, u"%1, year"_s},
        {u"qt_calendar_nextmonth"_s, u"%1, next month"_s},
        {u"qt_calendar_calendarview"_s, u"%1, calendar"_s},
    };
    for (const auto& [part, words] : names) {
        if (auto* widget = findChild<QWidget*>(part))
            widget->setAccessibleName(words.arg(name));
    }
}

void DateCalendar::setChosen(bool chosen) {
    m_isChosen = chosen;
    auto* view = findChild<QAbstractItemView*>(u"qt_calendar_calendarview"_s);
    QPalette colours;
    if (!chosen) {
        const QPalette usual = palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            colours.setBrush(group, QPalette::Highlight, usual.brush(group, QPalette::Base));
            colours.setBrush(group, QPalette::HighlightedText, usual.brush(group, QPalette::Text));
        }
    }
    view->setPalette(colours);
    describeSelection();
}

void DateCalendar::changeEvent(QEvent* event) {
    QCalendarWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        setChosen(m_isChosen);
}

/// A day's cell reads as a bare number, so the whole date is told beside it.
void DateCalendar::describeSelection() {
    if (auto* view = findChild<QAbstractItemView*>(u"qt_calendar_calendarview"_s))
        view->setAccessibleDescription(m_isChosen
                                           ? locale().toString(selectedDate(), QLocale::LongFormat)
                                           : u"No date is chosen"_s);
}
