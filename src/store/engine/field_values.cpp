#include "store/engine/field_values.h"

#include "store/engine/error.h"

#include <cmath>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

EngineError conversionError(const Field& field) {
    return {ConversionError,
            u"The value can't be converted to the type of '%1'."_s.arg(field.Name)};
}

/// The number that a value is; a text has to be one as a whole.
double asNumber(const Field& field, const Value& value) {
    if (value.isBinary())
        throw conversionError(field);
    if (!value.isText())
        return value.toDouble();
    bool isNumber = false;
    const double number = value.toText().trimmed().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number)) // "inf" and "nan" are words
        throw conversionError(field);
    return number;
}

Value fittedInteger(const Field& field, const Value& value, qint64 least, qint64 most) {
    if (value.isInteger()) {
        if (value.toInteger() < least || value.toInteger() > most)
            throw conversionError(field);
        return value;
    }
    const double number = asNumber(field, value);
    if (!(number >= static_cast<double>(least) - 0.5 && number <= static_cast<double>(most) + 0.5))
        throw conversionError(field);
    const qint64 rounded = Value(number).toInteger();
    if (rounded < least || rounded > most)
        throw conversionError(field);
    return rounded;
}

Value fittedSingle(const Field& field, const Value& value) {
    const double number = asNumber(field, value);
    if (std::abs(number) > std::numeric_limits<float>::max())
        throw conversionError(field);
    return singleAsTyped(number);
}

Value fittedText(const Field& field, const Value& value) {
    if (value.isBinary())
        throw conversionError(field);
    QString text = value.toText();
    if (field.Type == DataType::Text && text.size() > field.Size)
        throw EngineError(TextTooLong,
                          u"The text is too long for the field '%1' (at most %2)."_s.arg(field.Name)
                              .arg(field.Size));
    const bool mayBeEmpty =
        field.AllowZeroLength || (field.Type != DataType::Text && field.Type != DataType::Memo);
    if (text.isEmpty() && !mayBeEmpty)
        throw EngineError(ZeroLengthNotAllowed,
                          u"The field '%1' can't be an empty text."_s.arg(field.Name));
    return Value(text.isNull() ? u""_s : std::move(text));
}

} // namespace

Value fittedValue(const Field& field, const Value& value) {
    if (value.isNull())
        return value;
    switch (field.Type) {
    case DataType::Boolean:
        return asNumber(field, value) != 0 ? -1 : 0;
    case DataType::Byte:
        return fittedInteger(field, value, 0, 255);
    case DataType::Integer:
        return fittedInteger(field, value, std::numeric_limits<qint16>::min(),
                             std::numeric_limits<qint16>::max());
    case DataType::Long:
        return fittedInteger(field, value, std::numeric_limits<qint32>::min(),
                             std::numeric_limits<qint32>::max());
    case DataType::Single:
        return fittedSingle(field, value);
    case DataType::Double:
    case DataType::Currency:
        return asNumber(field, value);
    case DataType::Date:
    case DataType::Text:
    case DataType::Memo:
    case DataType::Guid:
        return fittedText(field, value);
    case DataType::Binary:
    case DataType::LongBinary:
        if (!value.isBinary())
            throw conversionError(field);
        return value;
    }
    return value;
}

} // namespace dao
