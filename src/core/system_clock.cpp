#include "core/system_clock.h"

#include <QTimer>

#include <utility>

namespace {

class EventLoopTimer : public Timer {
public:
    EventLoopTimer(std::chrono::milliseconds delay, std::function<void()> action) {
        m_timer->setSingleShot(true);
        QObject::connect(m_timer, &QTimer::timeout, m_timer, std::move(action));
        m_timer->start(delay);
    }
    /// Later, since its own action may be what ends it.
    ~EventLoopTimer() override {
        m_timer->stop();
        m_timer->deleteLater();
    }
    EventLoopTimer(const EventLoopTimer&) = delete;
    EventLoopTimer& operator=(const EventLoopTimer&) = delete;

private:
    QTimer* m_timer = new QTimer;
};

} // namespace

std::unique_ptr<Timer> SystemClock::after(std::chrono::milliseconds delay,
                                          std::function<void()> action) {
    return std::make_unique<EventLoopTimer>(delay, std::move(action));
}
