#include "core/dates.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int DaysPerWeek = 7;
constexpr int LastYearOfThisCentury = 79; // of two digits: 79 is 2079, 80 is 1980

qint64 floorDivide(qint64 number, qint64 divisor) {
    const qint64 quotient = number / divisor;
    return number % divisor < 0 ? quotient - 1 : quotient;
}

/// Weeks from Sunday, counted from a fixed one.
qint64 weekIndex(QDate date) {
    constexpr qint64 shift = 1; // Julian day 0 is a Monday
    return floorDivide(date.toJulianDay() + shift, DaysPerWeek);
}

int number(QStringView text, bool& ok) {
    bool thisOk = false;
    const int result = text.toInt(&thisOk);
    ok = ok && thisOk;
    return result;
}

} // namespace

int weekdayOf(QDate date) {
    return date.dayOfWeek() % DaysPerWeek + 1;
}

bool isSchoolWeekday(QDate date) {
    const int weekday = weekdayOf(date);
    return weekday != Sunday && weekday != Saturday;
}

int weekDifference(QDate from, QDate to) {
    return static_cast<int>(weekIndex(to) - weekIndex(from));
}

QDate dateFromParts(int year, int month, int day) {
    if (year >= 0 && year < 100)
        year += year <= LastYearOfThisCentury ? 2000 : 1900;
    const qint64 months = qint64(year) * MonthsPerYear + month - 1;
    const qint64 rolledYear = floorDivide(months, MonthsPerYear);
    if (rolledYear < 1 || rolledYear > 9999)
        return {};
    const int rolledMonth = static_cast<int>(months - rolledYear * MonthsPerYear) + 1;
    return QDate(static_cast<int>(rolledYear), rolledMonth, 1).addDays(qint64(day) - 1);
}

QString sheetDateText(QDate date) {
    return u"%1-%2-%3"_s.arg(date.year() % 100, 2, 10, QLatin1Char('0'))
        .arg(date.month(), 2, 10, QLatin1Char('0'))
        .arg(date.day(), 2, 10, QLatin1Char('0'));
}

QDate sheetDate(QStringView text) {
    bool ok = true;
    const int year = number(text.left(2), ok);
    const int month = number(text.mid(3, 2), ok);
    const int day = number(text.right(2), ok);
    return ok ? dateFromParts(year, month, day) : QDate();
}

QString DayName(int weekday) {
    static const QString names[] = {u"Sunday"_s,   u"Monday"_s, u"Tuesday"_s, u"Wednesday"_s,
                                    u"Thursday"_s, u"Friday"_s, u"Saturday"_s};
    return weekday >= Sunday && weekday <= Saturday ? names[weekday - 1] : QString();
}

QString MonthName(int month, const QLocale& locale) {
    return locale.standaloneMonthName(month);
}
