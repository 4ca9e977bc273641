#pragma once

#include "core/program_settings.h"
#include "core/tool_windows.h"

#include <QList>

enum class FrameCommand;

/// A window that is opened again at the next start where it was open at the end, and the setting
/// by which that is noted.
struct StartupWindow {
    setting::OpenAtStart isOpen;
    ToolWindow window;
};

/// What the help menu shows.
enum class HelpItem { About, Contents, Search };

/// What the roads into and out of a year, and the commands, ask of the main window.
class MainFrame : public ToolWindows {
public:
    virtual void SetCaption(const QString& caption) = 0;
    /// Allows or forbids the commands that need a database, and input to every visible child.
    virtual void EnableInput(bool enable) = 0;
    /// Asks every window whether what is written in it is kept. Answers false where the person
    /// stays for what could not be; then nothing may be closed.
    virtual bool MayLeave() = 0;
    /// Unloads every window but the main one, the last loaded first.
    virtual void CloseOpenForms() = 0;
    /// Gives a command to the window it belongs to: one that has commands of its own acts on it,
    /// any other is opened. `subject` is what the command is about.
    virtual void run(ToolWindow window, FrameCommand command, const WindowSubject& subject) = 0;
    /// The loaded windows that are visible, in the order of loading.
    virtual QList<ToolWindow> visible() const = 0;
    /// The windows that are opened again at the next start, in the order of opening.
    virtual QList<StartupWindow> startupWindows() const = 0;
    virtual void DestroySplash() = 0;
    /// Unloads the main window, and with it the program.
    virtual void Unload() = 0;
    virtual void Help_Menu(HelpItem item) = 0;
};
