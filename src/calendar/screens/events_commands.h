#pragma once

#include <QObject>

class FormatTools;
class LayoutToolbar;
class QAction;
class QMenu;
class QWidget;
class Session;

/// A block of a planning sheet that belongs to the whole day.
enum class DayBlock { DinnerTime = 0, AfterSchool = 1, Notes = 2 };

/// The commands of the calendar of events apart from those for writing: its menu, the toolbar
/// "Options" and what the edit menu has for a selection. A command of a window that the program
/// does not have is in none of them.
class EventsCommands : public QObject {
    Q_OBJECT

public:
    /// `window` owns the menu. The menu begins with the list of the months.
    EventsCommands(const Session& session, FormatTools& tools, QMenu& months, QWidget& window);

    QMenu* menu() const { return m_menu; }
    LayoutToolbar* toolbar() const { return m_toolbar; }
    QAction* showHolidays() const { return m_showHolidays; }
    /// What needs a selected day can be done, or not.
    void setHasDay(bool hasDay);

signals:
    void planningWanted();
    void importWanted();
    void mailImportWanted();
    void postWanted(DayBlock block);
    void scheduleWanted();

private:
    void makeToolbar(const Session& session, QWidget& window);
    void makeMenu(const Session& session, QMenu& months);
    void addPosts(const Session& session, FormatTools& tools);

    QMenu* m_menu;
    LayoutToolbar* m_toolbar = nullptr;
    QAction* m_showPlanning = nullptr;
    QAction* m_showHolidays = nullptr;
    QAction* m_import = nullptr;
    QAction* m_mailImport = nullptr;
};
