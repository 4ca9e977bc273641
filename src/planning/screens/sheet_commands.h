#pragma once

#include "core/tool_windows.h"
#include "planning/sheet_events.h"

#include <QHash>
#include <QObject>

class FormatTools;
class LayoutToolbar;
class QAction;
class QMenu;
class QWidget;
class Session;

/// What is shown, as the commands depend on it.
struct SheetState {
    bool isThere;
    int period; ///< the selected one; 0 for none
    bool hasClass;
    bool isPlanOpen; ///< a short term plan lies over the sheet
};

/// The commands of a daily sheet apart from those for writing: the Planning menu, the popup of a
/// period's heading, the toolbar "ORVA_Btns" and the events in the edit menu. A command of a window
/// that the program does not have is in none of them.
class SheetCommands : public QObject {
    Q_OBJECT

public:
    /// `window` owns the menus and hears the shortcuts.
    SheetCommands(Session& session, FormatTools& tools, QWidget& window);

    QMenu* planningMenu() const { return m_planningMenu; }
    QMenu* periodMenu() const { return m_periodMenu; }
    LayoutToolbar* toolbar() const { return m_toolbar; }
    /// Lays a lesson over the whole sheet, and puts it back.
    QAction* maximise() const { return m_maximise; }

    /// Says what can be done, by what is shown.
    void enable(const SheetState& sheet);

signals:
    void createWanted();
    void todayWanted();
    void tomorrowWanted();
    void deleteWanted();
    void maximiseWanted();
    void planToggled();    ///< the short term plan of the selected period is to open or to close
    void registerWanted(); ///< of the selected period's class
    void historyWanted();  ///< of the same
    void eventWanted(SheetEvent event);
    /// A document of the sheet is to be made.
    void quickPlanWanted();
    void shortTermPlanWanted(); ///< of the selected period
    void coverSheetsWanted();

private:
    void makePlanningMenu(QWidget& window);
    void makePeriodMenu(QWidget& window);
    void makeExportMenu(QWidget& window);
    void makeToolbar(QWidget& window);
    void addEvents();
    void makeWindowActions();

    Session& m_session;
    FormatTools& m_tools;
    QMenu* m_planningMenu = nullptr;
    QMenu* m_periodMenu = nullptr;
    QMenu* m_exportMenu = nullptr;
    LayoutToolbar* m_toolbar = nullptr;
    QAction* m_maximise = nullptr;
    QAction* m_delete = nullptr;
    QAction* m_exportPlan = nullptr;
    QAction* m_properties = nullptr;
    QAction* m_propertiesButton = nullptr;
    QHash<ToolWindow, QAction*> m_windowActions; ///< by the window that they open
};
