#include "store/engine/value.h"

#include <QRegularExpression>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace dao {
namespace {

/// The number at the start of a text, blanks before it ignored; 0 where there is none.
double leadingNumber(const QString& text) {
    static const QRegularExpression number(
        QStringLiteral(R"(^\s*([+-]?(?:\d+\.?\d*|\.\d+)(?:[eE][+-]?\d+)?))"));
    const QRegularExpressionMatch match = number.match(text);
    return match.hasMatch() ? match.captured(1).toDouble() : 0.0;
}

qint64 roundedToInteger(double number) {
    constexpr double limit = 9.2e18;
    if (!(std::abs(number) < limit)) // NaN as well
        return number > 0 ? std::numeric_limits<qint64>::max()
                          : (number < 0 ? std::numeric_limits<qint64>::min() : 0);
    return static_cast<qint64>(std::nearbyint(number));
}

} // namespace

qint64 Value::toInteger() const {
    if (const auto* number = std::get_if<qint64>(&m_data))
        return *number;
    return roundedToInteger(toDouble());
}

double Value::toDouble() const {
    if (const auto* number = std::get_if<qint64>(&m_data))
        return static_cast<double>(*number);
    if (const auto* number = std::get_if<double>(&m_data))
        return *number;
    if (const auto* text = std::get_if<QString>(&m_data))
        return leadingNumber(*text);
    return 0.0;
}

QString Value::toText() const {
    if (const auto* text = std::get_if<QString>(&m_data))
        return *text;
    if (const auto* number = std::get_if<qint64>(&m_data))
        return QString::number(*number);
    if (const auto* number = std::get_if<double>(&m_data))
        return numberText(*number);
    return {};
}

QByteArray Value::toBinary() const {
    const auto* bytes = std::get_if<QByteArray>(&m_data);
    return bytes ? *bytes : QByteArray();
}

double singleAsTyped(double number) {
    if (std::abs(number) > std::numeric_limits<float>::max())
        return number; // no Single: another program wrote it
    char text[32];
    double typed = number;
    const char* end =
        std::to_chars(std::begin(text), std::end(text), static_cast<float>(number)).ptr;
    std::from_chars(text, end, typed);
    return typed;
}

QString numberText(double number) {
    constexpr int digits = 15;
    constexpr double least = 1e-4; // from here to the next no power of ten is written
    constexpr double most = 1e6;
    if (std::abs(number) >= least && std::abs(number) < most) {
        // The shortest text that leads back is the same where it has no more digits, and several
        // times as quick, which whole sheets of numbers are worth.
        std::array<char, 32> text;
        const auto end =
            std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
        if (end.ec == std::errc() && end.ptr - text.data() <= digits)
            return QString::fromLatin1(text.data(), end.ptr - text.data());
    }
    return QString::number(number, 'g', digits);
}

} // namespace dao
