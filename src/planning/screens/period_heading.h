#pragma once

#include <QLabel>

/// The heading of a period: its number. The selected one stands in the scheme's highlight colours.
class PeriodHeading : public QLabel {
    Q_OBJECT

public:
    explicit PeriodHeading(int period, QWidget* parent = nullptr);

    void setSelected(bool selected);

signals:
    void pressed();
    void doubleClicked();
    /// The popup of the heading is wanted, at a place of the screen.
    void menuWanted(const QPoint& place);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
};
