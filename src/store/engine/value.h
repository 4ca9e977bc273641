#pragma once

#include <QByteArray>
#include <QString>

#include <concepts>
#include <utility>
#include <variant>

namespace dao {

/// What a field of a record holds: Null, a whole number, a number with decimals, a text or bytes.
/// Null and the empty text are two values.
class Value {
public:
    Value() = default; ///< Null
    template<std::integral Number>
    Value(Number number) : m_data(static_cast<qint64>(number)) {}
    Value(bool) = delete; ///< A truth value is a number of the caller's choice: -1, 1 or 0.
    Value(double number) : m_data(number) {}
    Value(QString text) : m_data(std::move(text)) {}
    Value(QByteArray bytes) : m_data(std::move(bytes)) {}
    Value(const char*) = delete;

    bool isNull() const { return std::holds_alternative<std::monostate>(m_data); }
    bool isInteger() const { return std::holds_alternative<qint64>(m_data); }
    bool isReal() const { return std::holds_alternative<double>(m_data); }
    bool isText() const { return std::holds_alternative<QString>(m_data); }
    bool isBinary() const { return std::holds_alternative<QByteArray>(m_data); }

    /// The value as a whole number: a decimal is rounded half to even, a text is read as far as it
    /// is a number, Null and bytes give 0.
    qint64 toInteger() const;
    /// The value as a number; as toInteger for what is no number.
    double toDouble() const;
    /// The value as text: a number as the shortest decimal that gives its 15 digits, Null and bytes
    /// as the empty text.
    QString toText() const;
    /// The bytes; empty for everything else.
    QByteArray toBinary() const;

    /// Exact equality of kind and content: Null equals Null, 1 differs from "1" and from 1.0.
    bool operator==(const Value& other) const = default;

private:
    std::variant<std::monostate, qint64, double, QString, QByteArray> m_data;
};

/// A Single as it was typed: the number of the shortest decimal that gives it, 0.1 for the Single
/// next to 0.1. It is what a field of that type holds, shows and is compared by.
double singleAsTyped(double number);

/// A number as the engine writes it: at most 15 significant digits, no trailing zeros.
QString numberText(double number);

} // namespace dao
