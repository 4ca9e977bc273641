#pragma once

#include "core/font_record.h"

#include <QList>
#include <QWidget>

class QComboBox;
class QFrame;
class QLabel;
class TimetableCellLabel;
class TimetableGrid;
struct TimetableYear;

/// `Picture2`: the grid of the timetable as it is seen, with its headings, the lines of the breaks,
/// the list of the weeks and the frame around the selected cell. The arrow keys, Home and End move
/// the selection; F2 and Enter ask for the editor.
class TimetablePanel : public QWidget {
    Q_OBJECT

public:
    /// `gradients`: the headings are shaded.
    TimetablePanel(const TimetableYear& year, const FontRecord& font, bool gradients);

    QComboBox& weekList() const { return *m_weeks; }
    void showGrid(const TimetableGrid& grid);
    /// Moves the selection frame.
    void selectCell(int day, int period);
    int selectedDay() const { return m_day; }
    int selectedPeriod() const { return m_period; }
    /// The selected cell; null in a year without periods.
    TimetableCellLabel* selectedLabel() const;
    /// The grid as it stands, without the selection frame.
    QImage picture();

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

signals:
    void cellPressed(int day, int period);
    void backgroundPressed();
    void editWanted();
    void menuWanted(QPoint place);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QLabel* makeHeading(const QString& name, const QString& text);
    void makeCells();
    void makeBreaks(const TimetableYear& year);
    void layOut();
    void placeFrame();
    void shadeCaptions();
    void colour();
    QRect cellRect(int column, int row) const;
    TimetableCellLabel* label(int day, int period) const;

    struct Break {
        int row; ///< the row at whose top the line is, from 0
        QWidget* line;
    };

    int m_periods;
    QFont m_font;
    QColor m_textWish;
    bool m_gradients;
    QComboBox* m_weeks;
    QLabel* m_corner;
    QList<QLabel*> m_dayHeadings;
    QList<QLabel*> m_periodHeadings;
    QList<TimetableCellLabel*> m_cells; ///< period by period, the days side by side
    QList<Break> m_breaks;
    QFrame* m_frame;
    int m_day = 1;
    int m_period = 1;
};
