#pragma once

#include "core/clock.h"

#include <QTimer>

#include <map>
#include <memory>

/// The time of the computer. Its timers end with it.
class SystemClock : public Clock {
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
    void startTimer(int id, std::chrono::milliseconds delay, std::function<void()> action) override;
    void stopTimer(int id) override { m_timers.erase(id); }

private:
    /// Timers are deleted later, since one may be stopped by its own action.
    struct DeleteLater {
        void operator()(QTimer* timer) const;
    };
    std::map<int, std::unique_ptr<QTimer, DeleteLater>> m_timers;
};
