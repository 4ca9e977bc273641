#include "calendar/screens/timetable_panel.h"

#include "calendar/screens/timetable_cell.h"
#include "calendar/timetable.h"
#include "controls/colours.h"
#include "controls/fonts.h"
#include "controls/wheel_guard.h"
#include "core/dates.h"

#include <QComboBox>
#include <QFrame>
#include <QImage>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Days = TimetableGrid::Days;
constexpr int twenty = 20; ///< twips: the gap at the right and the foot of a cell
constexpr int thirty = 30; ///< twips: by so much the line of a break stops before the grid does
constexpr int padding = 6;
constexpr int lineWidth = 3;
constexpr int frameWidth = 3;

int pixels(int twips) {
    return qRound(twips / 15.0);
}

/// The colour of headings, whose text reads on both ends of the shading.
QColor headingColour(const QPalette& palette) {
    return palette.color(QPalette::Button);
}

QColor shadedEnd(const QPalette& palette) {
    const QColor start = headingColour(palette);
    return start.lightness() < 128 ? start.darker(130) : start.darker(112);
}

} // namespace

TimetablePanel::TimetablePanel(const TimetableYear& year, const FontRecord& font, bool gradients)
    : m_periods(std::max(0, year.periodsPerDay))
    , m_font(toFont(font))
    , m_textWish(toColour(font.colour))
    , m_gradients(gradients)
    , m_weeks(new QComboBox(this)) {
    setObjectName(u"Picture2"_s);
    m_weeks->setObjectName(u"cboWeek"_s);
    m_weeks->setAccessibleName(u"Week"_s);
    m_weeks->addItems({u"Week A"_s, u"Week B"_s});
    m_weeks->setVisible(year.twoWeeks);
    ignoreWheel(*m_weeks);
    m_corner = makeHeading(u"Label1"_s, u"Period"_s);
    for (int day = 1; day <= Days; ++day)
        m_dayHeadings += makeHeading(u"Label2(%1)"_s.arg(day - 1), DayName(day + 1).left(3));
    for (int period = 1; period <= m_periods; ++period)
        m_periodHeadings += makeHeading(u"L1(%1)"_s.arg(period - 1), u"Period\n%1"_s.arg(period));
    makeCells();
    makeBreaks(year);
    m_frame = new QFrame(this);
    m_frame->setObjectName(u"SelectionFrame"_s);
    m_frame->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_frame->setFrameStyle(QFrame::Box | QFrame::Plain);
    m_frame->setLineWidth(frameWidth);
    colour();
    selectCell(1, 1);
}

QLabel* TimetablePanel::makeHeading(const QString& name, const QString& text) {
    auto* heading = new QLabel(text, this);
    heading->setObjectName(name);
    heading->setAlignment(Qt::AlignCenter);
    heading->setFont(m_font);
    return heading;
}

void TimetablePanel::makeCells() {
    for (int period = 1; period <= m_periods; ++period) {
        for (int day = 1; day <= Days; ++day) {
            auto* cell = new TimetableCellLabel(day, period, this);
            connect(cell, &TimetableCellLabel::pressed, this,
                    [this, day, period] { emit cellPressed(day, period); });
            connect(cell, &TimetableCellLabel::editWanted, this, &TimetablePanel::editWanted);
            connect(cell, &TimetableCellLabel::menuWanted, this, &TimetablePanel::menuWanted);
            m_cells += cell;
        }
    }
}

/// A break that no row follows has no line.
void TimetablePanel::makeBreaks(const TimetableYear& year) {
    for (size_t i = 0; i < year.breaks.size(); ++i) {
        const qint32 row = year.breaks[i];
        if (row <= 0 || row >= m_periods)
            continue;
        auto* line = new QWidget(this);
        line->setObjectName(u"Line%1"_s.arg(i + 1));
        line->setAttribute(Qt::WA_TransparentForMouseEvents);
        line->setAutoFillBackground(true);
        line->setBackgroundRole(QPalette::WindowText);
        m_breaks += {row, line};
    }
}

TimetableCellLabel* TimetablePanel::label(int day, int period) const {
    return m_cells.value((period - 1) * Days + day - 1);
}

TimetableCellLabel* TimetablePanel::selectedLabel() const {
    return label(m_day, m_period);
}

void TimetablePanel::showGrid(const TimetableGrid& grid) {
    for (TimetableCellLabel* cell : std::as_const(m_cells))
        cell->showCell(grid.at(cell->day(), cell->period()), m_font, m_textWish);
    placeFrame();
}

void TimetablePanel::selectCell(int day, int period) {
    m_day = day;
    m_period = period;
    for (TimetableCellLabel* cell : std::as_const(m_cells))
        cell->setFocusPolicy(cell == selectedLabel() ? Qt::StrongFocus : Qt::ClickFocus);
    placeFrame();
}

/// Around the cell, in a colour that stands out from the cell's own.
void TimetablePanel::placeFrame() {
    const TimetableCellLabel* cell = selectedLabel();
    m_frame->setVisible(cell);
    if (!cell)
        return;
    QPalette framed = palette();
    const QColor ground = cell->palette().color(QPalette::Window);
    const QColor highlight = palette().color(QPalette::Highlight);
    constexpr double distinct = 3; // what a frame needs to be told from its ground
    framed.setColor(QPalette::WindowText,
                    contrast(ground, highlight) >= distinct ? highlight : textColourOn(ground));
    m_frame->setPalette(framed);
    m_frame->setGeometry(cell->geometry());
}

