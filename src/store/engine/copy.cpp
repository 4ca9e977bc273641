#include "store/engine/copy.h"

#include "store/engine/catalog.h"
#include "store/engine/connection.h"
#include "store/engine/error.h"
#include "store/engine/files.h"
#include "store/engine/names.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

/// The page size of protected files.
constexpr qint64 protectedPage = 1024;

/// Another database file attached to a connection for as long as the object lives.
class Attachment {
public:
    Attachment(Connection& connection, const QString& path, const QString& password)
        : m_connection(connection) {
        m_connection.attach(path, u"copy"_s, password);
        // A copy that is not finished is thrown away: it is flushed once, when it is whole.
        m_connection.execute(u"PRAGMA copy.synchronous = OFF"_s);
        m_connection.execute(u"PRAGMA copy.journal_mode = OFF"_s);
    }
    ~Attachment() {
        try {
            m_connection.execute(u"DETACH DATABASE copy"_s);
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
    connection.execute(u"PRAGMA foreign_keys = OFF"_s);
    try {
        makePrivateFile(path);
        {
            const Attachment attachment(connection, path, password);
            write();
        }
        flushToDisk(path);
    } catch (...) {
        connection.execute(u"PRAGMA foreign_keys = ON"_s);
        removeDatabaseFile(path);
        throw;
    }
    connection.execute(u"PRAGMA foreign_keys = ON"_s);
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
    const QString list = fields.join(u", "_s);
    try {
        Statement rows(connection, u"SELECT %1 FROM main.%2 ORDER BY %1 %3"_s.arg(
                                       row, name, QLatin1StringView(direction)));
        Statement insert(connection, u"INSERT OR IGNORE INTO copy.%1 (%2) SELECT %2 "
                                     "FROM main.%1 WHERE %3 = ?"_s.arg(name, list, row));
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
            connection.execute(createIndexStatement(table, index, u"copy."_s));
    }
    try {
        const QString name = writeText(table.name);
        connection.execute(u"UPDATE copy.sqlite_sequence SET seq = max(seq, (SELECT seq FROM "
                           "main.sqlite_sequence WHERE name = %1)) WHERE name = %1"_s.arg(name));
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
        const qsizetype verb = u"CREATE TABLE "_s.size();
        connection.execute(u"CREATE TABLE copy."_s + createStatement(table).mid(verb));
        if (!copyFromEnd(connection, table, "ASC"))
            copyFromEnd(connection, table, "DESC");
        salvageRest(connection, table);
        ++tables;
    }
    if (tables == 0)
        throw EngineError(DamagedDatabase, u"No table of the file can be read."_s);
}

} // namespace

void writeCopy(Connection& connection, const QString& path, const QString& password) {
    writeInto(connection, path, password, [&connection] {
        connection.firstText(u"SELECT sqlcipher_export('copy')"_s);
        const qint64 mark = connection.firstInteger(u"PRAGMA main.application_id"_s);
        connection.execute(u"PRAGMA copy.application_id = %1"_s.arg(mark));
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
