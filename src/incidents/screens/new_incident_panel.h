#pragma once

#include "incidents/incident_rows.h"

#include <QWidget>

#include <array>

class DateField;
class QComboBox;
class QLineEdit;
class QListWidget;
class QWidget;
class Session;

/// The panel in which a new report is entered: whom it is about, who the tutor is, the day and the
/// title. The pupil may be picked from a class of the year.
class NewIncidentPanel : public QWidget {
    Q_OBJECT

public:
    explicit NewIncidentPanel(Session& session);

    /// Begins a report of today, on a pupil with reports if one is given, and puts the keyboard
    /// where it is entered.
    void begin(const IncidentPupil* pupil);
    NewIncident incident() const;
    /// Whether the person has entered something since.
    bool isChanged() const { return incident() != m_begun; }
    /// What stands in it is kept elsewhere now, or given up.
    void setKept() { m_begun = incident(); }
    /// Fills the list of titles anew.
    void Reload_TitlesList();

signals:
    void createWanted();
    void leaveWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum Line { Forename, Surname, Tutor, LineCount };

    QWidget* makeEntries();
    QWidget* makeLists();
    QWidget* makeButtons();
    void listClasses();
    void listPupils();
    void pickPupil();

    Session& m_session;
    std::array<QLineEdit*, LineCount> m_lines{};
    DateField* m_date;
    QComboBox* m_titles;
    QListWidget* m_classes;
    QListWidget* m_pupils;
    QList<ClassPupil> m_listed;           ///< as the list of pupils has them
    std::optional<IncidentPupil> m_pupil; ///< whose name stands in the lines, as long as it does
    NewIncident m_begun;
};
