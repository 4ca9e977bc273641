#pragma once

#include <QObject>
#include <QString>

/// Tells what has changed in the open year, so that no window needs to know another. Whoever has
/// changed something says so here once it is in the file. A window that shows such things writes
/// first what was typed in it, and then shows the file anew.
class Notices : public QObject {
    Q_OBJECT

signals:
    void yearOpened();  ///< the session has a year now
    void yearMoved();   ///< it goes on in another file
    void yearClosing(); ///< its windows have gone, its file is closed next

    void classesChanged(); ///< classes have come or gone, or look different
    void pupilsChanged(const QString& classCode);
    void sheetsChanged(); ///< rows of `Planning`, by what is no planning sheet's window
    void eventsChanged(); ///< the calendar of events
    void yearStarted();   ///< it was opened, and so were its windows of the last run
    /// Rows of `Schedules` have changed, or were read anew by their window.
    void remindersChanged();
    void postItsDeleted(); ///< all of them; their windows go
    /// A period was selected on the daily sheet, or none: the session's current class and date.
    void currentClassChanged();
};
