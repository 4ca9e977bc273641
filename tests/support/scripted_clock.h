#pragma once

#include "core/clock.h"

#include <map>

/// A clock that stands until a test moves it; timers run as it passes them.
class ScriptedClock : public Clock {
public:
    explicit ScriptedClock(const QDateTime& now) : m_now(now) {}

    QDateTime now() const override { return m_now; }
    void startTimer(int id, std::chrono::milliseconds delay, std::function<void()> action) override;
    void stopTimer(int id) override { m_timers.erase(id); }

    /// Lets time pass and runs what falls due, in order, each at its own time.
    void advance(std::chrono::milliseconds time);
    bool isRunning(int id) const { return m_timers.contains(id); }

private:
    struct Timer {
        QDateTime due;
        std::function<void()> action;
    };
    QDateTime m_now;
    std::map<int, Timer> m_timers;
};
