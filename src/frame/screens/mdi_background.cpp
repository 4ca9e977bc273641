#include "frame/screens/mdi_background.h"

#include "controls/colours.h"
#include "controls/placed_widget.h"
#include "core/core_settings.h"
#include "core/program_settings.h"
#include "core/session.h"
#include "core/setting_notices.h"
#include "core/settings.h"

#include <QLinearGradient>
#include <QMdiSubWindow>
#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// Along the direction of a shading: how far it goes on a pixel to the right, and on one down,
/// where the whole of it is 1.
struct Steps {
    qreal right = 0;
    qreal down = 0;
};

Steps stepsOf(QSizeF size, FadeDirection direction) {
    const qreal width = std::max(1.0, size.width());
    const qreal height = std::max(1.0, size.height());
    if (direction == FadeDirection::Horizontal)
        return {1 / width, 0};
    if (direction == FadeDirection::Vertical)
        return {0, 1 / height};
    const qreal diagonal = width * width + height * height;
    return {width / diagonal, height / diagonal};
}

/// A line of pixels along which a shading goes on step by step to its end.
QImage shadedLine(const QColor& start, const QColor& end, qreal step) {
    QImage line(static_cast<int>(std::ceil(1 / step)) + 1, 1, QImage::Format_RGB32);
    QLinearGradient gradient({0, 0}, {1 / step, 0});
    gradient.setColorAt(0, start);
    gradient.setColorAt(1, end);
    QPainter(&line).fillRect(line.rect(), gradient);
    return line;
}

} // namespace

MdiBackground::MdiBackground(Session& session, QWidget* parent)
    : QMdiArea(parent), m_session(session) {
    setObjectName(u"MDIClient"_s);
    setAccessibleName(u"Tool windows"_s);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    SettingNotices& notices = session.GetSettings().notices();
    const auto shade = [this] { ShadeMDI(); };
    notices.onChange(setting::FadeStartColor, this, shade);
    notices.onChange(setting::FadeEndColor, this, shade);
    notices.onChange(setting::FadeStyle, this, shade);
    notices.onChange(setting::DisableGradients, this, shade);
}

void MdiBackground::ShadeMDI() {
    const Settings& settings = m_session.GetSettings();
    const QColor workspace = palette().color(QPalette::Dark);
    const QColor end =
        toColour(settings.find(setting::FadeEndColor).value_or(fromColour(workspace)));
    const QColor start =
        m_session.GradientsEnabled ? toColour(settings.get(setting::FadeStartColor)) : end;
    const Steps steps =
        stepsOf(QSizeF(size()) * devicePixelRatioF(), settings.get(setting::FadeStyle));
    m_shading = shadedLine(start, end, std::max(steps.right, steps.down));
    m_isUpright = steps.right == 0;
    m_rowShift = m_isUpright ? 1 : steps.down / steps.right;
    viewport()->update();
}

/// Row by row of the screen out of one line, since each row goes on where the one above began. The
/// toolkit would reckon each pixel, and start threads for it, which takes longer than all of this.
void MdiBackground::paintEvent(QPaintEvent* event) {
    const qreal scale = devicePixelRatioF();
    QPainter painter(viewport());
    painter.scale(1 / scale, 1 / scale);
    for (const QRect& part : event->region()) {
        const QRect pixels =
            QRectF(QPointF(part.topLeft()) * scale, QSizeF(part.size()) * scale).toAlignedRect();
        for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
            const int shift = qRound(y * m_rowShift);
            if (m_isUpright)
                painter.fillRect(pixels.left(), y, pixels.width(), 1,
                                 m_shading.pixelColor(std::min(shift, m_shading.width() - 1), 0));
            else
                painter.drawImage(pixels.left(), y, m_shading, pixels.left() + shift, 0,
                                  pixels.width(), 1);
        }
    }
}

void MdiBackground::resizeEvent(QResizeEvent* event) {
    QMdiArea::resizeEvent(event);
    ShadeMDI();
    keepFormsInside();
}

/// The desktop fits the main window to the screen when the first of them may be open already.
void MdiBackground::keepFormsInside() {
    for (QMdiSubWindow* form : subWindowList()) {
        PlacedWidget place(*form, form->objectName(), viewport());
        if (place.windowState() == WindowNormal && !viewport()->rect().contains(form->geometry()))
            place.setPlacement(place.placement());
    }
}

/// The default end of the shading is a colour of the person's scheme.
void MdiBackground::changeEvent(QEvent* event) {
    QMdiArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ShadeMDI();
}
