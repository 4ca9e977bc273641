#pragma once

#include <QDate>
#include <QWidget>

class DateField;
class EventMonths;
class QLabel;
class QMenu;

/// The line above a month page: the month before and behind, the heading, the list of the months
/// and the date control.
class EventsBar : public QWidget {
    Q_OBJECT

public:
    explicit EventsBar(const EventMonths& months, QWidget* parent = nullptr);

    QMenu* monthMenu() const { return m_monthMenu; }
    /// Shows which month stands on the page.
    void showMonth();
    /// Shows a day of it as the one that is selected; 0 for none.
    void showDay(int day);

signals:
    void neighbourWanted(int step); ///< -1 or 1
    void monthWanted(int month);    ///< from 1
    void dateWanted(QDate date);

private:
    QWidget* makeMoveButton(int element, const QString& iconName, const QString& tip, int step);
    QWidget* makeMonthButton();

    const EventMonths& m_months;
    int m_day = 0;
    QLabel* m_heading;
    QMenu* m_monthMenu;
    DateField* m_date;
};
