#pragma once

#include <QDate>
#include <QWidget>

class DateCalendar;
class QFrame;
class QLineEdit;
class QToolButton;

/// A box for one date: a field to type it in, in the person's short form, which the empty field
/// shows, and a calendar to pick it from. In the field Up and Down go a day on and back, Page Up
/// and Page Down a month; Alt and Down, or F4, drop the calendar down, Escape folds it up.
class DateField : public QWidget {
    Q_OBJECT

public:
    enum class Style {
        DropDown, ///< the calendar drops down from the field
        Open,     ///< it stands below the field all the time
    };
    /// `name` says in words what the date is for.
    explicit DateField(const QString& name, Style style = Style::DropDown,
                       QWidget* parent = nullptr);
    ~DateField() override;

    /// The first and last date to choose from; an invalid one is no limit.
    void setRange(QDate first, QDate last);
    /// Shows a date; an invalid one empties the field.
    void setDate(QDate date);
    /// Shows the calendar of the drop-down style.
    void dropDown();
    /// The date in the field; an invalid one while it is empty, can't be read or is out of range.
    QDate date() const;
    /// Whether nothing at all stands in the field.
    bool isEmpty() const;

signals:
    /// What is no date was typed, and the field was left.
    void leftSenseless();
    /// The field has changed, by typing or picking; the date is invalid as `date` says.
    void dateChanged(QDate date);
    /// The person has settled on a date: picked it in the calendar, or typed it and pressed Enter.
    void dateChosen(QDate date);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeButton();
    void makeCalendar();
    void pick(QDate date);
    void step(int days, int months);
    bool fieldKey(int key, Qt::KeyboardModifiers modifiers);
    void fieldEdited();

    QLineEdit* m_field;
    QDate m_first{1, 1, 1};
    QDate m_last{7999, 12, 31}; ///< the last that a calendar can show
    QDate m_selected;           ///< in the calendar: the last date that stood in the field
    DateCalendar* m_calendar = nullptr;
    QToolButton* m_button = nullptr;
    QFrame* m_popup = nullptr; ///< with the calendar: made when it first drops down
};
