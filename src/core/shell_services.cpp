#include "core/shell_services.h"

#include "core/core_settings.h"
#include "core/prompts.h"
#include "core/settings.h"
#include "core/shell.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

constexpr int NoApplication = 31;

QString shellErrorText(int code) {
    switch (code) {
    case 0:
        return u"The operating system is out of memory or resources."_s;
    case 2:
        return u"The specified file was not found."_s;
    case 3:
        return u"The specified path was not found."_s;
    case 5:
        return u"The operating system denied access to the specified file."_s;
    case 8:
        return u"There was not enough memory to complete the operation."_s;
    case 11:
        return u"The .exe file is invalid (non-Win32® .exe or error in .exe image)."_s;
    case 26:
        return u"A sharing violation occurred."_s;
    case 27:
        return u"The file name association is incomplete or invalid."_s;
    case 28:
        return u"The DDE transaction could not be completed because the request timed out."_s;
    case 29:
        return u"The DDE transaction failed."_s;
    case 30:
        return u"The DDE transaction could not be completed because other DDE transactions were "
               "being processed."_s;
    case NoApplication:
        return u"There is no application associated with the given file name extension."_s;
    case 32:
        return u"The specified dynamic-link library was not found."_s;
    default:
        return {};
    }
}

/// A path as one parameter of a command line.
QString quotedParameter(QString path) {
    return u'"' + path.replace(u'"', u"\"\"\""_s) + u'"';
}

bool isGwbFile(const QString& path) {
    return path.endsWith(u"gwb"_s, Qt::CaseInsensitive);
}

bool isScript(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(2) == "#!";
}

} // namespace

bool isStarter(const QString& path) {
    return path.endsWith(u".desktop"_s, Qt::CaseInsensitive);
}

bool startsProgram(const QString& path) {
    const QFileInfo file(path);
    return file.isFile() && (file.isExecutable() || isStarter(path) ||
                             isStarter(file.canonicalFilePath()) || isScript(path));
}

void OpenForeignFile(const QString& path, Shell& shell, Prompts& prompts) {
    if (startsProgram(path)) {
        const BoxAnswer answer = prompts.msg_Box(
            u"To open this file may start a program, which can then do whatever you can do on this "
            "computer:\n\n%1\n\nDo you trust it, and wish to open it?"_s.arg(path),
            YesNoButtons | WarningIcon | SecondButtonDefault, u"Start a program"_s);
        if (answer != AnswerYes)
            return;
    }
    shell.ShellRun(u"Open"_s, path);
}

void OpenShortcut(const QString& path, const Settings& settings, Shell& shell, Prompts& prompts) {
    if (isGwbFile(path))
        OpenGwbFile(path, settings, shell, prompts);
    else
        OpenForeignFile(path, shell, prompts);
}

void ShowShellError(int code, Prompts& prompts) {
    const QString text = shellErrorText(code);
    if (!text.isEmpty())
        prompts.PlainBox(text, OkButton | WarningIcon, u"ShellExecute Error"_s);
}

void OpenGwbFile(const QString& path, const Settings& settings, Shell& shell, Prompts& prompts) {
    const QString viewer = settings.get(setting::GwbViewer);
    if (viewer.isEmpty())
        OpenForeignFile(path, shell, prompts);
    else if (QStandardPaths::findExecutable(viewer).isEmpty())
        ShowShellError(NoApplication, prompts);
    else
        shell.ShellRun(u"Open"_s, viewer, quotedParameter(path));
}
