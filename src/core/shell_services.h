#pragma once

#include <QString>

class Prompts;
class Settings;
class Shell;

/// Shows the box "ShellExecute Error" for a code of the shell. A code without a text shows nothing.
void ShowShellError(int code, Prompts& prompts);

/// Opens a whiteboard file, in the program that the setting `GwbViewer` names or else in the one
/// that the desktop has for it.
void OpenGwbFile(const QString& path, const Settings& settings, Shell& shell, Prompts& prompts);

/// Whether a path is one for OpenGwbFile: it ends in "gwb", in whatever case.
bool isGwbFile(const QString& path);
