#pragma once

#include "frame/main_frame.h"
#include "frame/screens/window_table.h"

#include <QMainWindow>
#include <QPointer>

class FrameMenus;
class FrameToolbar;
class HelpViewer;
class MdiBackground;
class PlacedWidget;
class QMdiSubWindow;
class Session;

/// The main window: the frame of the whole program, as long as the process. It owns the tool
/// windows and knows nothing of what they do.
///
/// F6 goes from the tool windows to the toolbar and back.
class MainWindow : public QMainWindow, public MainFrame {
    Q_OBJECT

public:
    /// `startsByItself`: the first showing opens the default database or the wizard.
    /// `splash` shows while the program starts; the frame closes it when it stands.
    /// `windows` are the tool windows that there are.
    explicit MainWindow(Session& session, bool startsByItself = true, QWidget* splash = nullptr,
                        WindowTable windows = windowTable());
    ~MainWindow() override;

    void SetCaption(const QString& caption) override;
    void EnableInput(bool enable) override;
    void CloseOpenForms() override;
    void ShowStartupWizard() override;
    void ShowStartupWizardSetup() override;
    void OpenForm(const QString& name) override;
    void OpenFormOn(const QString& name, const QVariant& subject) override;
    void RefreshForm(const QString& name) override;
    void CloseForm(const QString& name) override;
    void RunFormCommand(const QString& name, FrameCommand command) override;
    QStringList visibleForms() const override;
    void DestroySplash() override;
    void Unload() override;
    void ToolbarAlign() override;
    void ShadeMDI() override;
    void Help_Menu(HelpItem item) override;

    FrameMenus& menus() const { return *m_menus; }

signals:
    /// The frame stands for the first time; the start goes on behind it.
    void shown();
    /// The frame has been drawn for the first time and the start has run its course.
    void started();
    /// The person asked for help about a control.
    void helpWanted(QWidget* control);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// None: the toolbar is shown and hidden by its item in the view menu.
    QMenu* createPopupMenu() override { return nullptr; }

private:
    void RemoveSystemMenuItems();
    void DisableRestoreButton();
    void Reparent_HelpButton();
    void makeToolbar();
    void switchFocus();
    void activateFirst();
    const WindowEntry* entryOf(const QMdiSubWindow& form) const;
    QMdiSubWindow* loadedForm(const QString& name) const;
    PlacedWidget placedForm(QMdiSubWindow& form) const;
    void loadForm(const WindowEntry& entry);
    void bringForward(QMdiSubWindow& form);
    void keepPlace(QMdiSubWindow& form);

    Session& m_session;
    WindowTable m_windows;
    MdiBackground* m_client;
    HelpViewer* m_help;
    FrameMenus* m_menus;
    FrameToolbar* m_toolbar;
    QPointer<QWidget> m_splash;
    bool m_startPending;
    QList<QMdiSubWindow*> m_forms; ///< in the order of loading
};
