#include "planning/screens/sheet_bar.h"

#include "controls/date_field.h"
#include "controls/icons.h"
#include "planning/daily_sheets.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <QToolButton>

using namespace Qt::StringLiterals;

SheetBar::SheetBar(DailySheets& sheets, QWidget* parent)
    : QWidget(parent)
    , m_sheets(sheets)
    , m_calendar(new DateField(u"Date of the sheet"_s))
    , m_planDate(new QLabel(this))
    , m_heading(new QLabel)
    , m_position(new QLabel) {
    m_calendar->setObjectName(u"Calendar1"_s);
    m_calendar->setMinimumWidth(fontMetrics().horizontalAdvance(u"00/00/0000"_s) * 2);
    m_planDate->setObjectName(u"LbDate"_s);
    m_planDate->hide();
    m_heading->setObjectName(u"Label4"_s);
    QFont large = m_heading->font();
    large.setPointSizeF(large.pointSizeF() * 1.3);
    large.setBold(true);
    m_heading->setFont(large);
    m_position->setObjectName(u"L1"_s);
    m_position->setAlignment(Qt::AlignCenter);
    m_position->setMinimumWidth(m_position->fontMetrics().horizontalAdvance(u"0000/0000"_s));

    connect(m_calendar, &DateField::leftSenseless, this,
            [this] { m_calendar->setDate(m_sheets.date()); });

    addButton(First, u"Command2(0)"_s, u"first"_s, u"First sheet"_s);
    addButton(Previous, u"Command1(0)"_s, u"previous"_s, u"Previous sheet (Page Up)"_s);
    addButton(Next, u"Command1(1)"_s, u"next"_s, u"Next sheet (Page Down)"_s);
    addButton(Last, u"Command2(1)"_s, u"last"_s, u"Last sheet"_s);
    addButton(Today, u"Command1(2)"_s, {}, u"Today"_s);
    addButton(Tomorrow, u"Command1(3)"_s, {}, u"Tomorrow"_s);
    addShortcut(Qt::Key_PageUp, Previous);
    addShortcut(Qt::Key_PageDown, Next);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(m_calendar);
    layout->addWidget(m_heading, 1);
    for (QWidget* widget :
         {static_cast<QWidget*>(m_buttons[First]), static_cast<QWidget*>(m_buttons[Previous]),
          static_cast<QWidget*>(m_position), static_cast<QWidget*>(m_buttons[Next]),
          static_cast<QWidget*>(m_buttons[Last]), static_cast<QWidget*>(m_buttons[Today]),
          static_cast<QWidget*>(m_buttons[Tomorrow])})
        layout->addWidget(widget);
}

void SheetBar::addButton(Button button, const QString& name, const QString& iconName,
                         const QString& text) {
    auto* made = new QToolButton;
    made->setObjectName(name);
    made->setAccessibleName(text);
    made->setFocusPolicy(Qt::TabFocus); // a click leaves the caret where it is
    if (iconName.isEmpty()) {
        made->setText(text);
    } else {
        made->setIcon(icon(iconName));
        made->setToolTip(text);
    }
    connect(made, &QToolButton::clicked, this, [this, button] { run(button); });
    m_buttons.at(button) = made;
}

void SheetBar::addShortcut(Qt::Key key, Button button) {
    auto* shortcut = new QShortcut(key, parentWidget() ? parentWidget() : this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, [this, button] {
        if (m_buttons.at(button)->isEnabled())
            run(button);
    });
}

void SheetBar::run(Button button) {
    switch (button) {
    case First:
        return m_sheets.move(SheetMove::First);
    case Previous:
        return m_sheets.move(SheetMove::Previous);
    case Next:
        return m_sheets.move(SheetMove::Next);
    case Last:
        return m_sheets.move(SheetMove::Last);
    case Today:
        return m_sheets.showToday();
    case Tomorrow:
    case ButtonCount:
        break;
    }
    m_sheets.showTomorrow();
}

void SheetBar::showPosition() {
    m_planDate->setText(m_sheets.planDate());
    m_heading->setText(m_sheets.heading());
    m_calendar->setDate(m_sheets.date());
    m_position->setText(m_sheets.positionText());
    m_position->setAccessibleName(u"Position of the sheet: %1"_s.arg(m_sheets.positionText()));
    m_buttons[First]->setEnabled(m_sheets.canMove(SheetMove::First));
    m_buttons[Previous]->setEnabled(m_sheets.canMove(SheetMove::Previous));
    m_buttons[Next]->setEnabled(m_sheets.canMove(SheetMove::Next));
    m_buttons[Last]->setEnabled(m_sheets.canMove(SheetMove::Last));
}
