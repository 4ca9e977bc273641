#include "organiser/reminder_watch.h"

#include "core/shell.h"
#include "organiser/reminder_engine.h"

#include <QPointer>

#include <utility>

ReminderWatch::ReminderWatch(ReminderEngine& engine, Clock& clock, Shell& shell)
    : m_engine(engine), m_clock(clock), m_shell(shell) {
    connect(&engine, &ReminderEngine::waiting, this, &ReminderWatch::begin);
}

void ReminderWatch::begin() {
    if (!m_minute)
        m_minute = m_clock.after(std::chrono::minutes(1), [this] { look(); });
}

void ReminderWatch::look() {
    m_minute.reset();
    if (!std::exchange(m_hearsWaking, true))
        m_shell.WhenWoken([engine = QPointer(&m_engine)] {
            if (engine)
                engine->lookAtClock();
        });
    m_engine.lookAtClock();
}
