#pragma once

#include "year/year_answers.h"

#include <QListWidget>
#include <QWidget>

#include <array>

class DateField;
class QComboBox;
class QPushButton;
class RestrictedEdit;
class Session;

/// The pages of StartupWizard that fill lists. Each takes the focus for its first field and writes
/// what was answered into YearAnswers.

/// The class codes.
class ClassesPage : public QWidget {
    Q_OBJECT

public:
    explicit ClassesPage(Prompts& prompts);
    void putInto(YearAnswers& answers) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addClass();
    void removeClass();
    QStringList classes() const;

    Prompts& m_prompts;
    RestrictedEdit* m_code;
    QListWidget* m_classes;
};

/// The periods of one day: a row each with the class taught in it, empty for a free one. Space, or
/// a click, asks for the row under it to be changed; Left and Right are left to the page.
class PeriodList : public QListWidget {
    Q_OBJECT

public:
    /// `day` is what a screen reader calls the list.
    explicit PeriodList(const QString& day);
    void addPeriod(const QString& text);
    void setPeriod(int row, const QString& text);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void chosen();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

/// The timetable of a week: a list a day, and the class that a choice puts in.
class TimetablePage : public QWidget {
    Q_OBJECT

public:
    explicit TimetablePage(QChar letter);

    /// Clears the lists of the week. What was chosen is kept for the next loading.
    void clearTimetables();
    /// Builds the lists with so many rows, and fills the class picker. Rows and classes that went
    /// and come back have what was chosen before.
    void fill(int periods, const QStringList& classes);
    WeekTimetable week() const;
    /// Chooses all rows as in another week.
    void setWeek(const WeekTimetable& week);
    /// Whether no class is taught in any row.
    bool isFree() const;

signals:
    /// Week A is to be copied to this one, week B.
    void copyWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    static constexpr int Days = 5;

    void makeLists(QChar letter);
    /// Sets the current row of a day to the class picked, or clears it when that is there already.
    void selectPeriod(int day);
    void choose(size_t day, int row, const QString& text);
    void moveToDay(int day, int row);

    QComboBox* m_class;
    PeriodList* m_numbers;
    std::array<PeriodList*, Days> m_lists{};
    WeekTimetable m_chosen; ///< of each day, for all periods that ever had a row
};

/// The teaching periods.
class TermsPage : public QWidget {
    Q_OBJECT

public:
    explicit TermsPage(Session& session);
    void putInto(YearAnswers& answers) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPushButton* makeButton(const QString& objectName, const QString& caption,
                            void (TermsPage::*command)());
    void addPeriod();
    /// Puts a period into the list, in the order of the year.
    void insert(const DatePeriod& period);
    void removePeriod();
    void importPeriods();

    Session& m_session;
    DateField* m_first;
    DateField* m_last;
    QListWidget* m_periods;
};
