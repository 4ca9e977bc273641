#pragma once

#include "core/engine_failure.h"
#include "store/engine/database.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
class PupilSheet;

/// The sort and query panel of the grades. Queries are texts of Jet SQL: the one that is built is
/// shown to the teacher as it stands, and run as it stands.

/// A field to sort by or to ask for.
struct QueryField {
    QString name;
    dao::DataType type = dao::DataType::Text;
    QString table = {}; ///< in front of the name, for grades named like something of the pupils'
};
/// So many of the fields, the first, are the pupils'; the others are grades.
inline constexpr int PupilFieldCount = 3;

/// "Surname", "Firstname" and "Tutor", then the grades in their order. Raises what the engine
/// raises.
QList<QueryField> queryFields(const dao::Database& database, const QString& classCode);

struct SortKey {
    int field = -1; ///< of the list above; -1: none is selected
    bool isDescending = false;
};
/// The current query in another order; none, which is told, without any key. A condition stays.
std::optional<QString> sortedQuery(const QString& query, const QString& classCode,
                                   const QList<QueryField>& fields, const QList<SortKey>& keys,
                                   Prompts& prompts);

/// "=", "<>", ">", ">=", "<", "<=", "Like".
const QStringList& queryOperators();
/// "AND", "OR", "XOR", "EQV", "IMP".
const QStringList& logicalOperators();

/// One condition as it was filled in.
struct QueryCondition {
    std::optional<QueryField> field;
    QString comparison;
    QString value;
    QString logical; ///< joins it to the condition before; empty while none is selected
};
/// Appends a condition to the query built so far; with none built it begins with the current query,
/// without its condition and order. What is asked of a field for numbers is a number: what is none
/// at its end is dropped. Conditions chain without brackets, a text is taken as typed, and a
/// broken query is told when it is run. None, which is told, while something is missing.
std::optional<QString> Built_SQL(const QString& built, const QString& query,
                                 const QueryCondition& condition, Prompts& prompts);

/// Whether a key can be typed as the value to compare a field with. A key that is no part of a
/// number is told.
bool checkValueKey(const std::optional<QueryField>& field, QChar key, Prompts& prompts);
/// The values of a field, each once, for looking one up.
QStringList fieldValues(const PupilSheet& sheet, const QString& field);

/// The box of a query that the engine refuses.
inline constexpr FailureBox QueryFailure{
    u"Query", u"There was an error with this query:\nError: %1", OkButton | WarningIcon};
/// Tries a query. False, which is told, where it is empty, broken, or nobody fits it.
bool checkQuery(const dao::Database& database, const QString& built, Prompts& prompts);
