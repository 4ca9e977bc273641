#pragma once

#include "frame/main_frame.h"
#include "frame/screens/window_table.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

class FrameMenus;
class FrameToolbar;
class HelpViewer;
class MdiBackground;
class PlacedWidget;
class QFileSystemWatcher;
class QSessionManager;
class Session;

/// The main window: the frame of the whole program, as long as the process. It owns the tool
/// windows and knows nothing of what they do.
///
/// F6 goes from the tool windows to the toolbar and back.
class MainWindow : public QMainWindow, public MainFrame {
    Q_OBJECT

public:
    /// `windows` are the tool windows that there are.
    /// `startsByItself`: the first showing opens the default database or the wizard.
    /// `splash` shows while the program starts; the frame closes it when it stands.
    MainWindow(Session& session, WindowTable windows, bool startsByItself = true,
               QWidget* splash = nullptr);
    ~MainWindow() override;

    using QMainWindow::close;

    bool has(ToolWindow window) const override;
    void open(ToolWindow window, const WindowSubject& subject = {}) override;
    bool close(ToolWindow window) override;
    bool isOpen(ToolWindow window) const override;
    bool closeYearWindows() override;
    bool backUpNow() override;
    void archiveClass(const QString& classCode) override;
    bool writeAll() override { return MayLeave(); }
    void RunCurrentStartup() override;

    void SetCaption(const QString& caption) override;
    void EnableInput(bool enable) override;
    bool MayLeave() override;
    void CloseOpenForms() override;
    void run(ToolWindow window, FrameCommand command, const WindowSubject& subject) override;
    QList<ToolWindow> visible() const override;
    QList<StartupWindow> startupWindows() const override;
    void DestroySplash() override;
    void Unload() override;
    void Help_Menu(HelpItem item) override;

    /// The system wants the program to end: as closing does, but asks nothing, unless the year's
    /// file is gone. What could be written is.
    void Terminate();

    /// Docks the toolbar at the side that the settings say.
    void ToolbarAlign();
    /// Paints the background anew, as the settings say.
    void ShadeMDI();

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
    void removeSystemMenuItems();
    void disableRestoreButton();
    void addHelpButton();
    void makeToolbar();
    void switchFocus();
    void activateFirst();
    /// A window that is loaded.
    struct Loaded {
        const WindowEntry* entry;
        WindowSubject subject; ///< that it was made for, of a kind with many
        QWidget* holder;       ///< what stands on the screen: the window, or the frame around it
        QWidget* window;
    };
    const Loaded* find(const WindowEntry& entry, const WindowSubject& subject) const;
    const Loaded* load(const WindowEntry& entry, const WindowSubject& subject);
    void forget(const QWidget* holder);
    QWidget* hold(const WindowEntry& entry, QWidget& window);
    void addMenus(const QWidget& window) const;
    PlacedWidget placed(const Loaded& loaded) const;
    void bringForward(const Loaded& loaded);
    static void takeFocus(QWidget& window);
    void yearOpened();
    void watchYear();
    void watchYearFile();
    void followYearFile();
    void leaveDesktop(QSessionManager& manager);

    Session& m_session;
    WindowTable m_windows;
    MdiBackground* m_client;
    HelpViewer* m_help;
    FrameMenus* m_menus;
    FrameToolbar* m_toolbar;
    QPointer<QWidget> m_splash;
    bool m_startPending;
    bool m_isTerminated = false;
    QTimer m_toWatch;
    QFileSystemWatcher* m_yearFile = nullptr;
    bool m_hasToldMoved = false; ///< that the year's file is gone
    QList<Loaded> m_loaded;      ///< in the order of loading
    /// As long as it is there, windows that go are taken from that list: the last of them may go
    /// with the main window, when there is none any more.
    QObject m_listening;
};
