#pragma once

#include "store/engine/jet_sql.h"
#include "store/engine/names.h"
#include "store/engine/value.h"

#include <sqlcipher/sqlite3.h>

#include <QList>
#include <QStringList>

#include <memory>

using namespace Qt::StringLiterals;

/// A bare SQLite database in memory with what translated Jet SQL calls for, to see what a
/// translation answers and whether SQLite takes it at all.
class BareSqlite {
public:
    BareSqlite() {
        sqlite3_open(":memory:", &m_database);
        sqlite3_create_collation(m_database, dao::sql::TextCollation, SQLITE_UTF8, nullptr,
                                 [](void*, int aLength, const void* a, int bLength, const void* b) {
                                     return dao::compareUtf8(
                                         {static_cast<const char*>(a), aLength},
                                         {static_cast<const char*>(b), bLength});
                                 });
        sqlite3_create_function(m_database, dao::sql::LikeFunction, 2, SQLITE_UTF8, nullptr, like,
                                nullptr, nullptr);
        sqlite3_create_function(m_database, dao::sql::TextFunction, 1, SQLITE_UTF8, nullptr, text,
                                nullptr, nullptr);
    }
    ~BareSqlite() { sqlite3_close(m_database); }
    BareSqlite(const BareSqlite&) = delete;
    BareSqlite& operator=(const BareSqlite&) = delete;

    /// Adds a table; each row is what stands behind VALUES.
    void addTable(const dao::TableStructure& table, const QStringList& rows = {}) {
        QStringList columns;
        for (const dao::Field& field : table.fields)
            columns.append(dao::quoteName(field.Name) + u' ' +
                           (dao::isTextual(field.Type) ? u"VARCHAR"_s : u"DOUBLE"_s));
        run(u"CREATE TABLE %1 (%2)"_s.arg(dao::quoteName(table.name), columns.join(u',')));
        for (const QString& row : rows)
            run(u"INSERT INTO %1 VALUES (%2)"_s.arg(dao::quoteName(table.name), row));
        m_tables.append(std::make_shared<const dao::TableStructure>(table));
    }

    dao::sql::FindTable finder() const {
        return [this](QStringView name) -> std::shared_ptr<const dao::TableStructure> {
            for (const auto& table : m_tables) {
                if (dao::sameName(table->name, name))
                    return table;
            }
            return nullptr;
        };
    }

    static QString statement(const dao::sql::Query& query) {
        QStringList columns;
        for (const dao::sql::Column& column : query.columns)
            columns.append(column.sql);
        QString text = u"SELECT %1 FROM %2"_s.arg(columns.join(u','), query.from);
        if (!query.where.isEmpty())
            text += u" WHERE "_s + query.where;
        if (!query.orderBy.isEmpty())
            text += u" ORDER BY "_s + query.orderBy;
        return text;
    }

    /// The rows as texts: values divided by `|`, Null as `~`. An error as "!" and SQLite's text.
    QStringList run(const QString& sql) const {
        sqlite3_stmt* statement = nullptr;
        const QByteArray utf8 = sql.toUtf8();
        if (sqlite3_prepare_v2(m_database, utf8.constData(), int(utf8.size()), &statement,
                               nullptr) != SQLITE_OK)
            return {u'!' + QString::fromUtf8(sqlite3_errmsg(m_database))};
        QStringList rows;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            QStringList values;
            for (int i = 0; i < sqlite3_column_count(statement); ++i)
                values.append(valueText(sqlite3_column_value(statement, i)));
            rows.append(values.join(u'|'));
        }
        if (sqlite3_finalize(statement) != SQLITE_OK)
            return {u'!' + QString::fromUtf8(sqlite3_errmsg(m_database))};
        return rows;
    }

    /// The rows that a SELECT of Jet SQL answers.
    QStringList select(const QString& jetSql) const {
        return run(statement(dao::sql::translateSelect(jetSql, finder())));
    }

private:
    static QString valueText(sqlite3_value* value) {
        switch (sqlite3_value_type(value)) {
        case SQLITE_NULL:
            return u"~"_s;
        case SQLITE_FLOAT:
            return dao::numberText(sqlite3_value_double(value));
        default:
            return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(value)));
        }
    }
    static void text(sqlite3_context* context, int, sqlite3_value** arguments) {
        if (sqlite3_value_type(arguments[0]) == SQLITE_NULL)
            return;
        sqlite3_result_text(context, valueText(arguments[0]).toUtf8().constData(), -1,
                            SQLITE_TRANSIENT);
    }
    static void like(sqlite3_context* context, int, sqlite3_value** arguments) {
        if (sqlite3_value_type(arguments[0]) == SQLITE_NULL ||
            sqlite3_value_type(arguments[1]) == SQLITE_NULL)
            return;
        try {
            sqlite3_result_int(context,
                               dao::matchesLike(valueText(arguments[1]), valueText(arguments[0])));
        } catch (const std::exception& error) {
            sqlite3_result_error(context, error.what(), -1);
        }
    }

    sqlite3* m_database = nullptr;
    QList<std::shared_ptr<const dao::TableStructure>> m_tables;
};
