#include "core/new_field.h"

#include "core/prompts.h"
#include "store/engine/error.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int SmallestText = 1;
constexpr int LargestText = 255;

} // namespace

const QList<NewFieldType>& newFieldTypes() {
    static const QList<NewFieldType> types{
        {u"Double: +/- decimals to  1.79769313486231 Exp 308 "_s, dao::DataType::Double},
        {u"Text : 1 to 255 characters          Enter Size:"_s, dao::DataType::Text},
        {u"Memo : can contain up to 1.2Gb of text data"_s, dao::DataType::Memo},
        {u"Byte : Integers from 0 to 255 "_s, dao::DataType::Byte},
        {u"Integer : Integers from  -32,768 to 32,767 "_s, dao::DataType::Integer},
        {u"Long : integers from  -2,147,483,648 to 2,147,483,647"_s, dao::DataType::Long},
        {u"Single : +/- decimals to 3.402823 Exp 38"_s, dao::DataType::Single},
    };
    return types;
}

bool checkNewFieldKey(QChar key, Prompts& prompts) {
    const auto isBetween = [code = key.unicode()](int first, int last) {
        return first <= code && code <= last;
    };
    // A blank, ":" and ";" are taken.
    if (!isBetween(33, 47) && !isBetween(60, 64) && !isBetween(92, 92) && !isBetween(96, 96) &&
        !isBetween(123, 127))
        return true;
    prompts.PlainBox(u"Sorry but you can't use that character in a Field name"_s, OkButton,
                     u"Invalid Character"_s);
    return false;
}

bool checkNewField(const NewField& field, Prompts& prompts) {
    if (field.name.isEmpty()) {
        prompts.PlainBox(u"You must enter a Name for the new Field"_s, OkButton, u"Invalid Name"_s);
        return false;
    }
    if (field.type == dao::DataType::Text &&
        (field.size < SmallestText || field.size > LargestText)) {
        prompts.PlainBox(u"The text field can only be between 1 and 255 characters in size.\n"
                         "Please adjust the current value."_s,
                         OkButton, u"Invalid Field Size"_s);
        return false;
    }
    return true;
}

bool showNameRefused(Prompts& prompts, const dao::EngineError& error, const QString& things,
                     const QString& takenTitle, const QString& invalidTitle) {
    if (error.number() == dao::FieldExists) {
        prompts.PlainBox(u"You already have a field with this name.\nEach %1 must have a different "
                         "title!"_s.arg(things),
                         OkButton | WarningIcon, takenTitle);
        return true;
    }
    if (error.number() == dao::InvalidName) {
        prompts.PlainBox(u"The name cannot start with a space, cannot include a period and must "
                         "not be greater than 64 characters."_s,
                         OkButton | WarningIcon, invalidTitle);
        return true;
    }
    return false;
}
