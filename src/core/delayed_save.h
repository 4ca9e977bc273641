#pragma once

#include "core/clock.h"

#include <chrono>
#include <functional>
#include <utility>

/// So long after the first key that is not on disk a window writes what is in its boxes.
inline constexpr std::chrono::seconds SaveDelay{2};

/// Writes what is typed a little later, so that not every key is a write. Who goes on typing does
/// not put it off.
class DelayedSave {
public:
    /// `timer`: a number on the clock that is this one's alone.
    DelayedSave(Clock& clock, int timer, std::function<void()> save)
        : m_clock(clock), m_timer(timer), m_save(std::move(save)) {}
    ~DelayedSave() { stop(); }
    DelayedSave(const DelayedSave&) = delete;
    DelayedSave& operator=(const DelayedSave&) = delete;

    /// Something has been typed.
    void soon() {
        if (!std::exchange(m_isDue, true))
            m_clock.startTimer(m_timer, SaveDelay, [this] {
                m_isDue = false;
                m_save();
            });
    }
    /// It has been written by another way, or is given up.
    void stop() {
        if (std::exchange(m_isDue, false))
            m_clock.stopTimer(m_timer);
    }

private:
    Clock& m_clock;
    int m_timer;
    std::function<void()> m_save;
    bool m_isDue = false;
};
