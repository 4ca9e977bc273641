#include "classes/screens/grades_grid.h"

#include <QKeyEvent>
#include <QTimer>

GradesGrid::GradesGrid(PupilSheetModel& model, GradeDelegate::Store store)
    : PupilGrid(model), m_store(std::move(store)), m_delegate(new GradeDelegate(m_store, this)) {
    setEditTriggers(AllEditTriggers ^ CurrentChanged ^ SelectedClicked);
    setItemDelegate(m_delegate);
    connect(m_delegate, &GradeDelegate::keyLeadsOut, this, &GradesGrid::leaveBy);
}

QList<int> GradesGrid::shownGrades() const {
    QList<int> columns;
    for (int column = PupilSheet::FirstOwnColumn; column < model()->columnCount(); ++column) {
        if (!isColumnHidden(column))
            columns += column;
    }
    return columns;
}

bool GradesGrid::leaveCell() {
    if (GradeEditor* editor = m_delegate->editor()) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
    return !m_delegate->editor();
}

/// The view closes a cell for many a reason; none of them loses what was typed.
void GradesGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    if (hint == QAbstractItemDelegate::RevertModelCache || !m_delegate->isRefused()) {
        PupilGrid::closeEditor(editor, hint);
        return;
    }
    // Whoever went to another program is told when he leaves the cell.
    if (m_isComingBack || !isActiveWindow())
        return;
    m_isComingBack = true;
    QTimer::singleShot(0, this, &GradesGrid::comeBack); // not from within a change of the cell
}

void GradesGrid::comeBack() {
    if (m_delegate->editor()) {
        setCurrentIndex(m_delegate->cell());
        emit refused();
    }
    m_isComingBack = false;
    if (GradeEditor* editor = m_delegate->editor())
        editor->setFocus();
}

void GradesGrid::leaveBy(QKeyEvent& key) {
    if (!leaveCell())
        return;
    const bool isTab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    if (!isTab)
        keyPressEvent(&key);
    else if (goToNextGrade(key.key() == Qt::Key_Tab))
        edit(currentIndex());
}

/// Answers whether there was one.
bool GradesGrid::goToNextGrade(bool forwards) {
    const QList<int> columns = shownGrades();
    const QModelIndex cell = currentIndex();
    if (!cell.isValid() || columns.isEmpty())
        return false;
    const auto place = columns.indexOf(cell.column()) + (forwards ? 1 : -1); // 0 from the tutor on
    if (place >= 0 && place < columns.size()) {
        setCurrentIndex(cell.siblingAtColumn(columns[place]));
        return true;
    }
    const QModelIndex next =
        cell.sibling(cell.row() + (forwards ? 1 : -1), forwards ? columns.first() : columns.last());
    if (next.isValid())
        setCurrentIndex(next);
    return next.isValid();
}

/// Behind the last grade of the last pupil, and before the first, Tab leaves the grid.
bool GradesGrid::focusNextPrevChild(bool next) {
    return goToNextGrade(next) || PupilGrid::focusNextPrevChild(next);
}

void GradesGrid::clearCell() {
    const QModelIndex cell = currentIndex();
    if (cell.isValid() && !isColumnHidden(cell.column()) && !m_store(cell, {}))
        emit refused();
}

void GradesGrid::keyPressEvent(QKeyEvent* event) {
    const bool isCommand =
        event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (event->matches(QKeySequence::Copy)) {
        emit copyWanted();
    } else if (event->matches(QKeySequence::Paste)) {
        emit pasteWanted();
    } else if (isCommand) {
        PupilGrid::keyPressEvent(event);
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        const QModelIndex next = currentIndex().siblingAtRow(currentIndex().row() + 1);
        if (next.isValid())
            setCurrentIndex(next);
    } else if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
        clearCell();
    } else {
        PupilGrid::keyPressEvent(event);
    }
}
