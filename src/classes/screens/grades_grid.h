#pragma once

#include "classes/screens/grade_delegate.h"
#include "classes/screens/pupil_grid.h"

/// The grid of the grades. A cell opens by typing. Return goes to the next pupil, Tab to the next
/// grade and from the last one to the next pupil's first; Delete empties a cell. A cell whose text
/// can't be stored stays open until the text is mended or given up by Escape.
class GradesGrid : public PupilGrid {
    Q_OBJECT

public:
    GradesGrid(PupilSheetModel& model, GradeDelegate::Store store);

    /// The columns of grades that show, from left to right.
    QList<int> shownGrades() const;
    /// Stores what stands in the open cell and closes it. False where that can't be: the cell stays
    /// open, and `refused` follows.
    bool leaveCell();

signals:
    void refused(); ///< what was typed last can't be stored: to be told
    void copyWanted();
    void pasteWanted();

protected:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void leaveBy(QKeyEvent& key);
    bool goToNextGrade(bool forwards);
    void clearCell();
    void comeBack();

    GradeDelegate::Store m_store;
    GradeDelegate* m_delegate;
    bool m_isComingBack = false;
};
