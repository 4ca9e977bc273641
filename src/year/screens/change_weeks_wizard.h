#pragma once

#include <QDate>
#include <QDialog>
#include <QList>

class QLabel;
class QListWidget;
class WizardButtons;
class QStackedWidget;
class Session;

/// The Change Week Allocations Wizard: what it is for, then the week, then the change is made.
/// Modal, since nothing else may work on the year meanwhile.
///
/// Enter goes on, Escape cancels, which it asks about.
class ChangeWeeksWizard : public QDialog {
    Q_OBJECT

public:
    /// Raises what the engine raises where the year can't be read.
    explicit ChangeWeeksWizard(Session& session, QWidget* parent = nullptr);

    void next();
    void previous();
    void reject() override;

private:
    QWidget* makeExplanation();
    QWidget* makeWeekPage();
    void showPage(int page);
    void showWeek();
    void finish();
    /// The teaching week that is picked; 0 for none.
    short pickedWeek() const;

    Session& m_session;
    QList<QDate> m_starts; ///< of the teaching weeks
    QStackedWidget* m_pages;
    QListWidget* m_weeks = nullptr;
    QLabel* m_summary = nullptr;
    WizardButtons* m_buttons;
};

/// Shows the wizard over the open year and waits for its end. A year that can't be read is told.
void showChangeWeeksWizard(Session& session);
