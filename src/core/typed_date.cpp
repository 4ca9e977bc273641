#include "core/typed_date.h"

#include "core/dates.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The runs of digits in a text, in whatever script; nothing when one is too long for a year.
std::optional<QList<int>> numbersIn(const QString& text) {
    constexpr int beyondYears = 10000;
    QList<int> numbers;
    bool inNumber = false;
    for (const uint character : text.toUcs4()) {
        const int digit = QChar::digitValue(character);
        if (digit >= 0) {
            if (!inNumber)
                numbers += 0;
            numbers.last() = numbers.last() * 10 + digit;
            if (numbers.last() >= beyondYears)
                return std::nullopt;
        }
        inNumber = digit >= 0;
    }
    return numbers;
}

/// Where day, month and year stand in a format: "dmy", "mdy", "ymd".
QString orderOf(const QString& format) {
    QString order;
    for (const QChar character : format) {
        const QChar part = character.toLower();
        if (u"dmy"_s.contains(part) && !order.contains(part))
            order += part;
    }
    return order;
}

} // namespace

QString typedDateFormat(const QLocale& locale) {
    QString format = locale.dateFormat(QLocale::ShortFormat);
    if (!format.contains(u"yyyy"_s))
        format.replace(u"yy"_s, u"yyyy"_s);
    return format;
}

QString typedDateText(QDate date, const QLocale& locale) {
    return locale.toString(date, typedDateFormat(locale));
}

QDate typedDate(const QString& text, const QLocale& locale) {
    const QString format = typedDateFormat(locale);
    const QString order = orderOf(format);
    const std::optional<QList<int>> numbers = numbersIn(text);
    if (!numbers || numbers->size() != order.size())
        return locale.toDate(text.trimmed(), format);
    const auto part = [&](QChar name) { return numbers->at(order.indexOf(name)); };
    const int year = dateFromParts(part(u'y'), 1, 1).year();
    return QDate(year, part(u'm'), part(u'd'));
}
