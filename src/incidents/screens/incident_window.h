#pragma once

#include "controls/kept_writing.h"
#include "incidents/incident_rows.h"

#include <QModelIndex>
#include <QWidget>

class IncidentReportPanel;
class IncidentTreeModel;
class NewIncidentPanel;
class QAction;
class QPushButton;
class QStackedWidget;
class QTreeView;
class Session;

/// The incident reports: a tree of pupils and the dates of their reports, and beside it the
/// selected report, or the entry of a new one. What is typed is on disk two seconds later and
/// before another report is shown.
class IncidentWindow : public QWidget {
    Q_OBJECT

public:
    explicit IncidentWindow(Session& session);
    ~IncidentWindow() override;

    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* makeTreeSide();
    void makeMenus();
    void connectParts();
    void loadTreeview();
    QModelIndex selected() const;
    void selectReport(qint64 report);
    void selectionChanged();
    void showCurrent();
    void beginNew();
    void create();
    void leaveNew();
    bool mayLeaveNew();
    void deleteCurrent();
    void deletePupil();
    void deleteReport();
    void showNewPanel(bool shown);

    Session& m_session;
    IncidentTreeModel* m_model;
    QTreeView* m_tree;
    QPushButton* m_new;
    QPushButton* m_delete;
    IncidentReportPanel* m_panel;
    NewIncidentPanel* m_newPanel;
    QStackedWidget* m_pages;
    std::optional<qint64> m_shown; ///< the report in the panel
    bool m_isLoading = false;
    KeptWriting m_writing; ///< last
};
