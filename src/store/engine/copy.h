#pragma once

#include <QString>

namespace dao {

class Connection;

/// Writes all that an open file holds into a new, compact file at `path`, protected by `password`
/// unless it is empty, and flushes it to the disk. What stands at `path` is removed first. On
/// failure nothing is left there.
void writeCopy(Connection& connection, const QString& path, const QString& password);

/// Writes what can be read of a damaged file into a new file at `path`, as writeCopy does. Raises
/// 3343 when no table can be read.
void writeSalvagedCopy(Connection& connection, const QString& path, const QString& password);

/// Whether bytes from the start of a file can be those of a protected database: they look like
/// noise. Other files have a byte that stands out, if only in their first pages.
bool looksProtected(const QByteArray& start, qint64 fileSize);

/// Whether bytes from the start of a file are those of an unprotected database.
bool isPlainHeader(const QByteArray& start);

} // namespace dao
