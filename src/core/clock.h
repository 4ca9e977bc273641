#pragma once

#include <QDateTime>

#include <chrono>
#include <functional>
#include <memory>

/// A timer that runs; it ends with the object.
class Timer {
public:
    virtual ~Timer() = default;
};

/// Where the rules get the time from, so that tests need not wait for it.
class Clock {
public:
    virtual ~Clock() = default;

    virtual QDateTime now() const = 0; ///< local time
    QDate today() const { return now().date(); }

    /// Calls `action` once, after `delay`, from the event loop, unless the answer has gone by then.
    /// The action may let go of its own timer, or put another in its place.
    [[nodiscard]] virtual std::unique_ptr<Timer> after(std::chrono::milliseconds delay,
                                                       std::function<void()> action) = 0;
};
