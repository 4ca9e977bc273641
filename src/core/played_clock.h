#pragma once

#include "core/clock.h"

#include <map>

/// A clock that stands until it is moved; timers run as it passes them. It outlives them.
class PlayedClock : public Clock {
public:
    explicit PlayedClock(const QDateTime& now) : m_now(now) {}

    QDateTime now() const override { return m_now; }
    [[nodiscard]] std::unique_ptr<Timer> after(std::chrono::milliseconds delay,
                                               std::function<void()> action) override;

    /// Lets time pass and runs what falls due, in order, each at its own time.
    void advance(std::chrono::milliseconds time);
    /// How many timers run.
    size_t running() const { return m_timers.size(); }

private:
    struct Due {
        QDateTime at;
        std::function<void()> action;
    };
    class PlayedTimer;

    QDateTime m_now;
    int m_made = 0;
    std::map<int, Due> m_timers; ///< in the order of their making
};
