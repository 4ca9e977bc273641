#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

enum class FrameCommand;

/// What the help menu shows.
enum class HelpItem { About, Contents, Search };

/// What the rules ask of the main window and of the tool windows that are its children. Windows are
/// called by the system's names: `TTfrm`, `RegisterFrm`, `StartupWiz`, ...
class MainFrame {
public:
    virtual ~MainFrame() = default;

    virtual void SetCaption(const QString& caption) = 0;
    /// Allows or forbids the commands that need a database, and input to every visible child.
    virtual void EnableInput(bool enable) = 0;
    /// Unloads every window but the main one, the last loaded first.
    virtual void CloseOpenForms() = 0;
    virtual void ShowStartupWizard() = 0;
    /// The wizard on the first of its pages for a new database.
    virtual void ShowStartupWizardSetup() = 0;
    /// Loads and shows a window, or brings it to the front. Does nothing for a window that the
    /// program does not have.
    virtual void OpenForm(const QString& name) = 0;
    /// The same, and lets the window show one thing of all that it can: the class of a code in
    /// `RegisterFrm`, the sheet of a date in the planning window.
    virtual void OpenFormOn(const QString& name, const QVariant& subject) = 0;
    /// Lets a window, if it is loaded, show anew what another has changed in the file.
    virtual void RefreshForm(const QString& name) = 0;
    /// Unloads a window, if it is loaded.
    virtual void CloseForm(const QString& name) = 0;
    /// Gives a command to the window it belongs to: one that has commands of its own acts on it,
    /// any other is opened.
    virtual void RunFormCommand(const QString& name, FrameCommand command) = 0;
    /// The names of the loaded windows that are visible, in the order of loading.
    virtual QStringList visibleForms() const = 0;
    virtual void DestroySplash() = 0;
    /// Unloads the main window, and with it the program.
    virtual void Unload() = 0;
    /// Docks the toolbar at the side that the settings say.
    virtual void ToolbarAlign() = 0;
    /// Paints the background anew, as the settings say.
    virtual void ShadeMDI() = 0;
    virtual void Help_Menu(HelpItem item) = 0;
};
