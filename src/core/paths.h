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
    QString label;           ///< "Open File Directory:"
    QString folder;          ///< with a separator at its end
    bool isProposed = false; ///< it was never set: the program's proposal, which need not be there
    QString shortFolder;     ///< in lower case and shortened, for show
};

/// The rows of FolderDefaults.
enum FolderRow { OpenFolder = 0, SaveFolder = 1, BackupFolder = 2 };
using FolderDefaults = std::array<FolderDefault, 3>;

/// Reads the three default folders from the settings. Where none was set years lie in `ORVA` in the
/// person's folder of documents, and backups in `Backups` below that; neither has to be there.
FolderDefaults ReadFolderDefaults(const Settings& settings);

/// Makes the program's proposal where something is about to be kept in it. A folder that the person
/// has set is not made: one that is missing lies on a drive that is. What fails is found out by the
/// writing.
void MakeProposedFolder(const FolderDefault& row);
