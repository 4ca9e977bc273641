#pragma once

#include <QList>
#include <QString>

/// The tasks that the class window's first page lists.
enum class ClassTask { AddPupil, CreateClass, ImportList, DeletePupil, DeleteClass, Export };

struct ClassTaskEntry {
    ClassTask task;
    QString caption;
    QString hint; ///< shown while the task is selected; may be empty
};

/// In the order of the list.
const QList<ClassTaskEntry>& classTasks();
