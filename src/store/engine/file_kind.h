#pragma once

#include "store/engine/open_file.h"

#include <QString>

namespace dao {

class DatabaseCore;

/// What the start of a file tells of it.
enum class FileKind { Plain, Protected, Jet, Foreign };

/// Enough of a file's start to tell what it is.
inline constexpr qsizetype headerBytes = qsizetype{64} * 1024;

FileKind kindOf(const OpenFile& file, const QString& path);

/// Whether a file that is Foreign may be a protected one all the same, of which a part was written
/// over or is missing: some of its pages look like noise.
bool mayBeProtected(const OpenFile& file);

/// Whether a file's length is a whole number of its pages, as the database library leaves it.
bool hasWholePages(const OpenFile& file, FileKind kind);

/// The password of a connect text.
QString passwordOf(const QString& connect);

/// The file that a path leads to, behind links. Raises 3024 and 3051.
QString checkedPath(const QString& path);

/// Raises 3051 for a file that can't be written.
void checkWritable(const QString& path);

/// Connects to a file of this engine's own. Raises 3031 for a missing or wrong password, 3343 for a
/// damaged file, also where its password is right and its first page is not.
void connectOwnFile(DatabaseCore& core, FileKind kind);

} // namespace dao
