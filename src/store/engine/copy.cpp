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

} // namespace

void writeCopy(Connection& connection, const QString& path, const QString& password) {
    writeInto(connection, path, password, [&connection] {
        connection.firstText(u"SELECT sqlcipher_export('copy')"_s);
        const qint64 mark = connection.firstInteger(u"PRAGMA main.application_id"_s);
        connection.execute(u"PRAGMA copy.application_id = %1"_s.arg(mark));
    });
}

bool isPlainHeader(const QByteArray& start) {
    return start.startsWith(QByteArrayView("SQLite format 3\0", 16));
}

bool looksLikeNoise(const QByteArray& bytes) {
    std::array<double, 256> counts{};
    for (const char byte : bytes)
        counts.at(static_cast<unsigned char>(byte)) += 1;
    const double expected = static_cast<double>(bytes.size()) / 256;
    double deviation = 0;
    for (const double count : counts)
        deviation += (count - expected) * (count - expected) / expected;
    // The sum over noise has mean 255 and standard deviation 22.6; this is seven of them.
    return deviation < 255 + 7 * 22.6;
}

} // namespace dao
