#pragma once

#include "core/window_placement.h"

#include <QWidget>

/// A window as the rules of placement see it: a tool window inside the main window's client area,
/// or a window of its own on the screen.
class PlacedWidget : public PlacedWindow {
public:
    /// `client` is the area that a tool window stands in, null for a window on the screen. `name`
    /// is the system's name for the window.
    PlacedWidget(QWidget& window, QString name, QWidget* client = nullptr);

    QString windowName() const override { return m_name; }
    int windowState() const override;
    void setWindowState(int state) override;
    Placement placement() const override;
    /// A place kept on a larger screen is moved to where the window can be reached; without a size
    /// the window keeps its own.
    void setPlacement(const Placement& placement) override;
    QSize screenSize() const override;
    void lockMainWindow(bool lock) override;

private:
    QRect area() const;

    QWidget& m_window;
    QString m_name;
    QWidget* m_client;
};
