#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <sqlcipher/sqlite3.h>

#include <memory>
#include <vector>

/// The database library as it is: only what closes by itself is added, and every failure raises
/// std::runtime_error.

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using RawStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// A connection that is as durable as the engine's.
class RawDatabase {
public:
    enum class Mode { Existing, Create };
    explicit RawDatabase(const QString& path, Mode mode = Mode::Existing);

    void execute(const QByteArray& sql);
    RawStatement prepare(const QByteArray& sql);
    bool step(const RawStatement& statement); ///< false behind the last row
    /// Writes the whole of it to a file, which it makes or replaces.
    void copyTo(const QString& path);
    qint64 firstInteger(const QByteArray& sql);

private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
    };
    std::unique_ptr<sqlite3, Close> m_database;
};

/// Reads every column of the statement's row as what it is; answers the bytes of its texts and the
/// sum of its whole numbers, so that nothing of it can be left out.
qint64 readColumns(const RawStatement& statement);

/// A column of the statement's row as text.
QString textOf(const RawStatement& statement, int column);

struct FreeValue {
    void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
};
using RawValue = std::unique_ptr<sqlite3_value, FreeValue>;

/// A table of a file with all its rows, in memory.
struct RawTable {
    QByteArray name;
    QByteArray definition; ///< its CREATE statement
    std::vector<std::vector<RawValue>> rows;
};

std::vector<RawTable> readTables(RawDatabase& database);
void writeTable(RawDatabase& database, const RawTable& table);
/// The rows of all tables together.
qint64 countRows(const QString& path);
