#pragma once

#include "store/engine/jet_bytes.h"
#include "store/engine/jet_reader.h"

#include <QHash>

#include <memory>
#include <vector>

namespace dao {

/// What a table's properties say of a field.
struct JetFieldRules {
    bool allowZeroLength = false;
    bool required = false;
};
/// By the fields' names.
using JetTableRules = QHash<QString, JetFieldRules>;

/// A genuine Jet file in memory, whose tables are read through libmdb. What contradicts itself
/// raises 3343; but libmdb does not check all that it follows, so it may also crash: readJetFile
/// uses it where that does no harm.
class JetFile {
public:
    /// `file` must live as long as the object. `limit`: the bytes that all values read may have
    /// together; beyond them 3343 is raised.
    JetFile(const QByteArray& file, qint64 limit);
    ~JetFile();
    JetFile(const JetFile&) = delete;
    JetFile& operator=(const JetFile&) = delete;

    /// Loads libmdb, which otherwise the first object does; either raises 3051 where it is missing.
    static void loadLibrary();

    JetFormat format() const { return m_format; }
    /// Reads the table whose definition starts at a page: its fields and indexes, and its rows in
    /// the order of their slots, page by page. Its relations stand in a table of their own.
    JetTable readTable(const QString& name, quint32 page, const JetTableRules& rules = {});

private:
    struct Handle; ///< keeps libmdb's header out of this one
    struct Place;  ///< where a row stands
    struct Shape;  ///< a table's definition as libmdb gives it

    enum class Buffer { Row, LongValue };
    JetBytes page(quint32 number, Buffer buffer = Buffer::Row);
    void checkDefinition(quint32 page);
    std::vector<quint32> dataPages(const Shape& shape);
    Place place(JetBytes page, quint32 pageNumber, int slot) const;
    Place rowPlace(quint32 pageNumber, int slot);
    QList<QList<Value>> readRows(const Shape& shape);
    QList<Value> readRow(const Shape& shape, const Place& place);
    Value readValue(int type, int scale, int precision, JetBytes bytes);
    QByteArray readLongValue(JetBytes head);
    JetBytes longValuePiece(quint32 pointer);
    void spend(qint64 bytes);

    std::unique_ptr<Handle> m_handle;
    JetFormat m_format;
    qint64 m_fileSize;
    qint64 m_left; ///< of the limit
};

} // namespace dao
