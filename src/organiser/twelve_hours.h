#pragma once

#include <QTime>

/// A time as a clock of twelve hours shows it: midnight is 12 AM, noon 12 PM.
class TwelveHours {
public:
    enum Part { Hour, Minute, Half };

    TwelveHours() = default;
    explicit TwelveHours(QTime time);

    QTime time() const; ///< to the minute
    /// "09", "05", "AM"
    QString text(Part part) const;
    /// Goes a step up (1) or down (-1): from 12 to 1, from 59 to 0, and the halves take turns.
    /// Nothing else follows.
    void step(Part part, int direction);
    /// Sets the hour, 1 to 12, or the minute. What is neither is refused.
    bool set(Part part, int number);
    void setAfternoon(bool isAfternoon) { m_isAfternoon = isAfternoon; }

private:
    int m_hour = 12;
    int m_minute = 0;
    bool m_isAfternoon = false;
};
