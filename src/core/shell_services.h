#pragma once

#include <QString>

class Prompts;
class Settings;
class Shell;

/// Whether a path is that of a starter of the desktop (`.desktop`).
bool isStarter(const QString& path);

/// Whether to open a file may start a program, which then does whatever it likes: it has the right
/// to be executed, begins as a script does ("#!"), or is a starter of the desktop (`.desktop`), by
/// its own name or that of the file behind a link.
bool startsProgram(const QString& path);

/// Opens a file that a link leads to or that stands in a text, and so may come from anybody. One
/// that may start a program is named, and opened only when the person agrees.
void OpenForeignFile(const QString& path, Shell& shell, Prompts& prompts);

/// Opens what a shortcut leads to: a whiteboard file by OpenGwbFile, any other by OpenForeignFile.
void OpenShortcut(const QString& path, const Settings& settings, Shell& shell, Prompts& prompts);

/// Shows the box "ShellExecute Error" for a code of the shell. A code without a text shows nothing.
void ShowShellError(int code, Prompts& prompts);

/// Opens a whiteboard file, in the program that the setting `GwbViewer` names or else in the one
/// that the desktop has for it.
void OpenGwbFile(const QString& path, const Settings& settings, Shell& shell, Prompts& prompts);
