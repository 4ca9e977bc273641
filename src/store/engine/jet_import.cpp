#include "store/engine/jet_import.h"

#include "store/engine/catalog.h"
#include "store/engine/connection.h"
#include "store/engine/names.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

/// A relation that its tables can't keep would refuse every later change of them.
void dropRelationsWithoutKey(TableStructure& table, const JetContent& content) {
    table.relations.removeIf([&content](const Relation& relation) {
        return std::none_of(content.tables.begin(), content.tables.end(),
                            [&relation](const JetTable& other) {
                                return sameName(other.structure.name, relation.Table) &&
                                       hasKeyFor(other.structure, relation);
                            });
    });
}

void insertRows(Connection& connection, const JetTable& table) {
    QStringList parameters;
    for (qsizetype i = 0; i < table.structure.fields.size(); ++i)
        parameters += u"?"_s;
    Statement statement(connection, u"INSERT INTO %1 VALUES (%2)"_s.arg(
                                        quoteName(table.structure.name), parameters.join(u", "_s)));
    for (const QList<Value>& row : table.rows) {
        for (qsizetype i = 0; i < row.size(); ++i)
            statement.bind(static_cast<int>(i) + 1, row.at(i));
        statement.step();
        statement.reset();
    }
}

} // namespace

void fillFromJet(Connection& connection, const JetContent& content) {
    Catalog catalog(connection);
    // A file from elsewhere keeps what it holds even where it breaks its own rules.
    connection.execute(u"PRAGMA foreign_keys = OFF"_s);
    connection.execute(u"PRAGMA ignore_check_constraints = ON"_s);
    Savepoint savepoint(connection);
    for (const JetTable& table : content.tables) {
        TableStructure structure = table.structure;
        dropRelationsWithoutKey(structure, content);
        catalog.createTable(structure);
        insertRows(connection, table);
    }
    savepoint.commit();
    connection.execute(u"PRAGMA ignore_check_constraints = OFF"_s);
    connection.execute(u"PRAGMA foreign_keys = ON"_s);
}

} // namespace dao
