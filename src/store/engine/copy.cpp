#include "store/engine/copy.h"

#include "store/engine/catalog.h"
#include "store/engine/connection.h"
#include "store/engine/error.h"
#include "store/engine/files.h"
#include "store/engine/names.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <utility>

namespace dao {
namespace {

/// The page size of protected files.
constexpr qint64 protectedPage = 1024;

/// Another database file attached to a connection for as long as the object lives.
class Attachment {
public:
    Attachment(Connection& connection, const QString& path, const QString& password)
        : m_connection(connection) {
        m_connection.attach(path, QStringLiteral("copy"), password);
        // A copy that is not finished is thrown away: it is flushed once, when it is whole.
        m_connection.execute(QStringLiteral("PRAGMA copy.synchronous = OFF"));
        m_connection.execute(QStringLiteral("PRAGMA copy.journal_mode = OFF"));
    }
    ~Attachment() {
        try {
            m_connection.execute(QStringLiteral("DETACH DATABASE copy"));
        } catch (const std::exception&) {
            // It goes with the connection.
        }
    }
    Attachment(const Attachment&) = delete;
    Attachment& operator=(const Attachment&) = delete;

private:
    Connection& m_connection;
};

/// Runs the writing of a copy: on failure the unfinished file goes.
template<typename Write>
void writeInto(Connection& connection, const QString& path, const QString& password, Write write) {
    removeDatabaseFile(path);
    connection.execute(QStringLiteral("PRAGMA foreign_keys = OFF"));
    try {
        if (!QFile(path).open(QIODevice::WriteOnly | QIODevice::NewOnly))
            throw EngineError(CannotOpenFile,
                              QStringLiteral("The file could not be opened for writing."));
        {
            const Attachment attachment(connection, path, password);
            write();
        }
        flushToDisk(path);
    } catch (...) {
        connection.execute(QStringLiteral("PRAGMA foreign_keys = ON"));
        removeDatabaseFile(path);
        throw;
    }
    connection.execute(QStringLiteral("PRAGMA foreign_keys = ON"));
}

/// Copies the records of a table up to the first that can't be read, from one end of it. A record
/// keeps its number, so that it comes once whichever end it is met from.
bool copyFromEnd(Connection& connection, const TableStructure& table, const char* direction) {
    const QString name = quoteName(table.name);
    const QString row = rowNumberName(table);
    QStringList fields;
    for (const Field& field : table.fields)
        fields += quoteName(field.Name);
    const bool numbersItself =
        std::any_of(table.fields.begin(), table.fields.end(),
                    [](const Field& field) { return field.isAutoIncrement(); });
    if (!numbersItself)
        fields += row;
    const QString list = fields.join(QStringLiteral(", "));
    try {
        Statement rows(connection, QStringLiteral("SELECT %1 FROM main.%2 ORDER BY %1 %3")
                                       .arg(row, name, QLatin1StringView(direction)));
        Statement insert(connection, QStringLiteral("INSERT OR IGNORE INTO copy.%1 (%2) SELECT %2 "
                                                    "FROM main.%1 WHERE %3 = ?")
                                         .arg(name, list, row));
        while (rows.step()) {
            insert.bind(1, rows.integer(0));
            insert.step();
            insert.reset();
        }
    } catch (const EngineError& error) {
        if (error.number() != DamagedDatabase)
            throw;
        return false;
    }
    return true;
}

/// Carries over what is not in the records: indexes, and the numbers that were given already.
void salvageRest(Connection& connection, const TableStructure& table) {
    for (const Index& index : table.indexes) {
        if (!index.Primary)
            connection.execute(createIndexStatement(table, index, QStringLiteral("copy.")));
    }
    try {
        const QString name = writeText(table.name);
        connection.execute(
            QStringLiteral("UPDATE copy.sqlite_sequence SET seq = max(seq, (SELECT seq FROM "
                           "main.sqlite_sequence WHERE name = %1)) WHERE name = %1")
                .arg(name));
    } catch (const EngineError&) {
        // The file has no such table, or it is what is damaged.
    }
}

void salvage(Connection& connection) {
    Catalog catalog(connection);
    int tables = 0;
    for (const QString& name : catalog.tableNames()) {
        const TableStructure table = *catalog.find(name);
        if (table.fields.isEmpty())
            continue;
        const qsizetype verb = QStringLiteral("CREATE TABLE ").size();
        connection.execute(QStringLiteral("CREATE TABLE copy.") + createStatement(table).mid(verb));
        if (!copyFromEnd(connection, table, "ASC"))
            copyFromEnd(connection, table, "DESC");
        salvageRest(connection, table);
        ++tables;
    }
    if (tables == 0)
        throw EngineError(DamagedDatabase, QStringLiteral("No table of the file can be read."));
}

} // namespace

void writeCopy(Connection& connection, const QString& path, const QString& password) {
    writeInto(connection, path, password, [&connection] {
        connection.firstText(QStringLiteral("SELECT sqlcipher_export('copy')"));
        const qint64 mark = connection.firstInteger(QStringLiteral("PRAGMA main.application_id"));
        connection.execute(QStringLiteral("PRAGMA copy.application_id = %1").arg(mark));
    });
}

void writeSalvagedCopy(Connection& connection, const QString& path, const QString& password) {
    writeInto(connection, path, password, [&connection] { salvage(connection); });
}

bool isPlainHeader(const QByteArray& start) {
    return start.startsWith(QByteArrayView("SQLite format 3\0", 16));
}

bool looksProtected(const QByteArray& start, qint64 fileSize) {
    if (fileSize < protectedPage || fileSize % protectedPage != 0 || start.size() < protectedPage)
        return false;
    std::array<double, 256> counts{};
    for (const char byte : start)
        counts.at(static_cast<unsigned char>(byte)) += 1;
    const double expected = static_cast<double>(start.size()) / 256;
    double deviation = 0;
    for (const double count : counts)
        deviation += (count - expected) * (count - expected) / expected;
    // The sum over noise has mean 255 and standard deviation 22.6; this is seven of them.
    return deviation < 255 + 7 * 22.6;
}

} // namespace dao
