#include "store/engine/file_check.h"

#include "store/engine/catalog.h"
#include "store/engine/connection.h"
#include "store/engine/error.h"
#include "store/engine/names.h"

#include <QStringDecoder>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

/// The statement that reads a table, texts as the bytes that they are: a page that was written over
/// need not show in anything else.
QString readStatement(const TableStructure& table) {
    QStringList fields;
    for (const Field& field : table.fields) {
        const QString name = quoteName(field.Name);
        fields += isTextual(field.Type) ? u"CAST(%1 AS BLOB)"_s.arg(name) : name;
    }
    return u"SELECT %1 FROM %2"_s.arg(fields.join(u", "_s), quoteName(table.name));
}

/// Raises what makes bytes no text of the field.
void checkText(const Field& field, const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError())
        throw EngineError(DamagedDatabase, u"A text is damaged."_s);
    if (field.Type == DataType::Text && text.size() > field.Size &&
        text.toUcs4().size() > field.Size)
        throw EngineError(TextTooLong, u"A text of '%1' is too long."_s.arg(field.Name));
}

/// Reads every field of every record of a table, counting, up to the first in which something is
/// wrong.
void readRecords(Connection& connection, const TableStructure& table, TableCheck& check) {
    Statement records(connection, readStatement(table));
    for (; records.step(); ++check.records) {
        for (int i = 0; i < table.fields.size(); ++i) {
            const Field& field = table.fields[i];
            const Value value = records.column(i, field.Type);
            if (isTextual(field.Type))
                checkText(field, value.toBinary());
        }
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
