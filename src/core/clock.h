#pragma once

#include <QDateTime>

#include <chrono>
#include <functional>

/// Where the rules get the time from, so that tests need not wait for it.
class Clock {
public:
    virtual ~Clock() = default;

    virtual QDateTime now() const = 0; ///< local time
    QDate today() const { return now().date(); }

    /// Calls `action` once, after `delay`, from the event loop. A timer that already has this
    /// number is replaced. The action may start the timer anew.
    virtual void startTimer(int id, std::chrono::milliseconds delay,
                            std::function<void()> action) = 0;
    /// Ends a timer; none of that number is no error.
    virtual void stopTimer(int id) = 0;
};
