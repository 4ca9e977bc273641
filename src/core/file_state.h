#pragma once

#include <QString>

/// Whether a path leads to a file or folder. An empty path is answered without asking the system.
bool FileExists(const QString& path);

/// Whether somebody has the file open in a way that keeps others out: another program by a lock of
/// this computer's, or this process in any way. A file that cannot be opened at all is not locked.
bool FileLocked(const QString& path);

/// The size of a file in bytes, as text; "0" for none.
QString FileSizeText(const QString& path);
