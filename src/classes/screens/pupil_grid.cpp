#include "classes/screens/pupil_grid.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

PupilGrid::PupilGrid(PupilSheetModel& model) {
    setModel(&model);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false); // Tab leaves the grid, the arrow keys go through it
    setEditTriggers(NoEditTriggers);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(1);
}

/// An editor gives its text as it loses the focus.
void PupilGrid::takeOverEditor() {
    if (state() == EditingState)
        setFocus();
}

void PupilGrid::hideNames() {
    for (const int column :
         {PupilSheet::SurnameColumn, PupilSheet::FirstnameColumn, PupilSheet::IdColumn})
        setColumnHidden(column, true);
}

void PupilGrid::setRowHeight(int pixels) {
    verticalHeader()->setDefaultSectionSize(qMax(pixels, textRowHeight(*this)));
}

void PupilGrid::setLeftColumn(int column) {
    m_leftColumn = column;
    updateGeometries();
}

/// The header knows where a column stands only once the grid has been laid out.
void PupilGrid::updateGeometries() {
    QTableView::updateGeometries();
    if (!m_leftColumn || !isVisible())
        return;
    const int column = *m_leftColumn;
    m_leftColumn.reset();
    const bool isShown = column > 0 && !isColumnHidden(column);
    horizontalScrollBar()->setValue(isShown ? horizontalHeader()->sectionPosition(column) : 0);
}

QList<int> PupilGrid::selectedColumns() const {
    QList<int> columns;
    for (const QModelIndex& index : selectionModel()->selectedColumns()) {
        if (!isColumnHidden(index.column()))
            columns += index.column();
    }
    std::sort(columns.begin(), columns.end());
    return columns;
}

void PupilGrid::keyPressEvent(QKeyEvent* event) {
    if (!m_handleKey || !m_handleKey(*event))
        QTableView::keyPressEvent(event);
}

void PupilGrid::contextMenuEvent(QContextMenuEvent* event) {
    emit menuWanted(event->globalPos());
}

int textRowHeight(const QWidget& widget) {
    constexpr int margin = 4;
    return widget.fontMetrics().height() + margin;
}
