#pragma once

#include "organiser/schedule_rows.h"

#include <QDialog>

class QLabel;
class QPushButton;
class Session;

/// A reminder on the screen: its message, in the person's colours, and its sound. It takes the
/// keyboard from nobody; its entry on the desktop's bar asks for attention until it is looked at.
/// It goes with the year.
class ReminderWindow : public QDialog {
    Q_OBJECT

public:
    ReminderWindow(Session& session, const ScheduleItem& item);
    ~ReminderWindow() override;

    /// Shows a new one, which goes by itself when it is closed. Also over a window that waits for
    /// the person, and usable there.
    static void present(Session& session, const ScheduleItem& item);

private:
    void makeParts();
    void fit();
    void play(const ScheduleItem& item);

    Session& m_session;
    QLabel* m_memo;
    QPushButton* m_ok;
    bool m_loops = false; ///< its sound, until it is over or stopped
};
