#include "core/system_clock.h"

#include <utility>

void SystemClock::DeleteLater::operator()(QTimer* timer) const {
    timer->stop();
    timer->deleteLater();
}

void SystemClock::startTimer(int id, std::chrono::milliseconds delay,
                             std::function<void()> action) {
    std::unique_ptr<QTimer, DeleteLater> timer(new QTimer);
    timer->setSingleShot(true);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(action));
    timer->start(delay);
    m_timers[id] = std::move(timer);
}
