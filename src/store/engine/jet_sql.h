#pragma once

#include "store/engine/structure.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>

/// Jet SQL in, SQLite's language out. Only Jet's language passes: see docs/file-format.md. Names
/// are resolved here, so that what reaches SQLite holds only quoted names and literals.
namespace dao::sql {

/// Answers the structure of a table by its name, case-blind; null where there is none.
using FindTable = std::function<std::shared_ptr<const TableStructure>(QStringView name)>;

/// A table of the FROM clause.
struct Source {
    std::shared_ptr<const TableStructure> table;
    QString alias;    ///< the name by which Jet SQL speaks of it: the alias, else the table's name
    QString sqlAlias; ///< the name by which the SQLite statements speak of it: t0, t1, ...
};

/// A column of the answer.
struct Column {
    QString name; ///< the field's, or the alias; `Table.Field` where two sources give the same name
    Field field;  ///< the field behind it; of an expression, its type with an empty Name
    int source = -1; ///< index into `Query::sources`; -1 for an expression, which can't be edited
    QString sql;     ///< the column as an SQLite expression over the sources' sqlAlias names
};

/// A SELECT, taken apart for a recordset. The pieces are SQLite's language.
struct Query {
    QList<Source> sources;
    QList<Column> columns;
    QString from;    ///< `"Planning" AS t0 INNER JOIN ... ON ...`
    QString where;   ///< a condition, empty for none
    QString orderBy; ///< `expression ASC, ...` without the closing order by row, empty for none
};

/// A plain walk over all records and fields of one table.
Query tableQuery(const std::shared_ptr<const TableStructure>& table);

/// Translates a SELECT. A text that is not exactly one SELECT of Jet's language raises 3075, an
/// unknown table 3078, an unknown field 3061, a field that two tables have 3079, a text compared
/// with a number 3464.
Query translateSelect(const QString& jetSql, const FindTable& findTable);

/// How a criteria text names a field: answers its SQLite expression and type. `qualifier` is the
/// text before the dot, empty for none. Answers false where there is no such field.
struct FieldSql {
    QString sql;
    DataType type = DataType::Text;
};
using ResolveField =
    std::function<bool(const QString& qualifier, const QString& name, FieldSql& out)>;

/// Translates a condition, as FindFirst takes it: what may stand behind WHERE. Errors as above.
QString translateCondition(const QString& jetCondition, const ResolveField& resolve);

/// Translates what may stand behind ORDER BY (for `Recordset.Sort`). Errors as above.
QString translateOrder(const QString& jetOrder, const ResolveField& resolve);

/// Whether a text is meant as a statement and not as a table's name: its first word is SELECT or
/// another verb of SQL, and more follows.
bool looksLikeStatement(const QString& text);

/// The row number of a source, by the one of SQLite's three names for it that no field takes.
QString rowNumber(const Source& source);

/// The collation and the functions that the translated texts call for. A connection registers them
/// under these names (sqlite_connection.cpp); nothing of them is stored in a file.
inline constexpr const char* TextCollation = "JETTEXT";
inline constexpr const char* LikeFunction = "jet_like";     ///< (pattern, text): 1, 0 or NULL
inline constexpr const char* SingleFunction = "jet_single"; ///< (number): a Single as typed
inline constexpr const char* TextFunction = "jet_text"; ///< (number): its text; a text as itself

} // namespace dao::sql
