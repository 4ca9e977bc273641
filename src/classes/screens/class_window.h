#pragma once

#include "classes/class_desk.h"
#include "classes/class_tasks.h"
#include "classes/grade_layout.h"

#include <QHash>
#include <QWidget>

#include <functional>

class ClassHomePage;
class ClassViewPage;
class LayoutToolbar;
class NameList;
class QAction;
class QComboBox;
class QStackedWidget;
class QToolButton;

/// The class window: the frame around the list of names, its first page and the four views, one
/// file each. It says which view shows; what a view does is the view's.
class ClassWindow : public QWidget {
    Q_OBJECT

public:
    explicit ClassWindow(Session& session);
    ~ClassWindow() override;

    /// Shows a class's register, for other windows. Nothing for a code that is no class's.
    void AutoRegistration(const QString& classCode);
    void showView(ClassView view);
    void showFirstPage();

    ClassDesk& desk() { return m_desk; }
    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeParts();
    void makePages();
    LayoutToolbar* makeToolbar();
    QWidget* makeSelector();
    void load();
    void showClasses();
    void selectClass(const QString& classCode);
    void wantView(ClassView view);
    void wantViewOfPupils(ClassView view);
    void viewShown();
    void colourSelector();
    void exportView();
    void exportDetails();
    void toggleMultiselect();
    void showMultiselect();
    bool leaveView();
    ClassViewPage* page() const;
    void showRecords();
    void showCurrentPupil();
    LayoutKind layoutKind() const;
    void setRowHeight(int pixels);

    void runTask(ClassTask task, bool withCtrl);
    void addPupil();
    void createClass();
    void importList();
    void deletePupil(bool all);
    void deleteClass();
    bool trying(const std::function<void()>& work);

    Session& m_session;
    ClassDesk m_desk;
    QComboBox* m_selector = nullptr;
    QToolButton* m_home = nullptr;
    LayoutToolbar* m_toolbar = nullptr;
    NameList* m_names = nullptr;
    QStackedWidget* m_pages = nullptr;
    ClassHomePage* m_first = nullptr;
    QHash<int, ClassViewPage*> m_views; ///< by their ClassView
};
