#pragma once

#include "classes/grade_columns.h"
#include "classes/grade_layout.h"
#include "classes/screens/class_view_page.h"
#include "store/engine/error.h"

#include <functional>
#include <optional>

class GradesGrid;
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
    PupilGrid* grid() const override;
    bool leave() override;
    void exportRecords() override;

private:
    LayoutToolbar* makeToolbar();
    void makeMenu();
    void openMenu(QPoint place);
    ColumnCommands commands() const;
    QStringList selectedFields() const;

    bool storeCell(const QModelIndex& cell, const QString& text);
    void tellRefusal();
    void addColumn();
    void importColumn();
    void importSheet();
    void importYear();
    QString showImported(const QStringList& titles);
    void deleteColumns();
    void renameColumn();
    void moveColumn(MoveDirection direction);
    void hideColumns();
    void goToVisibleColumn();
    void showAllColumns();
    void loadColumnWidths();
    void saveColumnWidths();
    QList<ColumnLayout> columnLayout();
    void fitColumn(int column);
    void copyToClipboard(const std::function<QString()>& makeText);
    void copyNames();
    void copyAllData();
    void copyCells();
    void paste();
    void setPanelShown(bool shown);
    void runQuery(const QString& query, bool picks);
    void showAllPupils();
    /// Lets go of the tables for a change of their structure, then shows the view again, as it was
    /// laid out. `change` answers the title of the column to be selected then, if any.
    void changeStructure(const std::function<QString()>& change);

    GradesGrid* m_grid;
    SortPanel* m_sort;
    QMenu* m_menu;
    QAction* m_sortAction = nullptr;
    QAction* m_sortButton = nullptr;
    QAction* m_import = nullptr;
    QAction* m_delete = nullptr;
    QAction* m_rename = nullptr;
    QAction* m_moveLeft = nullptr;
    QAction* m_moveRight = nullptr;
    QAction* m_hide = nullptr;
    QList<ColumnLayout>
        m_kept; ///< goes before what the settings keep, while records are shown anew
    std::optional<dao::EngineError> m_refusal; ///< of what was typed last, and where
    int m_refusedColumn = 0;
};
