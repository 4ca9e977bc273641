#include "classes/class_code.h"

#include "store/engine/names.h"
#include "store/table_names.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

AnswerCheck codeFault(const QString& title, const QString& text) {
    return AnswerFault{u"classes"_s, title, text};
}

} // namespace

bool isClassCodeCharacter(char32_t character) {
    const bool refused = (character >= 32 && character <= 47) ||
                         (character >= 58 && character <= 64) || character == 92 ||
                         character == 96 || (character >= 123 && character <= 127);
    return !refused && QChar::isPrint(character) && !QChar::isSpace(character);
}

AnswerCheck checkClassCode(const QString& code, const QStringList& inUse) {
    const QString title = u"Classcodes"_s;
    if (code.isEmpty())
        return codeFault(title, u"A classcode must have at least one character."_s);
    const QList<uint> characters = code.toUcs4();
    if (!std::all_of(characters.begin(), characters.end(), isClassCodeCharacter))
        return codeFault(u"Invalid Character"_s,
                         u"Sorry but you can't use that character in a Classcode!"_s);
    if (code.size() > MaximumClassCode)
        return codeFault(title,
                         u"A classcode may be at most %1 characters long."_s.arg(MaximumClassCode));
    if (code != code.toUpper())
        return codeFault(title, u"A classcode must be in upper case."_s);
    const bool isInUse = std::any_of(inUse.begin(), inUse.end(), [&code](const QString& used) {
        return dao::sameName(used, code);
    });
    // The pupils' table of a class TEMP would be the spare table.
    if (isInUse || dao::sameName(classTable(code), ClassTempTable))
        return codeFault(u"New Class Setup"_s,
                         u"This Classcode is already in use! Please enter a unique code."_s);
    return std::nullopt;
}

void sortClasses(QStringList& classes) {
    std::sort(classes.begin(), classes.end(),
              [](const QString& a, const QString& b) { return a.toUcs4() < b.toUcs4(); });
}
