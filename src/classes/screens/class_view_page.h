#pragma once

#include "classes/class_desk.h"

#include <QWidget>

class PupilGrid;

/// One of the four views of the class window, as the window knows it: it shows the records that
/// the desk has opened for it.
class ClassViewPage : public QWidget {
    Q_OBJECT

public:
    ClassViewPage(Session& session, ClassDesk& desk) : m_session(session), m_desk(desk) {}

    /// The desk has opened records for this view, which comes to the front. Raises what the engine
    /// raises.
    virtual void showRecords() = 0;
    /// Another pupil is the current one, or the same in new records; -1 is nobody.
    virtual void showPupil(int row) = 0;
    /// The grid that moves together with the list of names; null for a view without one.
    virtual PupilGrid* grid() const { return nullptr; }
    /// Writes what has been typed, before the pupil, the view or the window is left. Answers false
    /// where that failed and the person, who has been told, has to stay.
    virtual bool leave() { return true; }
    /// Writes what the view shows to a spreadsheet, where the person wants that. What was typed has
    /// been left before.
    virtual void exportRecords() = 0;
    /// The window closes: what the view keeps of its look goes to the settings.
    virtual void saveLook() {}

signals:
    /// The pupils or the columns have changed: the view is to be shown again.
    void recordsChanged();
    /// The desk has other records for this view, of other pupils or in another order.
    void recordsShown();

protected:
    Session& session() const { return m_session; }
    ClassDesk& desk() const { return m_desk; }

private:
    Session& m_session;
    ClassDesk& m_desk;
};
