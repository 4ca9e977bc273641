#pragma once

#include "store/engine/value.h"

#include <QString>
#include <QStringView>

#include <concepts>
#include <optional>
#include <type_traits>

/// What a setting is: where it stands, its type, how that is stored, and its default. A subsystem
/// declares those it owns in a header of its own, each once; `Settings` reads and writes them.
///
///     inline constexpr Setting<bool> SortPanel{Register, u"SortPanel", false};
///
///     if (settings.get(setting::SortPanel)) ...
///     settings.set(setting::SortPanel, true);
namespace setting {

/// The key above all others, with the separator that joins it to a name.
inline constexpr QStringView Root = u"Software\\Q.R.L.\\ORVA\\";

/// The path of a key: `keyOf(u"Register\\Key")`. What begins with Root is a path as it is.
QString keyOf(QStringView key);

/// The forms in which a value is stored. `written` answers a number or a text, or Null where
/// nothing is to be stored. `read` gets what is stored, never Null; it answers nothing where that
/// counts as absent.

/// A number. That of a text is what it begins with, 0 if no number; what is too large is the limit.
struct NumberForm {
    static dao::Value written(qint32 number) { return number; }
    static std::optional<qint32> read(const dao::Value& stored);
};

/// A number written as text.
struct NumberTextForm {
    static dao::Value written(qint32 number) { return QString::number(number); }
    static std::optional<qint32> read(const dao::Value& stored) { return NumberForm::read(stored); }
};

/// A text. All of them are read without their last character, the stored null, and so a number
/// that stands where a text should loses its last digit.
struct TextForm {
    static dao::Value written(const QString& text) { return text; }
    static std::optional<QString> read(const dao::Value& stored);
};

/// A truth value as the number 1 or 0. Every other number is not set.
struct FlagForm {
    static dao::Value written(bool isSet) { return isSet ? 1 : 0; }
    static std::optional<bool> read(const dao::Value& stored);
};

/// A truth value as the text "True" or "False". Every other text is false.
struct TruthTextForm {
    static dao::Value written(bool isTrue);
    static std::optional<bool> read(const dao::Value& stored);
};

/// A truth value that is set where anything is stored, whatever it is.
struct ExistenceForm {
    static dao::Value written(bool exists) { return exists ? dao::Value(1) : dao::Value(); }
    static std::optional<bool> read(const dao::Value&) { return true; }
};

/// A value of an enumeration as its number. What lies outside counts as absent.
template<auto First, decltype(First) Last>
struct ChoiceForm {
    using Choice = decltype(First);
    static dao::Value written(Choice choice) { return static_cast<qint32>(choice); }
    static std::optional<Choice> read(const dao::Value& stored) {
        const qint32 number = NumberForm::read(stored).value();
        const bool isChoice =
            number >= static_cast<qint32>(First) && number <= static_cast<qint32>(Last);
        return isChoice ? std::optional(static_cast<Choice>(number)) : std::nullopt;
    }
};

template<class T>
struct UsualFormOf;
template<>
struct UsualFormOf<bool> {
    using Form = FlagForm;
};
template<>
struct UsualFormOf<qint32> {
    using Form = NumberForm;
};
template<>
struct UsualFormOf<QString> {
    using Form = TextForm;
};

} // namespace setting

/// One whose key or name is known at run time only is made where it is needed: it refers to the
/// texts of both and must not outlive them.
template<class T, class Form = typename setting::UsualFormOf<T>::Form>
struct Setting {
    using Absent = std::conditional_t<std::same_as<T, QString>, QStringView, T>;

    QStringView key; ///< Root, or a name below it
    QStringView name;
    Absent absent{}; ///< the default

    T absentValue() const {
        if constexpr (std::same_as<T, QString>)
            return absent.toString();
        else
            return absent;
    }
};
