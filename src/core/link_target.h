#pragma once

#include <QString>

class Prompts;
class Settings;
class Shell;

/// A file or web address that belongs to a period of a planning sheet.
struct FileLink {
    QString planDate; ///< "yy-mm-dd"
    QString name;
    QString path;
};

/// The characters that a link's name or path has room for.
inline constexpr int FileLinkSize = 255;

enum class LinkFault { None, Path, Name };

/// What keeps a link from being made: a path that is neither that of a file nor a well formed web
/// address, or an empty name. The path is looked at first.
LinkFault linkFault(const QString& name, const QString& path);

/// Opens what a link leads to: a web address (it begins in lower case) by the shell, any other as
/// OpenShortcut does. Of a file that is gone the person is told.
void OpenFileLink(const QString& path, const Settings& settings, Shell& shell, Prompts& prompts);
