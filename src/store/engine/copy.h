#pragma once

#include <QString>

namespace dao {

class Connection;

/// Writes all that an open file holds into a new, compact file at `path`, protected by `password`
/// unless it is empty, and flushes it to the disk. What stands at `path` is removed first. On
/// failure nothing is left there.
void writeCopy(Connection& connection, const QString& path, const QString& password);

/// Whether bytes can be those of a protected file, or of a page of one: they look like noise. Those
/// of other files have a byte that stands out.
bool looksLikeNoise(const QByteArray& bytes);

/// Whether bytes from the start of a file are those of an unprotected database.
bool isPlainHeader(const QByteArray& start);

} // namespace dao
