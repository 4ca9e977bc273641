#include "core/screens/placed_subwindow.h"

#include <QMdiArea>
#include <QScreen>

#include <algorithm>

namespace {

int stateOf(const QWidget& window) {
    if (window.isMinimized())
        return WindowMinimised;
    return window.isMaximized() ? WindowMaximised : WindowNormal;
}

void show(QWidget& window, int state) {
    if (state == WindowMinimised)
        window.showMinimized();
    else if (state == WindowMaximised)
        window.showMaximized();
    else
        window.showNormal();
}

Placement inTwips(QRect rectangle) {
    return {static_cast<float>(rectangle.top() * TwipsPerPixel),
            static_cast<float>(rectangle.left() * TwipsPerPixel),
            static_cast<float>(rectangle.width() * TwipsPerPixel),
            static_cast<float>(rectangle.height() * TwipsPerPixel)};
}

QRect inPixels(const Placement& placement) {
    const auto pixels = [](float twips) { return qRound(twips / TwipsPerPixel); };
    return {pixels(placement.Left), pixels(placement.Top), pixels(placement.Width),
            pixels(placement.Height)};
}

/// A place kept on a larger screen must not put the window where it can't be reached.
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

} // namespace

QString PlacedSubWindow::windowName() const {
    return m_window.widget()->objectName();
}

int PlacedSubWindow::windowState() const {
    return stateOf(m_window);
}

void PlacedSubWindow::setWindowState(int state) {
    show(m_window, state);
}

Placement PlacedSubWindow::placement() const {
    return inTwips(m_window.geometry());
}

void PlacedSubWindow::setPlacement(const Placement& placement) {
    QRect wanted = inPixels(placement);
    if (wanted.isEmpty()) // a window that was never kept has a place and no size
        wanted.setSize(m_window.size());
    m_window.setGeometry(within(wanted, m_window.mdiArea()->viewport()->rect()));
}

QSize PlacedSubWindow::screenSize() const {
    return m_window.screen()->size();
}

void PlacedSubWindow::lockMainWindow(bool lock) {
    m_window.mdiArea()->setUpdatesEnabled(!lock);
}

QString PlacedTopWindow::windowName() const {
    return m_window.objectName();
}

int PlacedTopWindow::windowState() const {
    return stateOf(m_window);
}

void PlacedTopWindow::setWindowState(int state) {
    show(m_window, state);
}

Placement PlacedTopWindow::placement() const {
    return inTwips(m_window.geometry());
}

void PlacedTopWindow::setPlacement(const Placement& placement) {
    m_window.setGeometry(within(inPixels(placement), m_window.screen()->availableGeometry()));
}

QSize PlacedTopWindow::screenSize() const {
    return m_window.screen()->size();
}

void PlacedTopWindow::lockMainWindow(bool lock) {
    m_window.setUpdatesEnabled(!lock);
}
