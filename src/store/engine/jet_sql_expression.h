#pragma once

#include "store/engine/jet_sql.h"
#include "store/engine/jet_sql_parser.h"

/// Expressions of Jet SQL in SQLite's language, their types worked out beforehand: SQLite would
/// compare a number with a text without a word.
namespace dao::sql {

enum class Kind {
    Null, ///< nothing but Null can come of it
    Number,
    Truth, ///< of SQLite's kind (1, 0 or NULL) until it leaves as a number: -1, 0 or NULL
    Text,
    Binary,
};

Kind kindOf(DataType type); ///< of a field

struct Translated {
    QString sql; ///< can stand as an operand as it is
    Kind kind = Kind::Null;
    DataType type = DataType::Text; ///< of a field its own, else the widest of the kind
    bool isField = false;
};

/// Translates an expression whose value is shown: a truth value as -1 or 0. Raises 3061 for an
/// unknown field, 3464 for kinds that do not go together, 3075 for a LIKE pattern with an open
/// bracket and for what SQLite could not hold on its stack.
Translated translateValue(const Expression& expression, const ResolveField& resolve);

/// Translates a condition: 1, 0 or NULL in SQLite. Raises as above.
QString translateTruth(const Expression& expression, const ResolveField& resolve);

/// Translates a value into a term of SQLite's ORDER BY.
QString orderTerm(const Translated& value, bool descending);

/// A text as a literal of SQLite's language.
QString quoteText(const QString& text);

} // namespace dao::sql
