#pragma once

#include "core/clock.h"

#include <QWidget>

/// The program's name while it starts. Never in the way: it takes neither the focus nor the input
/// of other windows, goes at a click, by its own timer, or when whoever made it deletes it.
class SplashWindow : public QWidget {
    Q_OBJECT

public:
    /// Shows itself and starts the timer. `clock` must outlive it.
    explicit SplashWindow(Clock& clock);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    std::unique_ptr<Timer> m_timer;
};
