#pragma once

#include "classes/class_tasks.h"
#include "classes/class_views.h"

#include <QWidget>

class ClassDesk;
class QLabel;
class QListWidget;

/// The first page of the class window: the classes, the ways to the four views, and the tasks on a
/// class as a whole.
class ClassHomePage : public QWidget {
    Q_OBJECT

public:
    explicit ClassHomePage(ClassDesk& desk);

    /// Lists the desk's classes, in their colours, and selects the desk's.
    void showClasses();
    void selectFirstTask();

signals:
    void classWanted(const QString& classCode);
    void viewWanted(ClassView view);
    /// `withCtrl`: Ctrl was held.
    void taskWanted(ClassTask task, bool withCtrl);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeClassList();
    QWidget* makeViewButtons();
    QWidget* makeTasks();
    void runTask();
    void showHint();

    ClassDesk& m_desk;
    QListWidget* m_classes;
    QListWidget* m_tasks;
    QLabel* m_hint;
};
