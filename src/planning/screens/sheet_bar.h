#pragma once

#include <QWidget>

#include <array>

class DateField;
class DailySheets;
class QLabel;
class QToolButton;

/// The bar above a sheet: its date, the calendar to choose another from, and the buttons that go
/// from sheet to sheet. It runs the moves itself; a date that is chosen it hands on.
class SheetBar : public QWidget {
    Q_OBJECT

public:
    SheetBar(DailySheets& sheets, QWidget* parent = nullptr);

    /// Shows the date and the place of the current sheet.
    void showPosition();
    DateField& calendar() const { return *m_calendar; }

private:
    /// In the order from left to right.
    enum Button { First, Previous, Next, Last, Today, Tomorrow, ButtonCount };

    void addButton(Button button, const QString& name, const QString& icon, const QString& text);
    void addShortcut(Qt::Key key, Button button);
    void run(Button button);

    DailySheets& m_sheets;
    DateField* m_calendar;
    QLabel* m_planDate; ///< never shown: what others ask for the date of the sheet
    QLabel* m_heading;
    QLabel* m_position;
    std::array<QToolButton*, ButtonCount> m_buttons{};
};
