#pragma once

#include "year/year_answers.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QLineEdit;

/// The pages of StartupWizard that ask for single answers; startupwiz_lists.h has those with lists.
/// Each page takes the focus for its first field and writes what was answered into YearAnswers.

/// The list of what the program can do without an open year. Where years were opened before, to
/// open one is its first line, and the last of them is chosen.
class ActionsPage : public QWidget {
    Q_OBJECT

public:
    /// The texts in the order of StartupAction; the paths of the years, the newest first.
    ActionsPage(const QStringList& actions, const QStringList& recentYears);
    int action() const; ///< a StartupAction
    void setAction(int action);
    /// The path of the year that is chosen to be opened; empty where there were none.
    QString chosenYear() const;

signals:
    void activated(); ///< by a double click
    void otherYearWanted();

private:
    void addLine(int action, const QString& text);
    QWidget* makeYears(const QStringList& recentYears);

    QListWidget* m_actions;
    QComboBox* m_years;
};

/// Who teaches, when, in how many periods and weeks.
class TeacherPage : public QWidget {
    Q_OBJECT

public:
    explicit TeacherPage(QDate today);
    void putInto(YearAnswers& answers) const;
    /// Puts the cursor where an answer is wrong.
    void focusOn(const QString& answer);

private:
    QComboBox* m_title;
    QLineEdit* m_name;
    QComboBox* m_year;
    QComboBox* m_periods;
    QCheckBox* m_twoWeeks;
};

/// Which of the two timetables the first week has.
class StartWeekPage : public QWidget {
    Q_OBJECT

public:
    StartWeekPage();
    void setQuestion(const QString& question);
    void putInto(YearAnswers& answers) const;

private:
    QLabel* m_question;
    QComboBox* m_letter;
};
