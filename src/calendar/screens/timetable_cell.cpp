#include "calendar/screens/timetable_cell.h"

#include "calendar/timetable.h"
#include "controls/colours.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int cellMargin = 3;

/// The text in lines of a width, as many as fit; the last one says by its end that there is more.
QStringList fittingLines(const QString& text, const QFont& font, QSize room) {
    const QFontMetrics metrics(font);
    const qsizetype most = std::max(1, room.height() / metrics.lineSpacing());
    QTextOption wrap;
    wrap.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QStringList lines;
    for (const QString& paragraph : text.split(u'\n')) {
        QTextLayout layout(paragraph, font);
        layout.setTextOption(wrap);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(room.width());
            if (lines.size() == most) {
                lines.last() =
                    metrics.elidedText(lines.last() + u"\u2026"_s, Qt::ElideRight, room.width());
                return lines;
            }
            lines += paragraph.mid(line.textStart(), line.textLength()).trimmed();
        }
        layout.endLayout();
    }
    return lines;
}

} // namespace

TimetableCellLabel::TimetableCellLabel(int day, int period, QWidget* parent)
    : QLabel(parent), m_day(day), m_period(period), m_room(new QLabel(this)) {
    setObjectName(u"T%1(%2)"_s.arg(day).arg(period - 1));
    m_room->setObjectName(u"lbT%1(%2)"_s.arg(day).arg(period - 1));
    setTextFormat(Qt::PlainText);
    m_room->setTextFormat(Qt::PlainText);
    m_room->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    m_room->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_room->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setFocusPolicy(Qt::ClickFocus);
}

void TimetableCellLabel::showCell(const TimetableCell& cell, const QFont& cellFont,
                                  const QColor& textWish) {
    setFont(cellFont);
    m_room->setFont(cellFont);
    setBackground(this, toColour(cell.colour), textWish);
    setText(cell.caption);
    m_room->setText(cell.room);
    QStringList words{cellPlace(m_day, m_period)};
    for (const QString& word : {cell.caption, cell.room}) {
        if (!word.isEmpty())
            words += word;
    }
    setAccessibleName(words.join(u", "_s));
    setToolTip(words.mid(1).join(u'\n').toHtmlEscaped());
    placeRoom();
    update();
}

void TimetableCellLabel::placeRoom() {
    const int height = std::min(m_room->fontMetrics().height(), this->height());
    m_room->setGeometry(cellMargin, this->height() - height - cellMargin, width() - 2 * cellMargin,
                        height);
}

void TimetableCellLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(palette().color(foregroundRole()));
    const int foot = m_room->text().isEmpty() ? 0 : m_room->height();
    const QRect room = rect().adjusted(cellMargin, 1, -cellMargin, -cellMargin - foot);
    painter.drawText(room, Qt::AlignCenter, fittingLines(text(), font(), room.size()).join(u'\n'));
}

void TimetableCellLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    placeRoom();
}

void TimetableCellLabel::mousePressEvent(QMouseEvent* event) {
    event->accept();
    emit pressed();
}

void TimetableCellLabel::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        emit editWanted();
}

void TimetableCellLabel::contextMenuEvent(QContextMenuEvent* event) {
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    emit menuWanted(byMouse ? event->globalPos() : mapToGlobal(rect().center()));
}
