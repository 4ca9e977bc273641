#pragma once

#include "seating/desk_designer.h"
#include "seating/plan_editor.h"
#include "seating/plan_making.h"
#include "seating/plan_tables.h"

#include <QWidget>

class DeskCanvas;
class LayoutToolbar;
class QAction;
class QComboBox;
class QLabel;
class QScrollArea;
class QToolButton;
class SeatingSidePanel;
class Session;

/// The seating plans: the desks of a class in a room, as they stand there. What is changed is in
/// the file when it is saved; until then it can be undone.
class SeatingPlanWindow : public QWidget, private DeskEvents {
    Q_OBJECT

public:
    explicit SeatingPlanWindow(Session& session);
    ~SeatingPlanWindow() override;

    QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeBar();
    QWidget* makeToolbars();
    void makeMenus();
    void connectParts();
    void connectToolbars();
    void EventBeforeEdit(qint64 desk, bool& cancel) override;

    void GetClassLists();
    void selectClass(const QString& classCode);
    void selectPlan(int entry);
    void showRoom(const QString& room);
    void OpenExistingPlan();
    void listPlans(const QStringList& plans);
    void SaveCurrentPlan();
    void Reset_Toolbars();
    void DrawTools();
    void showDesks();
    void showLook();
    void showTitle();
    void followPupils(const QString& classCode);
    void followClasses();

    void savePicture();
    void regenerate();
    void AddEmptyDesk();
    void DeleteEmptyDesk();
    void Shuffle_Desks();
    void copyLayout();
    void createPlan();
    void deletePlan();
    Classroom classroom() const;
    bool hasPlan() const { return !m_plan.classCode.isEmpty(); }

    Session& m_session;
    PlanEditor m_editor;
    QList<SeatedPupil> m_pupils; ///< of the class
    PlanName m_plan;             ///< that is shown; without a class none
    DeskCanvas* m_canvas;
    QScrollArea* m_scroll;
    SeatingSidePanel* m_side;
    QComboBox* m_classes;
    QComboBox* m_plans;
    QLabel* m_lag;
    QToolButton* m_save;
    QToolButton* m_delete;
    LayoutToolbar* m_planTools;
    LayoutToolbar* m_dragTools;
    LayoutToolbar* m_layoutTools;
    bool m_isShown = false;
};
