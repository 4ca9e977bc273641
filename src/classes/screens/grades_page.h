#pragma once

#include "classes/grade_columns.h"
#include "classes/screens/class_view_page.h"

#include <functional>

class LayoutToolbar;
class QAction;
class QMenu;
class SortPanel;

/// The grades: a column for each piece of work, of the teacher's own making.
class GradesPage : public ClassViewPage {
    Q_OBJECT

public:
    GradesPage(Session& session, ClassDesk& desk);

    void showRecords() override;
    void showPupil(int row) override;
    PupilGrid* grid() const override { return m_grid; }
    bool leave() override;

private:
    LayoutToolbar* makeToolbar();
    void makeMenu();
    void openMenu(QPoint place);
    ColumnCommands commands() const;
    QStringList selectedFields() const;

    void storeCell(const QModelIndex& cell, const QString& text);
    void addColumn();
    void deleteColumns();
    void renameColumn();
    void moveColumn(MoveDirection direction);
    void hideColumns();
    void goToVisibleColumn();
    void showAllColumns();
    void loadColumnWidths();
    void saveColumnWidths();
    void fitColumn(int column);
    void copyToClipboard(const std::function<QString()>& makeText);
    void copyNames();
    void copyAllData();
    void setPanelShown(bool shown);
    void runQuery(const QString& query, bool picks);
    /// Lets go of the tables for a change of their structure, then shows the view again, with a
    /// column selected that has its title there.
    void changeStructure(const std::function<void()>& change, const QString& select = {});

    PupilGrid* m_grid;
    SortPanel* m_sort;
    QMenu* m_menu;
    QAction* m_sortAction = nullptr;
    QAction* m_sortButton = nullptr;
    QAction* m_delete = nullptr;
    QAction* m_rename = nullptr;
    QAction* m_moveLeft = nullptr;
    QAction* m_moveRight = nullptr;
    QAction* m_hide = nullptr;
    bool m_keepsLayout = false; ///< while other records of the same columns are shown
};
