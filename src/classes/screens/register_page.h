#pragma once

#include "classes/register_keys.h"
#include "classes/register_marking.h"
#include "classes/screens/class_view_page.h"

class QAction;
class QLabel;
class QMenu;
class QSplitter;
class RegisterHeader;
class SidePanel;

/// The register: a mark a pupil and lesson. A permitted key marks the current cell at once, on the
/// disk too; Return goes to the next pupil.
class RegisterPage : public ClassViewPage {
    Q_OBJECT

public:
    RegisterPage(Session& session, ClassDesk& desk);

    void showRecords() override;
    void showPupil(int row) override;
    PupilGrid* grid() const override { return m_grid; }
    bool leave() override;
    void exportRecords() override;
    void saveLook() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeSheet();
    void makeMenu();
    void showLessons();
    void showCurrentLesson();
    void makeMarkMenu();
    void enableMenus();

    bool keyPressed(QKeyEvent& event);
    bool typeMark(const QString& typed);
    void refuseKey();
    void storeCell(const QModelIndex& cell, const QString& text);
    void fill(RegisterFill what);
    void calculateAttendance();
    void lessonsRemaining();
    void showPlanning();

    void setPanelShown(bool shown);
    void placeSplitter();

    KeyArray m_keys;
    PupilGrid* m_grid;
    RegisterHeader* m_header;
    QLabel* m_info;
    QSplitter* m_splitter;
    SidePanel* m_panel;
    QMenu* m_menu;
    QMenu* m_markMenu = nullptr;
    QMenu* m_fillMenu = nullptr;
    bool m_isSplitterPlaced = false;
};
