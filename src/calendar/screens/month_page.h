#pragma once

#include "calendar/event_months.h"
#include "core/font_record.h"

#include <QColor>
#include <QWidget>

#include <vector>

class DayBox;
class DayCaption;

/// `Pinner`: the days of a month, a caption and a box each, one below the other. At most one day is
/// selected, and the box of at most one has grown over those below it.
class MonthPage : public QWidget {
    Q_OBJECT

public:
    /// `gradients`: the captions are shaded.
    explicit MonthPage(bool gradients, QWidget* parent = nullptr);
    ~MonthPage() override;

    /// Days count from 1, to DaysOfCalendar. Their order is that of Tab.
    DayBox& box(int day) const { return *m_days.at(static_cast<size_t>(day - 1)).box; }
    DayCaption& caption(int day) const { return *m_days.at(static_cast<size_t>(day - 1)).caption; }
    /// The font for new text, for a line of which a box has room.
    void setNewTextFont(const FontRecord& font);

    /// Shows the days of a month, what stands in their boxes apart. None is selected then.
    void showMonth(const EventMonths& month);
    void showGround(int day, const QColor& colour);

    int selectedDay() const { return m_selected; } ///< 0 is none
    void selectDay(int day);
    /// Selects a day and puts the caret into its box.
    void enterDay(int day);
    /// The box that has grown goes back into its line.
    void RestoreExtendedEditbox();

    QSize sizeHint() const override;

signals:
    void daySelected(int day);
    void boxGrown(int day);
    /// The keys lead out of the month, to the one before (-1) or behind (1) it.
    void monthWanted(int step);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Day {
        DayCaption* caption;
        DayBox* box;
        QColor ground = Qt::white;
    };
    void addDay(int day, bool gradients);
    void step(int from, int by);
    void grow(int day);
    void measure();
    void measureCaptions();
    void layOut();

    std::vector<Day> m_days;
    int m_shown = 0; ///< so many days
    int m_selected = 0;
    int m_grown = 0; ///< the day whose box has grown; 0 is none
    int m_lineHeight = 0;
    int m_captionWidth = 0;
    FontRecord m_newTextFont;
};
