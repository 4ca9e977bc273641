#include "controls/placed_widget.h"

#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace {

QRect within(QRect rectangle, QRect area) {
    if (area.isEmpty())
        return rectangle;
    rectangle.setSize(rectangle.size().boundedTo(area.size()));
    rectangle.moveLeft(
        std::clamp(rectangle.left(), area.left(), area.right() + 1 - rectangle.width()));
    rectangle.moveTop(
        std::clamp(rectangle.top(), area.top(), area.bottom() + 1 - rectangle.height()));
    return rectangle;
}

float inTwips(int pixels) {
    return static_cast<float>(pixels * TwipsPerPixel);
}

int inPixels(float twips) {
    return qRound(twips / TwipsPerPixel);
}

} // namespace

PlacedWidget::PlacedWidget(QWidget& window, QString name, QWidget* client)
    : m_window(window), m_name(std::move(name)), m_client(client) {}

int PlacedWidget::windowState() const {
    if (m_window.isMinimized())
        return WindowMinimised;
    return m_window.isMaximized() ? WindowMaximised : WindowNormal;
}

void PlacedWidget::setWindowState(int state) {
    if (state == WindowMinimised)
        m_window.showMinimized();
    else if (state == WindowMaximised)
        m_window.showMaximized();
    else
        m_window.showNormal();
}

/// A window on the screen is placed with the frame that the desktop puts around it.
Placement PlacedWidget::placement() const {
    const QRect place(m_client ? m_window.geometry().topLeft() : m_window.pos(), m_window.size());
    return {inTwips(place.top()), inTwips(place.left()), inTwips(place.width()),
            inTwips(place.height())};
}

void PlacedWidget::setPlacement(const Placement& placement) {
    QRect wanted(inPixels(placement.Left), inPixels(placement.Top), inPixels(placement.Width),
                 inPixels(placement.Height));
    if (wanted.isEmpty())
        wanted.setSize(m_window.size());
    wanted = within(wanted, area());
    m_window.resize(wanted.size());
    m_window.move(wanted.topLeft());
}

QRect PlacedWidget::area() const {
    if (m_client)
        return m_client->rect();
    const int title = m_window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &m_window);
    return m_window.screen()->availableGeometry().adjusted(0, 0, 0, -title);
}

QSize PlacedWidget::screenSize() const {
    return m_window.screen()->size();
}

void PlacedWidget::lockMainWindow(bool lock) {
    m_window.window()->setUpdatesEnabled(!lock);
}
