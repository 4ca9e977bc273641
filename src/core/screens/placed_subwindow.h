#pragma once

#include "core/window_placement.h"

#include <QMdiSubWindow>

/// A tool window of the main window, as the rules of placement see it: twips inside the main
/// window's client area.
class PlacedSubWindow : public PlacedWindow {
public:
    explicit PlacedSubWindow(QMdiSubWindow& window) : m_window(window) {}

    QString windowName() const override;
    int windowState() const override;
    void setWindowState(int state) override;
    Placement placement() const override;
    void setPlacement(const Placement& placement) override;
    QSize screenSize() const override;
    void lockMainWindow(bool lock) override;

private:
    QMdiSubWindow& m_window;
};

/// A window of its own on the screen, such as the main one.
class PlacedTopWindow : public PlacedWindow {
public:
    explicit PlacedTopWindow(QWidget& window) : m_window(window) {}

    QString windowName() const override;
    int windowState() const override;
    void setWindowState(int state) override;
    Placement placement() const override;
    void setPlacement(const Placement& placement) override;
    QSize screenSize() const override;
    void lockMainWindow(bool lock) override;

private:
    QWidget& m_window;
};
