#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>

class ClassDesk;
class PupilGrid;
class QTableView;

/// The pupils' names, which all views of the class window share. It moves together with the grid
/// of the view, and colours the pupils that are picked. While a view shows, a character typed here
/// is the grid's.
class NameList : public QWidget {
    Q_OBJECT

public:
    explicit NameList(ClassDesk& desk);

    /// Is asked before another pupil becomes the current one; where the answer is false the one
    /// that was stays.
    void onLeave(std::function<bool()> mayLeave) { m_mayLeave = std::move(mayLeave); }
    /// Moves together with a grid; null for a view without one.
    void follow(PupilGrid* grid);
    /// Shows the desk's records, its current pupil and those picked.
    void showRecords();
    /// Paints anew who is picked.
    void showSelection();
    /// The height of all rows, here and in the grid, in pixels.
    void setRowHeight(int pixels);
    /// Makes the pupil of a row the current one.
    void goTo(int row);

signals:
    void pupilChanged(int row);        ///< the current pupil is another
    void pupilPicked();                ///< a click has picked a pupil, or none any more
    void multiselectWanted();          ///< Ctrl was held at a click, with multi-select off
    void rowHeightChanged(int pixels); ///< by the person

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void moved(int row);
    void moveGrid(int row);
    void stay();
    bool keyPressed(QKeyEvent& event);
    void clicked(int row, Qt::KeyboardModifiers modifiers);
    void levelWithGrid();

    ClassDesk& m_desk;
    QTableView* m_view;
    QWidget* m_above; ///< as high as what stands above the grid, and what below its rows
    QWidget* m_below;
    QPointer<PupilGrid> m_grid;
    std::function<bool()> m_mayLeave;
    bool m_isSettingHeight = false;
};
