#include "support/scripted_clock.h"

#include <algorithm>
#include <utility>

void ScriptedClock::startTimer(int id, std::chrono::milliseconds delay,
                               std::function<void()> action) {
    m_timers[id] = {m_now.addMSecs(delay.count()), std::move(action)};
}

void ScriptedClock::advance(std::chrono::milliseconds time) {
    const QDateTime end = m_now.addMSecs(time.count());
    while (!m_timers.empty()) {
        const auto next =
            std::min_element(m_timers.begin(), m_timers.end(), [](const auto& a, const auto& b) {
                return a.second.due < b.second.due;
            });
        if (next->second.due > end)
            break;
        m_now = std::max(m_now, next->second.due);
        const std::function<void()> action = std::move(next->second.action);
        m_timers.erase(next);
        action();
    }
    m_now = end;
}
