#include "organiser/screens/time_entry.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QToolButton>

using namespace Qt::StringLiterals;

TimeEntry::TimeEntry(QWidget* parent) : QFrame(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleDescription(u"Arrow keys or digits change the part that is marked"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 1, 1, 1);
    layout->setSpacing(1);
    static const QStringList names{u"Hour"_s, u"Minute"_s, u"AM or PM"_s};
    for (int part = 0; part < 3; ++part) {
        auto* label = new QLabel;
        label->setObjectName(u"Label7(%1)"_s.arg(part));
        label->setAccessibleName(names[part]);
        label->setAutoFillBackground(true);
        label->setAlignment(Qt::AlignCenter);
        label->setContentsMargins(3, 1, 3, 1);
        label->installEventFilter(this);
        m_labels.at(static_cast<size_t>(part)) = label;
        layout->addWidget(label);
        if (part == TwelveHours::Hour)
            layout->addWidget(new QLabel(u":"_s));
    }
    layout->addWidget(makeSpinButtons());
    showTime();
    showMark();
}

/// They act as the up and down keys, and leave the focus where it is.
QWidget* TimeEntry::makeSpinButtons() {
    auto* buttons = new QWidget;
    auto* layout = new QVBoxLayout(buttons);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    for (const int direction : {1, -1}) {
        auto* button = new QToolButton;
        button->setObjectName(u"cmd1(%1)"_s.arg(direction > 0 ? 0 : 1));
        button->setArrowType(direction > 0 ? Qt::UpArrow : Qt::DownArrow);
        button->setToolTip(direction > 0 ? u"Up"_s : u"Down"_s);
        button->setAccessibleName(direction > 0 ? u"Time up"_s : u"Time down"_s);
        button->setAutoRepeat(true);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setFixedSize(20, 13);
        button->setIconSize({9, 9});
        connect(button, &QToolButton::clicked, this, [this, direction] {
            setFocus();
            step(direction);
        });
        layout->addWidget(button);
    }
    return buttons;
}

void TimeEntry::setTime(QTime time) {
    m_time = TwelveHours(time);
    showTime();
}

void TimeEntry::ClearTimeFormat() {
    mark(std::nullopt);
}

void TimeEntry::mark(std::optional<TwelveHours::Part> part) {
    m_marked = part;
    m_typed = 0;
    showMark();
}

void TimeEntry::step(int direction) {
    if (!m_marked)
        mark(TwelveHours::Hour);
    m_time.step(*m_marked, direction);
    m_typed = 0;
    showTime();
    emit changed();
}

bool TimeEntry::moveKey(int key) {
    const int marked = m_marked.value_or(TwelveHours::Hour);
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        step(key == Qt::Key_Up ? 1 : -1);
    else if (key == Qt::Key_Left)
        mark(static_cast<TwelveHours::Part>(qMax<int>(TwelveHours::Hour, marked - 1)));
    else if (key == Qt::Key_Right)
        mark(static_cast<TwelveHours::Part>(qMin<int>(TwelveHours::Half, marked + 1)));
    else
        return false;
    return true;
}

bool TimeEntry::typeKey(const QString& text) {
    const QChar key = text.isEmpty() ? QChar() : text.front().toUpper();
    if (key >= u'0' && key <= u'9') {
        typeDigit(key.digitValue());
        return true;
    }
    if (key != u'A' && key != u'P')
        return false;
    mark(TwelveHours::Half);
    m_time.setAfternoon(key == u'P');
    showTime();
    emit changed();
    return true;
}

/// Two digits make a number; where they make none the second begins another.
void TimeEntry::typeDigit(int digit) {
    const TwelveHours::Part part = m_marked.value_or(TwelveHours::Hour);
    if (part == TwelveHours::Half)
        return;
    m_marked = part;
    showMark();
    constexpr int ten = 10;
    const bool isSet = m_time.set(part, ten * m_typed + digit) || m_time.set(part, digit);
    m_typed = isSet && m_typed != 0 ? 0 : digit;
    showTime();
    emit changed();
}

void TimeEntry::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = !(event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    if (!isPlain || (!moveKey(event->key()) && !typeKey(event->text())))
        QFrame::keyPressEvent(event);
}

/// Who comes by Tab finds something marked.
void TimeEntry::focusInEvent(QFocusEvent* event) {
    QFrame::focusInEvent(event);
    if (!m_marked)
        mark(TwelveHours::Hour);
}

void TimeEntry::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        showMark();
}

bool TimeEntry::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        for (int part = 0; part < 3; ++part) {
            if (m_labels.at(static_cast<size_t>(part)) != watched)
                continue;
            mark(static_cast<TwelveHours::Part>(part));
            setFocus(Qt::MouseFocusReason);
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}

void TimeEntry::showTime() {
    QString whole;
    for (int part = 0; part < 3; ++part) {
        const QString text = m_time.text(static_cast<TwelveHours::Part>(part));
        m_labels.at(static_cast<size_t>(part))->setText(text);
        whole += (part == TwelveHours::Hour     ? u""_s
                  : part == TwelveHours::Minute ? u":"_s
                                                : u" "_s) +
                 text;
    }
    setAccessibleName(u"Time "_s + whole);
}

void TimeEntry::showMark() {
    for (int part = 0; part < 3; ++part) {
        QLabel* label = m_labels.at(static_cast<size_t>(part));
        const bool isMarked = m_marked == static_cast<TwelveHours::Part>(part);
        label->setBackgroundRole(isMarked ? QPalette::Highlight : QPalette::Base);
        label->setForegroundRole(isMarked ? QPalette::HighlightedText : QPalette::Text);
    }
}
