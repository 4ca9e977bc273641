#include "frame/screens/mdi_background.h"

#include "controls/colours.h"
#include "core/core_settings.h"
#include "core/session.h"
#include "core/settings.h"

#include <QLinearGradient>
#include <QResizeEvent>

namespace {

/// How the shading runs, by its number in the settings.
enum FadeDirection { Diagonal = 0, Horizontal = 1, Vertical = 2 };

QPointF fadeEnd(QSizeF size, int style) {
    switch (style) {
    case Horizontal:
        return {size.width(), 0};
    case Vertical:
        return {0, size.height()};
    default:
        return {size.width(), size.height()};
    }
}

} // namespace

MdiBackground::MdiBackground(Session& session, QWidget* parent)
    : QMdiArea(parent), m_session(session) {
    setObjectName(QStringLiteral("MDIClient"));
    setAccessibleName(tr("Tool windows"));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
}

void MdiBackground::ShadeMDI() {
    Settings& settings = m_session.GetSettings();
    const QColor workspace = palette().color(QPalette::Dark);
    const QColor end =
        toColour(settings.readNumber(setting::Root, setting::FadeEndColor, fromColour(workspace)));
    if (!m_session.GradientsEnabled)
        return setBackground(end);
    QLinearGradient gradient(
        {0, 0}, fadeEnd(size(), settings.readNumber(setting::Root, setting::FadeStyle)));
    gradient.setColorAt(
        0, toColour(settings.readNumber(setting::Root, setting::FadeStartColor, 0xFFFFFF)));
    gradient.setColorAt(1, end);
    setBackground(gradient);
}

void MdiBackground::resizeEvent(QResizeEvent* event) {
    QMdiArea::resizeEvent(event);
    ShadeMDI();
}

/// The default end of the shading is a colour of the person's scheme.
void MdiBackground::changeEvent(QEvent* event) {
    QMdiArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ShadeMDI();
}
