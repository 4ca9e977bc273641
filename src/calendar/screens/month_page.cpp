#include "calendar/screens/month_page.h"

#include "calendar/screens/day_box.h"
#include "calendar/screens/day_caption.h"
#include "controls/fonts.h"
#include "store/schema.h"

#include <QKeyEvent>
#include <QTextDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int DayGap = 2;
constexpr int DayGrowth = 10; ///< a box that has grown is so many times as high
constexpr int UsualPageWidth = 640;

} // namespace

MonthPage::MonthPage(bool gradients, QWidget* parent) : QWidget(parent) {
    setObjectName(u"Pinner"_s);
    setAccessibleName(u"Days of the month"_s);
    for (int day = 1; day <= DaysOfCalendar; ++day)
        addDay(day, gradients);
    measure();
}

MonthPage::~MonthPage() {
    // A box that goes with the focus hands it to the next one: nobody is left to hear it.
    for (const Day& day : m_days)
        day.box->disconnect(this);
}

void MonthPage::addDay(int day, bool gradients) {
    auto* caption = new DayCaption(day, gradients, this);
    auto* box = new DayBox(day, this);
    m_days.push_back({caption, box});
    connect(caption, &DayCaption::pressed, this, [this, day] {
        RestoreExtendedEditbox();
        enterDay(day);
    });
    connect(box, &DayBox::entered, this, [this, day] { selectDay(day); });
    connect(box, &DayBox::stepWanted, this, [this, day](int by) { step(day, by); });
    connect(box, &DayBox::growthWanted, this, [this, day] { grow(day); });
    connect(box, &DayBox::restoreWanted, this, &MonthPage::RestoreExtendedEditbox);
}

void MonthPage::setNewTextFont(const FontRecord& font) {
    if (font == m_newTextFont)
        return;
    m_newTextFont = font;
    for (const Day& day : m_days)
        day.box->setNewTextFont(font);
    measure();
}

/// The height of a line is the same for all, so that captions and boxes stand side by side; that of
/// the page is the same for all months, so that it stays where it is scrolled to.
void MonthPage::measure() {
    const DayBox& first = box(1);
    const int text =
        std::max(first.fontMetrics().height(), QFontMetrics(toFont(m_newTextFont)).height());
    m_lineHeight = text + 2 * (first.frameWidth() + qRound(first.document()->documentMargin()));
    setMinimumHeight(DaysOfCalendar * (m_lineHeight + DayGap));
}

void MonthPage::showMonth(const EventMonths& month) {
    RestoreExtendedEditbox();
    const bool hasCaret = m_selected > 0 && box(m_selected).hasFocus();
    if (hasCaret)
        setFocus(); // before its box may be hidden
    selectDay(0);
    m_shown = month.days();
    for (int day = 1; day <= DaysOfCalendar; ++day) {
        const bool isShown = day <= m_shown;
        caption(day).setVisible(isShown);
        box(day).setVisible(isShown);
        if (!isShown)
            continue;
        caption(day).showDay(month.caption(day), month.kind(day) == DayKind::Weekend);
        box(day).setAccessibleName(month.dateText(day));
    }
    measureCaptions();
    layOut();
}

/// Once: each month has all the days of the week.
void MonthPage::measureCaptions() {
    if (m_captionWidth > 0)
        return;
    for (int day = 1; day <= m_shown; ++day)
        m_captionWidth = std::max(m_captionWidth, caption(day).sizeHint().width());
}

void MonthPage::showGround(int day, const QColor& colour) {
    Day& shown = m_days.at(static_cast<size_t>(day - 1));
    if (shown.ground == colour)
        return;
    shown.ground = colour;
    shown.box->setPaper(colour);
}

void MonthPage::selectDay(int day) {
    if (day == m_selected)
        return;
    RestoreExtendedEditbox();
    if (m_selected > 0)
        caption(m_selected).setSelected(false);
    m_selected = day;
    if (day > 0)
        caption(day).setSelected(true);
    emit daySelected(day);
}

void MonthPage::enterDay(int day) {
    selectDay(day);
    box(day).setFocus();
}

void MonthPage::step(int from, int by) {
    const int to = from == 0 && by < 0 ? m_shown : from + by;
    if (to < 1 || to > m_shown)
        emit monthWanted(by);
    else
        enterDay(to);
}

void MonthPage::grow(int day) {
    RestoreExtendedEditbox();
    m_grown = day;
    box(day).setGrown(true);
    box(day).raise();
    layOut();
    emit boxGrown(day);
}

void MonthPage::RestoreExtendedEditbox() {
    if (m_grown == 0)
        return;
    box(m_grown).setGrown(false);
    m_grown = 0;
    layOut();
}

void MonthPage::layOut() {
    for (int day = 1; day <= m_shown; ++day) {
        const int top = (day - 1) * (m_lineHeight + DayGap);
        const int left = m_captionWidth + DayGap;
        caption(day).setGeometry(0, top, m_captionWidth, m_lineHeight);
        QRect place(left, top, std::max(0, width() - left), m_lineHeight);
        if (day == m_grown) {
            place.setHeight(DayGrowth * m_lineHeight);
            place.translate(0, -std::max(0, place.bottom() + 1 - height()));
        }
        box(day).setGeometry(place);
    }
}

QSize MonthPage::sizeHint() const {
    return {UsualPageWidth, minimumHeight()};
}

void MonthPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOut();
}

/// While no day is selected the keys lead into the month.
void MonthPage::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_PageUp:
        return step(0, -1);
    case Qt::Key_Down:
    case Qt::Key_PageDown:
        return step(0, 1);
    default:
        QWidget::keyPressEvent(event);
    }
}
