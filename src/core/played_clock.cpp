#include "core/played_clock.h"

#include <algorithm>
#include <utility>

class PlayedClock::PlayedTimer : public Timer {
public:
    PlayedTimer(PlayedClock& clock, int number) : m_clock(clock), m_number(number) {}
    ~PlayedTimer() override { m_clock.m_timers.erase(m_number); }
    PlayedTimer(const PlayedTimer&) = delete;
    PlayedTimer& operator=(const PlayedTimer&) = delete;

private:
    PlayedClock& m_clock;
    int m_number;
};

std::unique_ptr<Timer> PlayedClock::after(std::chrono::milliseconds delay,
                                          std::function<void()> action) {
    m_timers[++m_made] = {m_now.addMSecs(delay.count()), std::move(action)};
    return std::make_unique<PlayedTimer>(*this, m_made);
}

void PlayedClock::advance(std::chrono::milliseconds time) {
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
