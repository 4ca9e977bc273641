#pragma once

#include "organiser/reminder_draft.h"

#include <QWidget>

class DateField;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QPlainTextEdit;
struct EventText;
class Session;
class TimeEntry;

/// The panel in which an item is written.
class ReminderPanel : public QWidget {
    Q_OBJECT

public:
    explicit ReminderPanel(Session& session);

    /// Shows a draft, and puts the keyboard where writing begins.
    void showDraft(const ReminderDraft& draft);
    /// Writes an event into it, as if the person had: its first line is the title.
    void write(const EventText& event);
    ReminderDraft draft() const;
    /// Whether the person has changed what was shown.
    bool isChanged() const { return draft() != m_shown; }
    /// What stands in it is kept elsewhere now.
    void setKept() { m_shown = draft(); }

signals:
    void saveWanted();
    void testWanted();
    void leaveWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void makeTitle(QFormLayout& form);
    void makeTime(QFormLayout& form);
    void makeMessage(QFormLayout& form);
    QWidget* makeSound();
    QWidget* makeButtons();
    void followType();
    void listSounds(const QString& chosen);
    QString chosenSound() const;
    void browse();

    Session& m_session;
    QLineEdit* m_caption;
    DateField* m_date;
    TimeEntry* m_time;
    QCheckBox* m_daily;
    QCheckBox* m_weekly;
    QComboBox* m_type;
    QPlainTextEdit* m_message;
    QComboBox* m_sounds;
    QCheckBox* m_loops;
    ReminderDraft m_shown;
};
