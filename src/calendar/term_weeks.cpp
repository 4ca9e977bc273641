#include "calendar/term_weeks.h"

#include "store/table_names.h"

#include <QSet>

using namespace Qt::StringLiterals;

QList<QDate> teachingDays(const QList<QDate>& boundaries) {
    QList<QDate> days;
    for (qsizetype i = 0; i + 1 < boundaries.size(); i += 2) {
        if (!boundaries[i].isValid() || !boundaries[i + 1].isValid())
            continue;
        for (QDate date = boundaries[i]; date <= boundaries[i + 1]; date = date.addDays(1))
            if (isSchoolWeekday(date))
                days.append(date);
    }
    return days;
}

TermDays GetTermDays(const dao::Database& database) {
    TermDays terms;
    dao::Recordset rows = database.OpenRecordset(TermDatesTable, dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext()) {
        const auto part = [&rows](QStringView field) {
            return static_cast<int>(rows.Collect(field).toInteger());
        };
        terms.boundaries.append(dateFromParts(part(u"Year"), part(u"Month"), part(u"Day")));
    }
    rows.Close();
    terms.days = QList<QDate>{QDate()} + teachingDays(terms.boundaries);
    return terms;
}

short GetWeekNumber(const TermDays& terms, QDate date) {
    const QList<QDate>& days = terms.days;
    short week = 1;
    for (qsizetype i = 1; i < days.size(); ++i) {
        if (i != 1 && weekDifference(days[i - 1], days[i]) != 0)
            ++week;
        if (days[i] == date)
            return week;
        if (date < days[i]) {
            if (weekDifference(date, days[i]) == 0)
                return week;
            if (i != 1 && weekDifference(date, days[i - 1]) == 0)
                return static_cast<short>(week - 1);
        }
    }
    return -1;
}

short GetWeekNumber(const dao::Database& database, QDate date) {
    return GetWeekNumber(GetTermDays(database), date);
}

QList<short> weekNumbers(const QList<QDate>& rows) {
    QList<short> numbers;
    short week = 0;
    int lastSeen = 0;
    for (const QDate row : rows) {
        const int fromBase = weekDifference(rows.first(), row) + 1;
        if (fromBase != lastSeen) {
            ++week;
            lastSeen = fromBase;
        }
        numbers.append(week);
    }
    return numbers;
}

QChar otherLetter(QChar letter) {
    return letter == u'A' ? u'B' : u'A';
}

QList<QChar> weekLetters(const QList<QDate>& days, QChar startLetter) {
    QList<QChar> letters;
    for (qsizetype i = 0; i < days.size(); ++i) {
        if (i == 0)
            letters.append(startLetter);
        else if (weekDifference(days[i - 1], days[i]) == 0)
            letters.append(letters[i - 1]);
        else
            letters.append(otherLetter(letters[i - 1]));
    }
    return letters;
}

QChar weekLetter(int week, QChar startLetter) {
    const bool odd = (week + 2) % 2 == 1;
    return odd ? startLetter : otherLetter(startLetter);
}

QChar startLetter(const QString& startWeek) {
    return startWeek == QLatin1String("B") ? u'B' : u'A';
}

std::optional<QChar> timetableLetter(int twoWeekly, const QString& startWeek, int week) {
    if (twoWeekly != 1)
        return QChar(u'A');
    if (startWeek != QLatin1String("A") && startWeek != QLatin1String("B"))
        return std::nullopt;
    return weekLetter(week, startWeek.front());
}

QString timetableField(int weekday, QChar letter) {
    if (weekday < Monday || weekday > Friday)
        return {};
    QString field = DayName(weekday).left(3);
    if (letter == u'B')
        field += letter;
    return field;
}

QString timetableField(QDate date, QChar letter) {
    return timetableField(weekdayOf(date), letter);
}

QString IsWeek2(const dao::Database& database, QDate today) {
    dao::Recordset sheets = database.OpenRecordset(u"SELECT * FROM Planning ORDER BY PlanDate"_s,
                                                   dao::RecordsetType::Snapshot);
    if (!sheets.HasField(u"ABWeek"))
        return {};
    // To look day by day for the next sheet comes to the same as to take the first whose text is
    // not below today's: the texts are in the order of the dates.
    const QString todayText = sheetDateText(today);
    QString letter;
    for (; !sheets.EOF_(); sheets.MoveNext()) {
        letter = sheets.Collect(u"ABWeek").toText();
        if (sheets.Collect(u"PlanDate").toText() >= todayText)
            break;
    }
    return letter;
}

QList<QDate> FillHolsArray(const TermDays& terms) {
    QList<QDate> holidays;
    if (terms.days.size() < 2)
        return holidays;
    constexpr int lastDayOfMonth = 30;
    const QDate firstDay = terms.days[1];
    const QDate lastDay = terms.days.last();
    const QDate first = dateFromParts(firstDay.year(), firstDay.month(), 1);
    const QDate last = dateFromParts(lastDay.year(), lastDay.month(), lastDayOfMonth);
    const QSet<QDate> teaching(terms.days.cbegin() + 1, terms.days.cend());
    for (QDate date = first; date <= last; date = date.addDays(1))
        if (isSchoolWeekday(date) && !teaching.contains(date))
            holidays.append(date);
    return holidays;
}

QList<QDate> FillHolsArray(const dao::Database& database) {
    return FillHolsArray(GetTermDays(database));
}
