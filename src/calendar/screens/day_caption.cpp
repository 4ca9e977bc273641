#include "calendar/screens/day_caption.h"

#include "controls/colours.h"

#include <QEvent>
#include <QGuiApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmapCache>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// From the top of a caption to its foot.
struct CaptionShade {
    QColor from;
    QColor to;
};
const CaptionShade weekdayCaptionShade{{255, 255, 255}, {224, 224, 224}};
const CaptionShade weekendCaptionShade{{197, 221, 250}, {129, 168, 225}};
const CaptionShade selectedCaptionShade{{248, 216, 126}, {240, 161, 40}};

CaptionShade captionShade(bool isWeekend, bool isSelected) {
    if (isSelected)
        return selectedCaptionShade;
    return isWeekend ? weekendCaptionShade : weekdayCaptionShade;
}

/// Line by line: the toolkit would start threads for a gradient of this size.
QPixmap paintedShade(int height, const CaptionShade& shade) {
    const auto between = [&](int from, int to, int y) {
        return from + (to - from) * y / std::max(1, height - 1);
    };
    QImage strip(1, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        strip.setPixelColor(0, y,
                            QColor(between(shade.from.red(), shade.to.red(), y),
                                   between(shade.from.green(), shade.to.green(), y),
                                   between(shade.from.blue(), shade.to.blue(), y)));
    return QPixmap::fromImage(strip);
}

/// All captions of a page have one of three shades at one height.
void paintShade(QPainter& painter, const QRect& area, const CaptionShade& shade) {
    const QString key = u"caption %1 %2"_s.arg(area.height()).arg(shade.to.rgb());
    QPixmap strip;
    if (!QPixmapCache::find(key, &strip)) {
        strip = paintedShade(area.height(), shade);
        QPixmapCache::insert(key, strip);
    }
    painter.drawTiledPixmap(area, strip);
}

/// What stands behind the text in the person's scheme.
QColor captionGround(const QPalette& scheme, bool isWeekend, bool isSelected) {
    if (isSelected)
        return scheme.color(QPalette::Highlight);
    return scheme.color(isWeekend ? QPalette::Mid : QPalette::Button);
}

} // namespace

DayCaption::DayCaption(int day, bool gradients, QWidget* parent)
    : QLabel(parent), m_gradients(gradients) {
    setObjectName(u"L1(%1)"_s.arg(day - 1));
    setTextFormat(Qt::PlainText);
    setFrameStyle(QFrame::Panel | QFrame::Raised);
    setBackground(this, weekdayCaptionShade.to);
    setAutoFillBackground(!m_gradients);
    colour();
}

void DayCaption::showDay(const QString& caption, bool isWeekend) {
    setText(caption);
    if (std::exchange(m_isWeekend, isWeekend) != isWeekend)
        colour();
}

void DayCaption::setSelected(bool selected) {
    if (std::exchange(m_isSelected, selected) != selected)
        colour();
}

void DayCaption::colour() {
    if (m_gradients)
        update(); // all shades are light, and the text on them the same
    else
        setBackground(this, captionGround(QGuiApplication::palette(), m_isWeekend, m_isSelected));
}

void DayCaption::paintEvent(QPaintEvent* event) {
    if (m_gradients) {
        QPainter painter(this);
        paintShade(painter, rect(), captionShade(m_isWeekend, m_isSelected));
    }
    QLabel::paintEvent(event);
}

void DayCaption::mousePressEvent(QMouseEvent* event) {
    event->accept();
    emit pressed();
}

void DayCaption::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange && !m_gradients)
        colour();
}
