#pragma once

#include <QString>

#include <array>

class Settings;

/// A path for captions and messages: blanks around it trimmed and, when it is longer than `limit`
/// characters, its first three, "..." and the longest end of it that starts with a separator and
/// lets the whole fit. A name so long that no such end fits is cut from its left.
QString ShortenPath(const QString& path, int limit = 50);

/// A folder in which a dialog starts or backups go.
struct FolderDefault {
    QString label;       ///< "Open File Directory:"
    QString folder;      ///< with a separator at its end
    QString shortFolder; ///< in lower case and shortened, for show
};

/// The rows of FolderDefaults.
enum FolderRow { OpenFolder = 0, SaveFolder = 1, BackupFolder = 2 };
using FolderDefaults = std::array<FolderDefault, 3>;

/// Reads the three default folders from the settings; each is `appPath` where none was set.
FolderDefaults ReadFolderDefaults(const Settings& settings, const QString& appPath);
