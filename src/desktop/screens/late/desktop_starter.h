#pragma once

#include <QString>

/// Starts the program that a `.desktop` file describes, as the desktop's own menu does. Answers
/// false where the file describes none, or the program can't be started.
bool startDesktopFile(const QString& path);

/// Whether the desktop has a program set for files of a MIME type.
bool desktopOpens(const char* mimeType);
