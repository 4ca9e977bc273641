#include "classes/register_columns.h"

#include "core/dates.h"
#include "store/engine/table_def.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype DateLength = 8;
constexpr qsizetype NumberPosition = DateLength + 1;

} // namespace

QString registerDateText(QDate date) {
    return u"%1/%2/%3"_s.arg(date.day(), 2, 10, QLatin1Char('0'))
        .arg(date.month(), 2, 10, QLatin1Char('0'))
        .arg(date.year() % 100, 2, 10, QLatin1Char('0'));
}

QString registerColumnName(const RegisterColumn& column) {
    return registerDateText(column.date) + u' ' + QString::number(column.number);
}

std::optional<QDate> readRegisterDate(QStringView text) {
    bool isDay = false;
    bool isMonth = false;
    bool isYear = false;
    const int day = text.left(2).toInt(&isDay);
    const int month = text.mid(3, 2).toInt(&isMonth);
    const int year = text.mid(6, 2).toInt(&isYear);
    if (text.size() != DateLength || !isDay || !isMonth || !isYear)
        return std::nullopt;
    return dateFromParts(year, month, day);
}

std::optional<RegisterColumn> readRegisterColumn(QStringView fieldName) {
    if (fieldName.size() <= NumberPosition || fieldName.at(DateLength) != u' ')
        return std::nullopt;
    bool isNumber = false;
    const int number = fieldName.mid(NumberPosition).toInt(&isNumber);
    const std::optional<QDate> date = readRegisterDate(fieldName.left(DateLength));
    if (!date || !isNumber)
        return std::nullopt;
    return RegisterColumn{*date, number};
}

dao::Field registerField(const RegisterColumn& column) {
    dao::Field field =
        dao::TableDef::CreateField(registerColumnName(column), dao::DataType::Text, 1);
    field.AllowZeroLength = true;
    return field;
}
