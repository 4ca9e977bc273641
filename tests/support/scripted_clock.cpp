#include "support/scripted_clock.h"

#include <algorithm>
#include <utility>

class ScriptedClock::ScriptedTimer : public Timer {
public:
    ScriptedTimer(ScriptedClock& clock, int number) : m_clock(clock), m_number(number) {}
    ~ScriptedTimer() override { m_clock.m_timers.erase(m_number); }
    ScriptedTimer(const ScriptedTimer&) = delete;
    ScriptedTimer& operator=(const ScriptedTimer&) = delete;

private:
    ScriptedClock& m_clock;
    int m_number;
};

std::unique_ptr<Timer> ScriptedClock::after(std::chrono::milliseconds delay,
                                            std::function<void()> action) {
    m_timers[++m_made] = {m_now.addMSecs(delay.count()), std::move(action)};
    return std::make_unique<ScriptedTimer>(*this, m_made);
}

void ScriptedClock::advance(std::chrono::milliseconds time) {
    const QDateTime end = m_now.addMSecs(time.count());
    while (!m_timers.empty()) {
        const auto next =
            std::min_element(m_timers.begin(), m_timers.end(), [](const auto& a, const auto& b) {
                return a.second.at < b.second.at;
            });
        if (next->second.at > end)
            break;
        m_now = std::max(m_now, next->second.at);
        const std::function<void()> action = std::move(next->second.action);
        m_timers.erase(next);
        action();
    }
    m_now = end;
}
