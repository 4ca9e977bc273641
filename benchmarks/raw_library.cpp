#include "raw_library.h"

#include <stdexcept>

namespace {

QByteArray quoted(QByteArray name) {
    return '"' + name.replace('"', "\"\"") + '"';
}

void check(sqlite3* database, int result) {
    if (result != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(database));
}

QByteArray columnText(const RawStatement& statement, int column) {
    return QByteArray(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column)),
                      sqlite3_column_bytes(statement.get(), column));
}

} // namespace

RawDatabase::RawDatabase(const QString& path, Mode mode) {
    sqlite3* database = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | (mode == Mode::Create ? SQLITE_OPEN_CREATE : 0);
    const int result = sqlite3_open_v2(path.toUtf8().constData(), &database, flags, nullptr);
    m_database.reset(database);
    check(database, result);
    execute("PRAGMA synchronous = FULL");
}

void RawDatabase::execute(const QByteArray& sql) {
    check(m_database.get(),
          sqlite3_exec(m_database.get(), sql.constData(), nullptr, nullptr, nullptr));
}

RawStatement RawDatabase::prepare(const QByteArray& sql) {
    sqlite3_stmt* statement = nullptr;
    check(m_database.get(),
          sqlite3_prepare_v2(m_database.get(), sql.constData(), static_cast<int>(sql.size()) + 1,
                             &statement, nullptr));
    return RawStatement(statement);
}

bool RawDatabase::step(const RawStatement& statement) {
    const int result = sqlite3_step(statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        check(m_database.get(), result);
    return result == SQLITE_ROW;
}

void RawDatabase::copyTo(const QString& path) {
    RawDatabase target(path, Mode::Create);
    sqlite3_backup* backup =
        sqlite3_backup_init(target.m_database.get(), "main", m_database.get(), "main");
    sqlite3_backup_step(backup, -1);
    check(target.m_database.get(), sqlite3_backup_finish(backup));
}

qint64 RawDatabase::firstInteger(const QByteArray& sql) {
    const RawStatement statement = prepare(sql);
    return step(statement) ? sqlite3_column_int64(statement.get(), 0) : 0;
}

QString textOf(const RawStatement& statement, int column) {
    return QString::fromUtf8(
        reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column)),
        sqlite3_column_bytes(statement.get(), column));
}

qint64 readColumns(const RawStatement& statement) {
    qint64 sum = 0;
    const int columns = sqlite3_column_count(statement.get());
    for (int column = 0; column < columns; ++column) {
        switch (sqlite3_column_type(statement.get(), column)) {
        case SQLITE_INTEGER:
            sum += sqlite3_column_int64(statement.get(), column);
            break;
        case SQLITE_FLOAT:
            sum += static_cast<qint64>(sqlite3_column_double(statement.get(), column));
            break;
        case SQLITE_TEXT:
            if (sqlite3_column_text(statement.get(), column))
                sum += sqlite3_column_bytes(statement.get(), column);
            break;
        case SQLITE_BLOB:
            if (sqlite3_column_blob(statement.get(), column))
                sum += sqlite3_column_bytes(statement.get(), column);
            break;
        default:
            break;
        }
    }
    return sum;
}

std::vector<RawTable> readTables(RawDatabase& database) {
    std::vector<RawTable> tables;
    const RawStatement list = database.prepare(
        "SELECT name, sql FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' "
        "ORDER BY rowid");
    while (database.step(list)) {
        RawTable table{columnText(list, 0), columnText(list, 1), {}};
        const RawStatement rows = database.prepare("SELECT * FROM " + quoted(table.name));
        while (database.step(rows)) {
            std::vector<RawValue>& row = table.rows.emplace_back();
            for (int column = 0; column < sqlite3_column_count(rows.get()); ++column)
                row.emplace_back(sqlite3_value_dup(sqlite3_column_value(rows.get(), column)));
        }
        tables.push_back(std::move(table));
    }
    return tables;
}

void writeTable(RawDatabase& database, const RawTable& table) {
    database.execute(table.definition);
    if (table.rows.empty())
        return;
    QByteArray parameters("?");
    for (size_t column = 1; column < table.rows.front().size(); ++column)
        parameters += ",?";
    const RawStatement insert =
        database.prepare("INSERT INTO " + quoted(table.name) + " VALUES (" + parameters + ')');
    for (const std::vector<RawValue>& row : table.rows) {
        for (size_t column = 0; column < row.size(); ++column)
            sqlite3_bind_value(insert.get(), static_cast<int>(column) + 1, row[column].get());
        database.step(insert);
        sqlite3_reset(insert.get());
    }
}

qint64 countRows(const QString& path) {
    RawDatabase database(path);
    qint64 rows = 0;
    for (const RawTable& table : readTables(database))
        rows += static_cast<qint64>(table.rows.size());
    return rows;
}
