#include "frame/screens/mdi_background.h"

#include "controls/colours.h"
#include "controls/placed_widget.h"
#include "core/session.h"
#include "core/setting_notices.h"
#include "core/settings.h"
#include "frame/frame_settings.h"

#include <QLinearGradient>
#include <QMdiSubWindow>
#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>

using namespace Qt::StringLiterals;

namespace {

QPointF fadeEnd(QSizeF size, FadeDirection direction) {
    switch (direction) {
    case FadeDirection::Horizontal:
        return {size.width(), 0};
    case FadeDirection::Vertical:
        return {0, size.height()};
    default:
        return {size.width(), size.height()};
    }
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
}

void MdiBackground::ShadeMDI() {
    const Settings& settings = m_session.GetSettings();
    const QColor workspace = palette().color(QPalette::Dark);
    const QColor end =
        toColour(settings.find(setting::FadeEndColor).value_or(fromColour(workspace)));
    if (!m_session.GradientsEnabled)
        return setBackground(end);
    QLinearGradient gradient({0, 0}, fadeEnd(size(), settings.get(setting::FadeStyle)));
    gradient.setColorAt(0, toColour(settings.get(setting::FadeStartColor)));
    gradient.setColorAt(1, end);
    setBackground(gradient);
}

/// In bands: a shading of more lines is shared out among threads, which take longer to come than
/// the whole of it takes to paint.
void MdiBackground::paintEvent(QPaintEvent* event) {
    constexpr int bandHeight = 64;
    QPainter painter(viewport());
    for (const QRect& part : event->region()) {
        for (int top = part.top(); top <= part.bottom(); top += bandHeight)
            painter.fillRect(part & QRect(part.left(), top, part.width(), bandHeight),
                             background());
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
