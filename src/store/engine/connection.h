#pragma once

#include "store/engine/structure.h"
#include "store/engine/value.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace dao {

class Connection;

/// A prepared statement. It never stays half stepped: `reset` it when done with its rows.
class Statement {
public:
    Statement() = default;
    Statement(Connection& connection, const QString& sql);

    void bind(int position, const Value& value); ///< position from 1
    /// Goes to the next row; false behind the last. Raises what the file's state makes of it.
    bool step();
    void reset();
    /// The row's value: whole for whole numbers, a double for the types with decimals.
    Value column(int position, DataType type) const; ///< position from 0
    qint64 integer(int position) const;
    QString text(int position) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    sqlite3* m_database = nullptr;
    QList<QByteArray> m_texts; ///< bound, and read by the library until the reset
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

/// A connection to a database file, with the functions that translated Jet SQL calls for, foreign
/// keys enforced, every commit flushed to the disk, and no temporary files.
class Connection {
public:
    enum class Mode { Existing, Memory };

    Connection() = default;
    /// Opens. `password` is empty for an unprotected file. Raises 3031 when the password is wrong,
    /// 3343 when it is no database.
    Connection(const QString& path, Mode mode, const QString& password);

    bool isOpen() const { return m_database != nullptr; }
    void close() { m_database.reset(); }
    sqlite3* handle() const { return m_database.get(); }

    void execute(const QString& sql);
    QString firstText(const QString& sql); ///< of the first row's first column; empty for no row
    qint64 firstInteger(const QString& sql);
    int changes() const;
    qint64 lastInsertedRow() const;
    bool inTransaction() const;

    /// Transactions, each of which may stand inside another. Without an open one the last two do
    /// nothing. After a failure that made the library undo everything (a full disk), every further
    /// write and `commit` raise 3034 until each transaction begun has been rolled back.
    void begin();
    void commit();
    void rollback();
    void checkTransaction() const; ///< raises 3034 when the open transaction was undone

    /// Attaches another file, which has to be there but may be empty, under a name.
    void attach(const QString& path, const QString& schema, const QString& password);

    /// Raises 3343 when the file's structure is damaged. Reads the whole file.
    void checkStructure();

private:
    struct Close {
        void operator()(sqlite3* database) const;
    };
    std::unique_ptr<sqlite3, Close> m_database;
    int m_depth = 0; ///< transactions begun
};

/// Keeps the file locked for reading over several statements, which each would lock it anew.
class ReadScope {
public:
    explicit ReadScope(Connection& connection);
    ~ReadScope();
    ReadScope(const ReadScope&) = delete;
    ReadScope& operator=(const ReadScope&) = delete;

private:
    Connection& m_connection;
    bool m_begun;
};

/// A transaction that is undone unless it was committed.
class Savepoint {
public:
    explicit Savepoint(Connection& connection) : m_connection(connection) { m_connection.begin(); }
    ~Savepoint();
    Savepoint(const Savepoint&) = delete;
    Savepoint& operator=(const Savepoint&) = delete;

    void commit();

private:
    Connection& m_connection;
    bool m_open = true;
};

/// From now on a crash of this process leaves no image of its memory, and no other program of the
/// person's reads it: it holds a password, and what that protects. For good, since what a closed
/// file has left in the memory is not wiped.
void leaveNoImage();

/// Turns the state that the library is in after a failed call into an EngineError.
[[noreturn]] void raiseDatabaseError(sqlite3* database);

} // namespace dao
