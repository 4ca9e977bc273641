#pragma once

#include "core/session.h"
#include "year/wizard_rules.h"
#include "year/year_answers.h"
#include "year/year_creation.h"

#include <QWidget>

#include <array>

class ActionsPage;
class ClassesPage;
class FilePage;
class QLabel;
class QPushButton;
class QStackedWidget;
class StartWeekPage;
class TeacherPage;
class TermsPage;
class TimetablePage;

/// The window that the teacher meets when no database is open: a list of what can be done, and the
/// pages that collect what a new year's file needs. It goes when a database came open; every other
/// way to close it is the Cancel button's.
///
/// Enter goes on, Escape cancels. Going back and forth keeps whatever was typed and chosen.
class StartupWizard : public QWidget {
    Q_OBJECT

public:
    explicit StartupWizard(Session& session);

    /// Goes straight to a page of the set-up, by the number of its frame: "0" is where it begins.
    void startSetup(const QString& frame);
    /// Leaves the page that is shown for the next one, if its answers pass the checks; behind the
    /// last one the file is made. A text names the frame to go to instead, without checks: "0" is
    /// where the set-up begins.
    void nextInSetup(const QString& page);
    void previousInSetup();
    void clearTimetables();
    void fillWeekA();
    void fillWeekB();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    static constexpr int Frames = 7;
    using FailureBox = OpenFailure (*)(const OpenFault&, const QString&);

    void makePages();
    QWidget* makeSetupPages();
    QLayout* makeButtons();

    void next();
    void cancel();
    void cancelSetup();
    bool asksToCancel(int flags);
    bool mayLoseAnswers();
    void cancelAll();
    void showFrame(int frame);
    bool mayLeave(int frame);
    void prepareBehind(int frame);
    void copyWeek();
    YearAnswers answers() const;

    void runAction(int action);
    void openExisting();
    void restoreBackup();
    void compact();
    void repair();
    bool openDatabase(const QString& path, FailureBox failureBox);
    void openAndLeave(const QString& path, FailureBox failureBox);
    void finishSetup();
    bool createDatabase(const QString& path, ExistingFile existing);
    void leave();

    Session& m_session;
    ActionsPage* m_actions;
    TeacherPage* m_teacher;
    ClassesPage* m_classes;
    TimetablePage* m_weekA;
    TimetablePage* m_weekB;
    TermsPage* m_terms;
    StartWeekPage* m_startWeek;
    FilePage* m_file;
    QStackedWidget* m_parts;  ///< the first page, and the set-up
    QStackedWidget* m_frames; ///< of the set-up: `f1(0)` to `f1(6)`
    QLabel* m_pageLabel;
    QPushButton* m_back;
    QPushButton* m_next;
    int m_frame = FirstPage;  ///< a SetupFrame
    YearAnswers m_unanswered; ///< what the pages have from the start
    bool m_isGivenUp = false; ///< the person has cancelled the setup, and not gone back to it
    bool m_isLeaving = false;
};
