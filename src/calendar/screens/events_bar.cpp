#include "calendar/screens/events_bar.h"

#include "calendar/event_months.h"
#include "controls/date_field.h"
#include "controls/icons.h"
#include "core/dates.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

EventsBar::EventsBar(const EventMonths& months, QWidget* parent)
    : QWidget(parent)
    , m_months(months)
    , m_heading(new QLabel)
    , m_monthMenu(new QMenu(u"Month"_s, this))
    , m_date(new DateField(u"Date to go to"_s)) {
    m_heading->setObjectName(u"Label1"_s);
    m_heading->setAlignment(Qt::AlignCenter);
    QFont bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    m_date->setObjectName(u"Calendar1"_s);
    connect(m_date, &DateField::dateChosen, this, &EventsBar::dateWanted);
    connect(m_date, &DateField::leftSenseless, this, [this] { showDay(m_day); });
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->addWidget(makeMoveButton(0, u"previous"_s, u"Previous month"_s, -1));
    layout->addWidget(m_heading);
    layout->addWidget(makeMoveButton(1, u"next"_s, u"Next month"_s, 1));
    layout->addWidget(makeMonthButton());
    layout->addWidget(m_date);
    layout->addStretch();
}

QWidget* EventsBar::makeMoveButton(int element, const QString& iconName, const QString& tip,
                                   int step) {
    auto* button = new QToolButton;
    button->setObjectName(u"CmdMove(%1)"_s.arg(element));
    button->setIcon(icon(iconName));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, [this, step] { emit neighbourWanted(step); });
    return button;
}

/// As wide a heading as the longest name of a month needs.
QWidget* EventsBar::makeMonthButton() {
    m_monthMenu->setObjectName(u"mnuMonths"_s);
    m_monthMenu->setIcon(icon(u"calendar"_s));
    int widest = 0;
    for (int month = 1; month <= MonthsPerYear; ++month) {
        const QString name = MonthName(month, QLocale());
        widest = std::max(widest, m_heading->fontMetrics().horizontalAdvance(name + u"  "_s));
        connect(m_monthMenu->addAction(name), &QAction::triggered, this,
                [this, month] { emit monthWanted(month); });
    }
    m_heading->setMinimumWidth(widest);
    auto* button = new QToolButton;
    button->setObjectName(u"cmdDrop"_s);
    button->setText(m_monthMenu->title());
    button->setToolTip(u"Go to a month"_s);
    button->setAccessibleName(u"Go to a month"_s);
    button->setMenu(m_monthMenu);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void EventsBar::showMonth() {
    m_heading->setText(m_months.heading());
    showDay(0);
}

void EventsBar::showDay(int day) {
    m_day = day;
    m_date->setDate(m_months.date(std::max(1, day)));
}
