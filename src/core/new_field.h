#pragma once

#include "store/engine/structure.h"

#include <QDate>
#include <QList>
#include <QString>

class Prompts;

namespace dao {
class EngineError;
}

/// What a person is asked about a new field of a table: the selector's last page without its form.

struct NewFieldType {
    QString caption;
    dao::DataType type;
};
/// The types that can be chosen, in order.
const QList<NewFieldType>& newFieldTypes();

/// A Text of 50 characters is what stands there first.
inline constexpr dao::DataType UsualNewFieldType = dao::DataType::Text;
inline constexpr int UsualNewFieldSize = 50;
inline constexpr int NewFieldNameLength = 64; ///< characters
inline constexpr int NewFieldSizeLength = 3;  ///< digits

struct NewField {
    QString name;
    dao::DataType type = UsualNewFieldType;
    int size = UsualNewFieldSize; ///< characters of a Text; says nothing of other types
    QDate date = {};              ///< of the work, where the field holds grades; may be invalid

    bool operator==(const NewField&) const = default;
};

/// Whether a key can stand in the name. If not it is told. What is pasted is the engine's to
/// refuse.
bool checkNewFieldKey(QChar key, Prompts& prompts);
/// Whether the field can be made: it has a name and, a Text, a size from 1 to 255. If not it is
/// told.
bool checkNewField(const NewField& field, Prompts& prompts);

/// The box of a field that the engine did not make because its name is taken (3191) or can't be one
/// (3125): `things` must have different titles. False, with nothing shown, for every other failure.
bool showNameRefused(Prompts& prompts, const dao::EngineError& error, const QString& things,
                     const QString& takenTitle, const QString& invalidTitle);
