#pragma once

#include "frame/frame_commands.h"

#include <QList>
#include <QMap>
#include <QObject>

class MainFrame;
class QAction;
class QMenu;
class QMenuBar;
class QWidget;

/// The actions and menus of the main window, made from the tables of core/frame_commands.h. Every
/// command has one action, whatever menu shows it.
class FrameMenus : public QObject {
    Q_OBJECT

public:
    /// `frame` does what the commands say; `window`, the same, owns the menus and has the keys.
    FrameMenus(Session& session, MainFrame& frame, WindowTest has, QWidget& window);

    /// Puts the menus in front of those that a bar has.
    void addTo(QMenuBar& bar) const;
    QAction& action(FrameCommand command) const { return *m_actions[command]; }
    /// The menu of a popup of the toolbar.
    QMenu& popup(FrameCommand popup);
    /// Allows or forbids the commands that need a database, as the open one has what they need.
    void EnableInput(bool enable);

private:
    void makeActions(QWidget& window);
    void addSeparator(QMenu& menu);
    QMenu* makeMenu(const MenuEntry& entry);
    void listRecentYears(QMenu& menu);

    Session& m_session;
    MainFrame& m_frame;
    WindowTest m_has;
    QWidget& m_window;
    QMap<FrameCommand, QAction*> m_actions;
    QMap<FrameCommand, QMenu*> m_popups;
    QList<QMenu*> m_menus;
    QList<QAction*> m_recentYears; ///< of the file menu, with the separator behind them
};
