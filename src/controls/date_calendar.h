#pragma once

#include <QCalendarWidget>

/// The calendar of every window that chooses a date: weeks from Sunday, driven by the arrow and
/// page keys, its parts named for screen readers.
class DateCalendar : public QCalendarWidget {
    Q_OBJECT

public:
    /// `name` says in words what the date is for: "Date to start from".
    explicit DateCalendar(const QString& name, QWidget* parent = nullptr);

    /// Whether the selected date is one that the person has chosen, as it is at first. If not it
    /// does not look so.
    void setChosen(bool chosen);

protected:
    void changeEvent(QEvent* event) override;

private:
    void nameParts(const QString& name);
    void describeSelection();

    bool m_isChosen = true;
};
