#pragma once

#include <QLabel>

struct TimetableCell;

/// The main label of a cell of the timetable with the room label at its foot: shows the caption on
/// the cell's colour, wrapped, and as much of it as there is room for. It can have the focus, so
/// that the keyboard and a screen reader reach every cell.
class TimetableCellLabel : public QLabel {
    Q_OBJECT

public:
    TimetableCellLabel(int day, int period, QWidget* parent);

    int day() const { return m_day; }
    int period() const { return m_period; }
    void showCell(const TimetableCell& cell, const QFont& font, const QColor& textWish);

    QSize sizeHint() const override { return {}; }
    QSize minimumSizeHint() const override { return {}; }

signals:
    void pressed();
    void editWanted();
    void menuWanted(QPoint place); ///< of the screen

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void placeRoom();

    int m_day;
    int m_period;
    QLabel* m_room;
};
