#pragma once

#include "classes/new_class.h"

#include <QDialog>

class ClassWeekGrid;
class QLabel;
class QListWidget;
class QPushButton;
class QStackedWidget;
class RestrictedEdit;
class Session;

/// The New Class Wizard: a code, then the periods, then the class is made. Modal.
class NewClassWizard : public QDialog {
    Q_OBJECT

public:
    /// Raises what the engine raises where the year can't be read.
    explicit NewClassWizard(Session& session, QWidget* parent = nullptr);

    /// The code of the class that was made; empty for none.
    const QString& createdClass() const { return m_created; }

    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QWidget* makeCodePage();
    QWidget* makeTimetablePage(int page, QChar letter);
    QWidget* makeButtons();
    void next();
    void previous();
    void toggle(QChar letter, int index);
    void showPage();

    Session& m_session;
    NewClass m_answers;
    QString m_created;
    RestrictedEdit* m_code = nullptr;
    QLabel* m_title;
    QLabel* m_help;
    QStackedWidget* m_pages;
    QList<ClassWeekGrid*> m_grids; ///< week A, week B
    QPushButton* m_previous = nullptr;
    QPushButton* m_next = nullptr;
};
