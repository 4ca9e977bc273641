#include "organiser/twelve_hours.h"

#include <QString>

using namespace Qt::StringLiterals;

namespace {

constexpr int HalfDay = 12; // hours
constexpr int HourMinutes = 60;

} // namespace

TwelveHours::TwelveHours(QTime time)
    : m_hour(time.hour() % HalfDay == 0 ? HalfDay : time.hour() % HalfDay)
    , m_minute(time.minute())
    , m_isAfternoon(time.hour() >= HalfDay) {}

QTime TwelveHours::time() const {
    return QTime(m_hour % HalfDay + (m_isAfternoon ? HalfDay : 0), m_minute);
}

QString TwelveHours::text(Part part) const {
    if (part == Half)
        return m_isAfternoon ? u"PM"_s : u"AM"_s;
    return u"%1"_s.arg(part == Hour ? m_hour : m_minute, 2, 10, QChar(u'0'));
}

void TwelveHours::step(Part part, int direction) {
    if (part == Hour)
        m_hour = (m_hour - 1 + direction + HalfDay) % HalfDay + 1;
    else if (part == Minute)
        m_minute = (m_minute + direction + HourMinutes) % HourMinutes;
    else
        m_isAfternoon = !m_isAfternoon;
}

bool TwelveHours::set(Part part, int number) {
    const bool fits = part == Hour ? number >= 1 && number <= HalfDay
                                   : part == Minute && number >= 0 && number < HourMinutes;
    if (fits)
        (part == Hour ? m_hour : m_minute) = number;
    return fits;
}
