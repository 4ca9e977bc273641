#pragma once

#include <QLabel>

/// `L1`: the caption of a day in the calendar of events. A click selects the day.
class DayCaption : public QLabel {
    Q_OBJECT

public:
    /// `gradients`: it is shaded; otherwise it has the colours of the person's scheme.
    DayCaption(int day, bool gradients, QWidget* parent);

    void showDay(const QString& caption, bool isWeekend);
    void setSelected(bool selected);

signals:
    void pressed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void colour();

    bool m_gradients;
    bool m_isWeekend = false;
    bool m_isSelected = false;
};
