#pragma once

#include "store/engine/catalog.h"
#include "store/engine/connection.h"
#include "store/engine/open_file.h"

#include <QHash>
#include <QList>

#include <memory>

namespace dao {

class RecordsetCore;

/// What the handles on one open database share.
class DatabaseCore {
public:
    DatabaseCore(QString path, QString password, bool readOnly, std::shared_ptr<OpenFile> file);
    ~DatabaseCore();
    DatabaseCore(const DatabaseCore&) = delete;
    DatabaseCore& operator=(const DatabaseCore&) = delete;

    Connection connection;
    Catalog catalog{connection};
    QString path;
    QString password; ///< in memory alone, to write a copy that is protected in the same way
    const bool readOnly;
    bool jetFile = false;
    std::shared_ptr<OpenFile> file;

    void close();
    /// Goes on with the same content in another file. Raises what connecting to it raises; then
    /// nothing has changed.
    void moveTo(const QString& newPath, const std::shared_ptr<OpenFile>& newFile);
    bool isOpen() const { return connection.isOpen(); }

    /// The structure of a table. Raises `missing` where there is none.
    std::shared_ptr<const TableStructure> table(QStringView name, int missing);
    /// Raises 3211 when a recordset has the table open, 3027 when nothing may be changed.
    void checkUnused(QStringView table);
    void checkWritable() const; ///< raises 3027, and 3034 in a transaction that was undone

    /// A prepared statement that is kept for the next time the same text is asked for.
    Statement& prepared(const QString& sql);
    void forgetPrepared() { m_prepared.clear(); }

    void addRecordset(const std::shared_ptr<RecordsetCore>& recordset);
    QList<std::shared_ptr<RecordsetCore>> recordsets();

    void commit();   ///< what other handles on the file have read ahead is stale then
    void rollback(); ///< undoes, and lets what is kept in memory follow

private:
    QHash<QString, std::shared_ptr<Statement>> m_prepared;
    QList<std::weak_ptr<RecordsetCore>> m_recordsets;
};

} // namespace dao
