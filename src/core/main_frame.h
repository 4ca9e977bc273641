#pragma once

#include <QString>
#include <QStringList>

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
    /// The names of the loaded windows that are visible, in the order of loading.
    virtual QStringList visibleForms() const = 0;
    virtual void DestroySplash() = 0;
};
