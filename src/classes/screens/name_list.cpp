#include "classes/screens/name_list.h"

#include "classes/class_desk.h"
#include "classes/screens/pupil_grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int RowHandleWidth = 14; ///< where a row's height is drawn with the mouse

/// Shows who is picked as selected.
class PickedPupils : public QStyledItemDelegate {
public:
    PickedPupils(ClassDesk& desk, QObject* parent) : QStyledItemDelegate(parent), m_desk(desk) {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const bool isMultiSelect = m_desk.selection().isMultiSelect();
        const bool isShown = isMultiSelect
                                 ? m_desk.selection().isSelected(m_desk.sheet(), index.row())
                                 : index.row() == m_desk.currentRow();
        option->state.setFlag(QStyle::State_Selected, isShown);
    }

private:
    ClassDesk& m_desk;
};

} // namespace

NameList::NameList(ClassDesk& desk)
    : m_desk(desk), m_view(new QTableView), m_above(new QWidget), m_below(new QWidget) {
    m_view->setObjectName(u"DBGrid2"_s);
    m_view->setAccessibleName(u"Pupils"_s);
    m_view->setModel(&desk.records());
    m_view->setItemDelegate(new PickedPupils(desk, this));
    m_view->setSelectionMode(QAbstractItemView::NoSelection);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setTabKeyNavigation(false);
    m_view->setWordWrap(false);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->horizontalHeader()->setHighlightSections(false);
    m_view->verticalHeader()->setFixedWidth(RowHandleWidth);
    m_view->installEventFilter(this);
    m_view->viewport()->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_above);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_below);
    levelWithGrid();
    setFocusProxy(m_view);
    setRowHeight(0);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { moved(current.row()); });
    connect(m_view->verticalHeader(), &QHeaderView::sectionResized, this,
            [this](int, int, int pixels) {
                if (m_isSettingHeight)
                    return;
                setRowHeight(pixels);
                emit rowHeightChanged(pixels);
            });
}

