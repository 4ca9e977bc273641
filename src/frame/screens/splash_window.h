#pragma once

#include "core/clock.h"

#include <QWidget>

/// The program's name while it starts. Never in the way: it takes neither the focus nor the input
/// of other windows, goes at a click, by its own timer, or when whoever made it deletes it.
class SplashWindow : public QWidget {
    Q_OBJECT

public:
    /// Shows itself as soon as the event loop runs, for nothing of it could be drawn before: a
    /// start that asks nothing has its main window by then. `clock` must outlive it.
    explicit SplashWindow(Clock& clock);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void appear(Clock& clock);

    std::unique_ptr<Timer> m_timer;
};
