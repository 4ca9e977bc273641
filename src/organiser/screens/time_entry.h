#pragma once

#include "organiser/twelve_hours.h"

#include <QFrame>

#include <array>
#include <optional>

class QLabel;

/// A box for a time of day as three labels, hour, minute and AM or PM. A click on one, or Tab to
/// the box, marks it; the arrow keys, the two spin buttons and digits change what is marked, Left
/// and Right go to the neighbour, A and P choose the half of the day.
class TimeEntry : public QFrame {
    Q_OBJECT

public:
    explicit TimeEntry(QWidget* parent = nullptr);

    QTime time() const { return m_time.time(); }
    void setTime(QTime time);
    /// Marks nothing any more.
    void ClearTimeFormat();

signals:
    void changed(); ///< by the person

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeSpinButtons();
    void mark(std::optional<TwelveHours::Part> part);
    void step(int direction);
    bool moveKey(int key);
    bool typeKey(const QString& text);
    void typeDigit(int digit);
    void showTime();
    void showMark();

    TwelveHours m_time;
    std::array<QLabel*, 3> m_labels{};
    std::optional<TwelveHours::Part> m_marked;
    int m_typed = 0; ///< the digit that was typed before for what is marked
};