QImage TimetablePanel::picture() {
    m_frame->hide();
    const QImage image = grab().toImage();
    placeFrame();
    return image;
}

QSize TimetablePanel::minimumSizeHint() const {
    const QFontMetrics metrics(m_font);
    const int column = metrics.horizontalAdvance(u"0000000"_s) + 2 * padding;
    const int row = 3 * metrics.lineSpacing();
    const QRect first = cellRect(0, 0);
    return {first.width() + Days * column, first.bottom() + 1 + m_periods * row};
}

QSize TimetablePanel::sizeHint() const {
    return minimumSizeHint() * 1.5;
}

/// Column 0 holds the headings of the periods, row 0 those of the days.
QRect TimetablePanel::cellRect(int column, int row) const {
    const int top = m_weeks->isHidden() ? 0 : m_weeks->sizeHint().height() + 2 * pixels(twenty);
    const QFontMetrics metrics(m_font);
    const int left = metrics.horizontalAdvance(u"Period"_s) + 2 * padding;
    const int heading = metrics.height() + 2 * padding;
    if (column == 0 && row == 0)
        return {0, top, left, heading};
    const int rows = std::max(1, m_periods);
    const int bodyTop = top + heading;
    const auto x = [&](int c) { return c == 0 ? 0 : left + (width() - left) * (c - 1) / Days; };
    const auto y = [&](int r) {
        return r == 0 ? top : bodyTop + (height() - bodyTop) * (r - 1) / rows;
    };
    const QPoint end(column == 0 ? left : x(column + 1), row == 0 ? bodyTop : y(row + 1));
    return {QPoint(x(column), y(row)), end - QPoint(1, 1)};
}

void TimetablePanel::layOut() {
    const int gap = pixels(twenty);
    m_weeks->resize(m_weeks->sizeHint());
    m_weeks->move(width() - m_weeks->width() - gap, gap);
    m_corner->setGeometry(cellRect(0, 0));
    for (int day = 1; day <= Days; ++day)
        m_dayHeadings[day - 1]->setGeometry(cellRect(day, 0));
    for (int period = 1; period <= m_periods; ++period)
        m_periodHeadings[period - 1]->setGeometry(cellRect(0, period));
    for (TimetableCellLabel* cell : std::as_const(m_cells))
        cell->setGeometry(cellRect(cell->day(), cell->period()).adjusted(0, 0, -gap, -gap));
    for (const Break& each : std::as_const(m_breaks)) {
        const int top = cellRect(0, each.row + 1).top() - lineWidth / 2 - 1;
        each.line->setGeometry(0, top, width() - pixels(thirty), lineWidth);
    }
    placeFrame();
}

void TimetablePanel::colour() {
    const QColor ground = headingColour(palette());
    const QColor reading = contrast(shadedEnd(palette()), m_textWish) >= 4.5
                               ? m_textWish
                               : textColourOn(shadedEnd(palette()));
    for (QLabel* heading : findChildren<QLabel*>(Qt::FindDirectChildrenOnly)) {
        if (qobject_cast<TimetableCellLabel*>(heading))
            continue;
        setBackground(heading, ground, reading);
        heading->setAutoFillBackground(!m_gradients);
    }
    for (const Break& each : std::as_const(m_breaks))
        each.line->setPalette(palette());
}

void TimetablePanel::shadeCaptions() {
    QPainter painter(this);
    const auto fill = [&](const QRect& area, QPointF end) {
        QLinearGradient shade(area.topLeft(), end);
        shade.setColorAt(0, headingColour(palette()));
        shade.setColorAt(1, shadedEnd(palette()));
        painter.fillRect(area, shade);
    };
    const QRect corner = cellRect(0, 0);
    const QRect top(0, corner.top(), width(), corner.height());
    const QRect side(0, corner.bottom() + 1, corner.width(), height());
    fill(top, top.bottomLeft());
    fill(side, side.topRight());
}

void TimetablePanel::paintEvent(QPaintEvent*) {
    if (m_gradients)
        shadeCaptions();
}

void TimetablePanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOut();
}

void TimetablePanel::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colour();
}

void TimetablePanel::keyPressEvent(QKeyEvent* event) {
    if (m_cells.isEmpty())
        return QWidget::keyPressEvent(event);
    int day = m_day;
    int period = m_period;
    switch (event->key()) {
    case Qt::Key_Left:
        day = std::max(1, day - 1);
        break;
    case Qt::Key_Right:
        day = std::min(Days, day + 1);
        break;
    case Qt::Key_Up:
        period = std::max(1, period - 1);
        break;
    case Qt::Key_Down:
        period = std::min(m_periods, period + 1);
        break;
    case Qt::Key_Home:
        day = 1;
        break;
    case Qt::Key_End:
        day = Days;
        break;
    case Qt::Key_F2:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit editWanted();
        return;
    default:
        return QWidget::keyPressEvent(event);
    }
    label(day, period)->setFocus(Qt::OtherFocusReason);
    selectCell(day, period);
}

void TimetablePanel::mousePressEvent(QMouseEvent* event) {
    QWidget::mousePressEvent(event);
    emit backgroundPressed();
}
