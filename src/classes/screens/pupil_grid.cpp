#include "classes/screens/pupil_grid.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyleOptionHeader>

namespace {

/// A head that is too narrow for its title shows that it is cut.
class ElidingHeader : public QHeaderView {
public:
    ElidingHeader() : QHeaderView(Qt::Horizontal) { setSectionsClickable(true); }

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override {
        QHeaderView::initStyleOptionForIndex(option, section);
        const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
        option->text = option->fontMetrics.elidedText(option->text, Qt::ElideRight,
                                                      sectionSize(section) - 2 * margin);
    }
};

} // namespace

PupilGrid::PupilGrid(PupilSheetModel& model) {
    setHorizontalHeader(new ElidingHeader);
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
    watchHead();
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_isPicking)
            m_picked.clear();
    });
    connect(&model, &QAbstractItemModel::modelReset, this, [this] {
        m_picked.clear();
        m_anchor = -1;
    });
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

void PupilGrid::watchHead() {
    QHeaderView* head = horizontalHeader();
    disconnect(head, &QHeaderView::sectionPressed, this, nullptr);
    disconnect(head, &QHeaderView::sectionEntered, this, nullptr);
    connect(head, &QHeaderView::sectionPressed, this,
            [this](int column) { pickColumn(column, QGuiApplication::keyboardModifiers()); });
    connect(head, &QHeaderView::sectionEntered, this,
            [this](int column) { pickColumn(column, Qt::ShiftModifier); });
    head->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(head, &QHeaderView::customContextMenuRequested, this, [this, head](QPoint place) {
        const int column = head->logicalIndexAt(place);
        if (!m_picked.contains(column))
            pickColumn(column);
        emit menuWanted(head->viewport()->mapToGlobal(place));
    });
}

void PupilGrid::pickColumn(int column, Qt::KeyboardModifiers modifiers) {
    if (column < 0)
        return;
    if (modifiers.testFlag(Qt::ShiftModifier) && m_anchor >= 0) {
        m_picked.clear();
        for (int each = qMin(m_anchor, column); each <= qMax(m_anchor, column); ++each)
            m_picked += each;
    } else {
        const bool isAdding = modifiers.testFlag(Qt::ControlModifier);
        if (!isAdding)
            m_picked.clear();
        if (!m_picked.removeOne(column))
            m_picked += column;
        m_anchor = column;
    }
    selectPicked(column);
}

void PupilGrid::selectPicked(int currentColumn) {
    const QScopedValueRollback guard(m_isPicking, true);
    QItemSelection selection;
    for (const int column : std::as_const(m_picked))
        selection.select(model()->index(0, column),
                         model()->index(model()->rowCount() - 1, column));
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    const int row = qMax(currentIndex().row(), 0);
    selectionModel()->setCurrentIndex(model()->index(row, currentColumn),
                                      QItemSelectionModel::NoUpdate);
}

QList<int> PupilGrid::selectedColumns() const {
    QList<int> columns;
    for (const int column : m_picked) {
        if (!isColumnHidden(column))
            columns += column;
    }
    std::sort(columns.begin(), columns.end());
    return columns;
}

/// Nobody writes where he can't see it.
bool PupilGrid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    return !isColumnHidden(index.column()) && QTableView::edit(index, trigger, event);
}

void PupilGrid::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_picked.clear();
    QTableView::mousePressEvent(event);
}

void PupilGrid::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::ControlModifier)
        pickColumn(currentIndex().column()); // as its head does, without a mouse
    else if (!m_handleKey || !m_handleKey(*event))
        QTableView::keyPressEvent(event);
}

void PupilGrid::contextMenuEvent(QContextMenuEvent* event) {
    emit menuWanted(event->globalPos());
}

/// Where a command leads from cell to cell, the keys that are held down for it (Ctrl+Z, Shift+Tab)
/// pick no further cells.
QItemSelectionModel::SelectionFlags PupilGrid::selectionCommand(const QModelIndex& index,
                                                                const QEvent* event) const {
    return event ? QTableView::selectionCommand(index, event) : QItemSelectionModel::ClearAndSelect;
}

int textRowHeight(const QWidget& widget) {
    constexpr int margin = 4;
    return widget.fontMetrics().height() + margin;
}
