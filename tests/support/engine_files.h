#pragma once

#include "store/engine/engine.h"
#include "store/engine/error.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <functional>

using namespace Qt::StringLiterals;

/// A folder for the files of one test, which goes with it, and an engine of its own.
class EngineFiles : public testing::Test {
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    /// A new file with the table `Pupils`: ID (numbers itself), Surname(20), Mark (Integer),
    /// Notes (Memo).
    dao::Database pupilsFile(const QString& name = u"pupils.mdb"_s);

    dao::DBEngine engine;

private:
    QTemporaryDir m_folder;
};

/// Appends a table to a file.
void appendTable(const dao::Database& database, const QString& name,
                 const QList<dao::Field>& fields);

/// A field that numbers the records by itself.
dao::Field numberingField(const QString& name = u"ID"_s);

/// A text or memo field that allows the empty text.
dao::Field emptyableField(const QString& name, dao::DataType type, int size = 0);

/// The names of a table's fields in their order.
QStringList fieldNames(const dao::Database& database, const QString& table);

/// Adds a record with these values, in the order of the table's fields after the first.
void addRecord(const dao::Database& database, const QString& table,
               const QList<dao::Value>& values);

/// Sets a field of the first record of a source.
void changeRecord(const dao::Database& database, const QString& source, const QString& field,
                  const dao::Value& value);

/// All rows of a query, a line a row, values joined by `|`, Null as `~`.
QStringList rowsOf(const dao::Database& database, const QString& source);

/// Writes a file anew; answers its path.
QString writeFile(const QString& path, const QByteArray& bytes);

/// What a file holds; nothing where it cannot be read.
QByteArray bytesOf(const QString& path);

/// The number of the EngineError that the work raises, 0 for none.
int errorOf(const std::function<void()>& work);

/// As long as it lives, no file can grow beyond so many bytes: a full disk for who writes.
class FileSizeLimit {
public:
    explicit FileSizeLimit(qint64 bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_before{};
};
