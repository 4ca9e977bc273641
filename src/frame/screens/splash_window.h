#pragma once

#include <QWidget>

class Clock;

/// The program's name while it starts. Never in the way: it takes neither the focus nor the input
/// of other windows, goes at a click, by its own timer, or when whoever made it deletes it.
class SplashWindow : public QWidget {
    Q_OBJECT

public:
    /// Shows itself and starts the timer. `clock` must outlive it.
    explicit SplashWindow(Clock& clock);
    ~SplashWindow() override;

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    Clock& m_clock;
};
