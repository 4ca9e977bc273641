#include "store/engine/file_check.h"

#include "store/engine/catalog.h"
#include "store/engine/connection.h"
#include "store/engine/error.h"
#include "store/engine/names.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

/// Reads every field of every record of a table, counting, up to the first that can't be read.
void readRecords(Connection& connection, const TableStructure& table, TableCheck& check) {
    Statement records(connection, u"SELECT * FROM "_s + quoteName(table.name));
    for (; records.step(); ++check.records) {
        for (int i = 0; i < table.fields.size(); ++i)
            records.column(i, table.fields[i].Type);
    }
}

void checkRelations(Connection& connection, const TableStructure& table) {
    Statement orphans(connection, u"PRAGMA foreign_key_check(%1)"_s.arg(quoteName(table.name)));
    if (orphans.step())
        throw EngineError(RelatedRecordRequired,
                          u"A record is related to one that is not there."_s);
}

/// What the library's own check finds in the file, a sentence each.
QStringList libraryFindings(Connection& connection) {
    QStringList findings;
    Statement statement(connection, u"PRAGMA integrity_check(1000)"_s);
    while (statement.step())
        findings += statement.text(0);
    findings.removeAll(u"ok"_s);
    return findings;
}

/// Takes those of the findings that are about the table or its indexes. Answers whether any was.
bool takeFindings(Connection& connection, const QString& table, QStringList& findings) {
    QStringList endings{u"CHECK constraint failed in "_s + table};
    Statement indexes(connection, u"PRAGMA index_list(%1)"_s.arg(quoteName(table)));
    while (indexes.step())
        endings += u" index "_s + indexes.text(1);
    return findings.removeIf([&](const QString& finding) {
        return finding.contains(u" value in %1."_s.arg(table)) ||
               std::any_of(endings.begin(), endings.end(),
                           [&](const QString& ending) { return finding.endsWith(ending); });
    }) > 0;
}

} // namespace

FileCheck checkTables(Connection& connection) {
    FileCheck checked;
    QStringList findings = libraryFindings(connection);
    Catalog catalog(connection);
    for (const QString& name : catalog.tableNames()) {
        TableCheck check;
        check.table = name;
        try {
            const auto table = catalog.find(name);
            readRecords(connection, *table, check);
            checkRelations(connection, *table);
            if (takeFindings(connection, name, findings))
                check.fault = u"A record does not fit the rules or indexes of the table."_s;
        } catch (const EngineError& error) {
            check.fault = error.number() == DamagedDatabase ? u"Not all records can be read."_s
                                                            : error.description();
        }
        checked.tables += std::move(check);
    }
    if (!findings.isEmpty())
        checked.fault = u"The file is damaged."_s;
    return checked;
}

} // namespace dao
