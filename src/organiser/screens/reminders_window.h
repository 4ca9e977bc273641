#pragma once

#include "core/tool_windows.h"
#include "organiser/schedule_list.h"

#include <QWidget>

#include <functional>
#include <optional>

class QLabel;
class QPushButton;
class QStackedWidget;
class QTableView;
class QVBoxLayout;
class LayoutToolbar;
class ReminderPanel;
struct ReminderDraft;
class Session;

/// The editing window of the reminders: at the left what can be done and what the selected item
/// says, at the right the list, or the panel in which one is written.
class RemindersWindow : public QWidget {
    Q_OBJECT

public:
    explicit RemindersWindow(Session& session);

    /// Begins a new item for an event of the calendar. Nothing where the person stays with another
    /// that is not saved.
    void scheduleEvent(const EventText& event);
    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* makePane();
    void makeItemEntries(QVBoxLayout& pane);
    void makeColourEntries(QVBoxLayout& pane);
    void makeDetails(QVBoxLayout& pane);
    QWidget* makeListPage();
    QPushButton* addEntry(QVBoxLayout& section, const QString& name, const QString& icon,
                          const QString& text, const std::function<void()>& act);
    void connectParts();

    bool reload(const std::function<void()>& work);
    void Reload_Recordset(ScheduleMode mode);
    void listChanged();
    void showAll();
    void showToggled(qsizetype button, bool isDown);
    int currentPlace() const;
    void select(int place);
    void showDetails();
    void showColours();
    void chooseColour(qint32& colour);
    void saveColours();

    void edit(const ReminderDraft& draft, std::optional<int> place);
    void addNew();
    void SetEditMode();
    bool mayLeavePanel();
    bool leavePanel();
    void showList();
    bool save();
    void testItem();
    void remove();

    Session& m_session;
    ScheduleList* m_list;
    QTableView* m_grid;
    ReminderPanel* m_panel;
    QStackedWidget* m_pages;
    LayoutToolbar* m_toolbar = nullptr;
    QPushButton* m_edit = nullptr;
    QPushButton* m_delete = nullptr;
    QPushButton* m_colourButtons[2] = {};
    QLabel* m_details = nullptr;
    qint32 m_backColour;
    qint32 m_fontColour;
    std::optional<int> m_edited; ///< the place of the item in the panel; none for a new one
    bool m_isReading = false;
    bool m_isStale = false; ///< the rows have changed while the panel stood
};
