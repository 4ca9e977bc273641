// jet FILE.mdb [--password P | --password-fd N] [--names] [SQL...]
//
// Opens a year's file (or a genuine Jet file, which is only read) and prints what Jet SQL answers:
// a line a row, values separated by tabs. Without SQL it answers one statement a line from standard
// input until that ends. docs/file-format.md tells the language; `SHOW TABLES` and
// `SHOW FIELDS table` are this tool's own. The password may stand in `ORVA_PASSWORD` too, or on a
// line of the file that is open under the number N.

#include "core/given_password.h"
#include "core/tab_separated.h"
#include "store/engine/engine.h"
#include "store/engine/error.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <cstdio>
#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

namespace {

struct Arguments {
    QString file;
    QString password;
    bool names = false;
    QStringList statements;
};

bool readArguments(const QStringList& given, Arguments& arguments) {
    arguments.password = passwordFromEnvironment();
    for (qsizetype i = 1; i < given.size(); ++i) {
        if (given.at(i) == u"--password" && i + 1 < given.size()) {
            arguments.password = given.at(++i);
        } else if (given.at(i) == u"--password-fd" && i + 1 < given.size()) {
            arguments.password = passwordFromDescriptor(given.at(++i));
            if (arguments.password.isNull())
                return false;
        } else if (given.at(i) == u"--names") {
            arguments.names = true;
        } else if (arguments.file.isEmpty()) {
            arguments.file = given.at(i);
        } else {
            arguments.statements += given.at(i);
        }
    }
    return !arguments.file.isEmpty();
}

void printRecords(const dao::Database& database, const QString& statement, bool names) {
    dao::Recordset records = database.OpenRecordset(statement, dao::RecordsetType::Snapshot);
    QStringList line;
    if (names) {
        for (int i = 0; i < records.FieldCount(); ++i)
            line += records.Fields(i).Name();
        printLine(line);
    }
    for (; !records.EOF_(); records.MoveNext()) {
        line.clear();
        for (int i = 0; i < records.FieldCount(); ++i)
            line += escapedValue(records.Collect(i));
        printEscapedLine(line);
    }
}

void printFields(const dao::Database& database, const QString& table, bool names) {
    if (names)
        printLine({u"name"_s, u"type"_s, u"size"_s});
    for (const dao::Field& field : database.TableDefs()[table].Fields())
        printLine({field.Name, QString::number(static_cast<int>(field.Type)),
                   QString::number(field.Size)});
}

void answer(const dao::Database& database, const QString& statement, bool names) {
    static const QRegularExpression showTables(QStringLiteral(R"(^\s*SHOW\s+TABLES\s*;?\s*$)"),
                                               QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression showFields(
        QStringLiteral(R"(^\s*SHOW\s+FIELDS\s+(?:FROM\s+)?(\[.*\]|\S.*?)\s*;?\s*$)"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch fields = showFields.match(statement);
    if (showTables.match(statement).hasMatch()) {
        for (const QString& name : database.TableDefs().names())
            printLine({name});
    } else if (fields.hasMatch()) {
        QString table = fields.captured(1);
        if (table.startsWith(u'['))
            table = table.mid(1, table.size() - 2).replace(u"]]"_s, u"]"_s);
        printFields(database, table, names);
    } else {
        printRecords(database, statement, names);
    }
}

void answerStandardInput(const dao::Database& database, bool names) {
    for (std::string line; std::getline(std::cin, line);) {
        try {
            answer(database, QString::fromStdString(line), names);
            printLine({u"."_s});
        } catch (const dao::EngineError& error) {
            printEscapedLine({u"! %1 %2"_s.arg(error.number()).arg(error.description())});
        }
        std::fflush(stdout);
    }
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    Arguments arguments;
    if (!readArguments(QCoreApplication::arguments(), arguments)) {
        std::fputs("usage: jet FILE.mdb [--password P | --password-fd N] [--names] [SQL...]\n",
                   stderr);
        return 2;
    }
    try {
        const dao::DBEngine engine;
        const dao::Database database =
            engine.OpenDatabase(arguments.file, false, false, dao::connectText(arguments.password));
        for (const QString& statement : std::as_const(arguments.statements)) {
            answer(database, statement, arguments.names);
            std::fflush(stdout);
        }
        if (arguments.statements.isEmpty())
            answerStandardInput(database, arguments.names);
    } catch (const dao::EngineError& error) {
        std::fflush(stdout);
        std::fprintf(stderr, "%d: %s\n", error.number(), qPrintable(error.description()));
        return 1;
    }
    return 0;
}
