#include "controls/date_field.h"

#include "controls/date_calendar.h"
#include "core/typed_date.h"

#include <QFrame>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

DateField::DateField(const QString& name, Style style, QWidget* parent)
    : QWidget(parent), m_field(new QLineEdit), m_selected(QDate::currentDate()) {
    m_field->setObjectName(u"txtDate"_s);
    m_field->setAccessibleName(name);
    m_field->setAccessibleDescription(
        u"A date such as %1"_s.arg(typedDateText(QDate(2024, 9, 25), locale())));
    m_field->setPlaceholderText(typedDateFormat(locale()).toLower());
    m_field->installEventFilter(this);
    setFocusProxy(m_field);
    setFocusPolicy(Qt::StrongFocus); // or the key of its caption would not reach it

    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(m_field);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addLayout(row);
    if (style == Style::Open) {
        makeCalendar();
        layout->addWidget(m_calendar);
        connect(m_calendar, &QCalendarWidget::selectionChanged, this, [this] {
            if (m_calendar->selectedDate() != date())
                setDate(m_calendar->selectedDate());
        });
    } else {
        makeButton();
        row->addWidget(m_button);
    }

    connect(m_field, &QLineEdit::textChanged, this, &DateField::fieldEdited);
    connect(m_field, &QLineEdit::editingFinished, this, [this] {
        if (date().isValid())
            setDate(date());
        else
            emit leftSenseless();
    });
    connect(m_field, &QLineEdit::returnPressed, this, [this] {
        if (date().isValid())
            emit dateChosen(date());
    });
}

DateField::~DateField() {
    // The field that has the focus ends its editing while it is destroyed: nobody is left to hear
    // it.
    m_field->disconnect(this);
}

void DateField::makeButton() {
    m_button = new QToolButton;
    m_button->setArrowType(Qt::DownArrow);
    m_button->setFocusPolicy(Qt::NoFocus);
    m_button->setToolTip(u"Show the calendar"_s);
    m_button->setAccessibleName(u"Show the calendar"_s);
    connect(m_button, &QToolButton::clicked, this, &DateField::dropDown);
}

void DateField::makeCalendar() {
    m_calendar = new DateCalendar(m_field->accessibleName());
    m_calendar->setDateRange(m_first, m_last);
    m_calendar->setSelectedDate(m_selected);
    connect(m_calendar, &QCalendarWidget::clicked, this, &DateField::pick);
    connect(m_calendar, &QCalendarWidget::activated, this, &DateField::pick);
}

void DateField::setRange(QDate first, QDate last) {
    if (first.isValid())
        m_first = first;
    if (last.isValid())
        m_last = last;
    m_first = std::min(m_first, m_last);
    m_selected = std::clamp(m_selected, m_first, m_last);
    if (m_calendar)
        m_calendar->setDateRange(m_first, m_last);
}

void DateField::setDate(QDate date) {
    m_field->setText(date.isValid() ? typedDateText(date, locale()) : QString());
}

bool DateField::isEmpty() const {
    return m_field->text().isEmpty();
}

QDate DateField::date() const {
    const QDate typed = typedDate(m_field->text(), locale());
    const bool inRange = typed >= m_first && typed <= m_last;
    return inRange ? typed : QDate();
}

void DateField::fieldEdited() {
    const QDate typed = date();
    if (typed.isValid())
        m_selected = typed;
    if (m_calendar && m_calendar->selectedDate() != m_selected)
        m_calendar->setSelectedDate(m_selected);
    emit dateChanged(typed);
}

void DateField::dropDown() {
    if (!m_button)
        return;
    if (!m_popup) {
        makeCalendar();
        m_popup = new QFrame(this, Qt::Popup);
        m_popup->setFrameStyle(QFrame::StyledPanel);
        auto* layout = new QVBoxLayout(m_popup);
        layout->setContentsMargins({});
        layout->addWidget(m_calendar);
    }
    m_popup->adjustSize();
    const QRect room = screen()->availableGeometry();
    QPoint place = mapToGlobal(QPoint(0, height()));
    if (place.y() + m_popup->height() > room.bottom())
        place.setY(mapToGlobal(QPoint()).y() - m_popup->height());
    place.setX(
        std::clamp(place.x(), room.left(), std::max(room.left(), room.right() - m_popup->width())));
    m_popup->move(place);
    m_popup->show();
    m_calendar->setFocus();
}

void DateField::pick(QDate date) {
    setDate(date);
    if (m_popup) {
        m_popup->hide();
        m_field->setFocus();
        m_field->selectAll();
    }
    emit dateChosen(date);
}

void DateField::step(int days, int months) {
    const QDate from = date().isValid() ? date() : m_selected;
    const QDate to = from.addMonths(months).addDays(days);
    setDate(std::clamp(to, m_first, m_last));
    m_field->selectAll();
}

bool DateField::fieldKey(int key, Qt::KeyboardModifiers modifiers) {
    const bool dropsDown =
        key == Qt::Key_F4 || (key == Qt::Key_Down && modifiers == Qt::AltModifier);
    if (dropsDown)
        dropDown();
    else if (key == Qt::Key_Up)
        step(1, 0);
    else if (key == Qt::Key_Down)
        step(-1, 0);
    else if (key == Qt::Key_PageUp)
        step(0, 1);
    else if (key == Qt::Key_PageDown)
        step(0, -1);
    else
        return false;
    return true;
}

bool DateField::eventFilter(QObject* watched, QEvent* event) {
    // Before a window takes the page keys for going from one of its pages to the next.
    if (watched == m_field && event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            event->accept();
            return true;
        }
    }
    if (watched == m_field && event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<QKeyEvent*>(event);
        if (fieldKey(press->key(), press->modifiers()))
            return true;
    }
    return QWidget::eventFilter(watched, event);
}