void NameList::follow(PupilGrid* grid) {
    if (m_grid) {
        m_grid->removeEventFilter(this);
        m_grid->selectionModel()->disconnect(this);
        m_grid->verticalScrollBar()->disconnect(m_view->verticalScrollBar());
        m_view->verticalScrollBar()->disconnect(m_grid->verticalScrollBar());
    }
    m_grid = grid;
    m_view->setVerticalScrollBarPolicy(grid ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    levelWithGrid();
    if (!grid)
        return;
    grid->setRowHeight(m_view->verticalHeader()->defaultSectionSize());
    grid->installEventFilter(this);
    connect(grid->verticalScrollBar(), &QScrollBar::valueChanged, m_view->verticalScrollBar(),
            &QScrollBar::setValue);
    connect(m_view->verticalScrollBar(), &QScrollBar::valueChanged, grid->verticalScrollBar(),
            &QScrollBar::setValue);
    connect(grid->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { goTo(current.row()); });
}

/// The heads begin where the grid's do and are as high, and the rows end where its rows end.
void NameList::levelWithGrid() {
    int above = 0;
    int below = 0;
    if (m_grid && m_grid->window() == window()) {
        const int top = mapTo(window(), QPoint()).y();
        const QWidget& rows = *m_grid->viewport();
        above = m_grid->mapTo(window(), QPoint()).y() - top;
        below = top + height() - m_view->frameWidth() -
                rows.mapTo(window(), QPoint(0, rows.height())).y();
    }
    m_above->setFixedHeight(qMax(0, above));
    m_below->setFixedHeight(qMax(0, below));
    m_view->horizontalHeader()->setFixedHeight(
        m_grid ? m_grid->horizontalHeader()->sizeHint().height()
               : m_view->horizontalHeader()->sizeHint().height());
    if (layout())
        layout()->activate();
}

void NameList::showRecords() {
    for (int column = 0; column < m_desk.records().columnCount(); ++column)
        m_view->setColumnHidden(column, column > PupilSheet::FirstnameColumn);
    levelWithGrid();
    constexpr int padding = 12;
    int width = m_view->verticalHeader()->width() + 2 * m_view->frameWidth();
    for (const int column : {PupilSheet::SurnameColumn, PupilSheet::FirstnameColumn}) {
        if (column >= m_desk.records().columnCount())
            break;
        m_view->resizeColumnToContents(column);
        m_view->setColumnWidth(column, m_view->columnWidth(column) + padding);
        width += m_view->columnWidth(column);
    }
    if (!m_grid)
        width += m_view->verticalScrollBar()->sizeHint().width();
    setFixedWidth(qMax(width, m_view->fontMetrics().averageCharWidth() * 24));
    const int row = m_desk.currentRow();
    goTo(row);
}

void NameList::showSelection() {
    m_view->viewport()->update();
}

void NameList::setRowHeight(int pixels) {
    const QScopedValueRollback guard(m_isSettingHeight, true);
    const int height = qMax(pixels, textRowHeight(*m_view));
    m_view->verticalHeader()->setDefaultSectionSize(height);
    if (m_grid)
        m_grid->setRowHeight(height);
}

void NameList::goTo(int row) {
    if (row >= 0)
        m_view->setCurrentIndex(m_desk.records().index(row, PupilSheet::SurnameColumn));
}

void NameList::moved(int row) {
    if (row == m_desk.currentRow() || row < 0)
        return;
    if (m_mayLeave && !m_mayLeave()) {
        // Not from within the change of the current row.
        QTimer::singleShot(0, this, &NameList::stay);
        return;
    }
    m_desk.setCurrentRow(row);
    showSelection();
    moveGrid(row);
    emit pupilChanged(row);
}

void NameList::moveGrid(int row) {
    if (!m_grid || m_grid->currentIndex().row() == row)
        return;
    const int column = qMax(m_grid->currentIndex().column(), int(PupilSheet::TutorColumn));
    // Columns that are selected as a whole are so for every pupil.
    m_grid->selectionModel()->setCurrentIndex(m_desk.records().index(row, column),
                                              m_grid->selectedColumns().isEmpty()
                                                  ? QItemSelectionModel::ClearAndSelect
                                                  : QItemSelectionModel::NoUpdate);
}

/// The pupil could not be left: the list and the grid go back to him.
void NameList::stay() {
    goTo(m_desk.currentRow());
    moveGrid(m_desk.currentRow());
}

bool NameList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched == m_view &&
        keyPressed(*static_cast<QKeyEvent*>(event)))
        return true;
    if (event->type() == QEvent::MouseButtonPress && watched == m_view->viewport()) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const QModelIndex index = m_view->indexAt(mouse->pos());
        if (index.isValid() && mouse->button() == Qt::LeftButton)
            clicked(index.row(), mouse->modifiers());
    }
    if (watched == m_grid &&
        (event->type() == QEvent::Resize || event->type() == QEvent::Move ||
         event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show))
        QTimer::singleShot(0, this, &NameList::levelWithGrid); // once it is laid out itself
    return QWidget::eventFilter(watched, event);
}

void NameList::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    levelWithGrid();
}

/// On the first page a letter goes to the next pupil of that letter. Beside a view it is meant for
/// the pupil that is chosen, and would only lead away from him. Space picks, as a click does.
bool NameList::keyPressed(QKeyEvent& event) {
    constexpr Qt::KeyboardModifiers command =
        Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString typed = event.text();
    if (event.modifiers() & command || typed.isEmpty() || !typed.at(0).isPrint())
        return false;
    if (event.key() == Qt::Key_Space && m_desk.selection().isMultiSelect()) {
        if (m_desk.currentRow() >= 0)
            clicked(m_desk.currentRow(), {});
        return true;
    }
    if (m_grid) {
        m_grid->setFocus();
        QApplication::sendEvent(m_grid, &event);
    }
    return m_desk.view().has_value();
}

void NameList::clicked(int row, Qt::KeyboardModifiers modifiers) {
    if (modifiers.testFlag(Qt::ControlModifier) && !m_desk.selection().isMultiSelect())
        emit multiselectWanted();
    m_desk.selection().click(m_desk.sheet(), row);
    showSelection();
    emit pupilPicked();
}
