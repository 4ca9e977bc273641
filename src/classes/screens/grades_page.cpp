#include "classes/screens/grades_page.h"

#include "classes/class_settings.h"
#include "classes/grade_layout.h"
#include "classes/screens/grade_delegate.h"
#include "classes/screens/pupil_grid.h"
#include "classes/screens/sort_panel.h"
#include "controls/layout_toolbar.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/window_placement.h"
#include "store/engine/error.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

GradesPage::GradesPage(Session& session, ClassDesk& desk)
    : ClassViewPage(session, desk)
    , m_grid(new PupilGrid(desk.records()))
    , m_sort(new SortPanel(session, desk))
    , m_menu(new QMenu(this)) {
    m_grid->setObjectName(u"GradesGrid"_s);
    setFocusProxy(m_grid);
    m_grid->setAccessibleName(u"Grades"_s);
    m_grid->setEditTriggers(QAbstractItemView::AllEditTriggers ^ QAbstractItemView::CurrentChanged ^
                            QAbstractItemView::SelectedClicked);
    m_grid->setItemDelegate(new GradeDelegate(
        [this](const QModelIndex& cell, const QString& text) { storeCell(cell, text); }, this));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addWidget(makeToolbar());
    layout->addWidget(m_grid, 1);
    layout->addWidget(m_sort);
    makeMenu();
    connect(m_grid, &PupilGrid::menuWanted, this, &GradesPage::openMenu);
    connect(m_grid->horizontalHeader(), &QHeaderView::sectionClicked, this, &GradesPage::fitColumn);
    connect(m_sort, &SortPanel::queryWanted, this, &GradesPage::runQuery);
    const bool isShown = session.GetSettings().get(setting::SortPanel);
    m_sort->setVisible(isShown);
    m_sortAction->setChecked(isShown);
    m_sortButton->setChecked(isShown);
}

LayoutToolbar* GradesPage::makeToolbar() {
    auto* toolbar = new LayoutToolbar(
        u"GradesTools"_s, u"BBBB|BB"_s,
        u"Add Column.|Move Selected Column Left.|Move Selected Column Right.|"
        "Remove Selected Column.|Copy Data to Clipboard.|Toggle the Sort/Query Panel."_s,
        u"new|previous|next|delete|copy|search"_s);
    int next = 0;
    const auto on = [&](auto act) {
        QAction* button = toolbar->button(next++);
        connect(button, &QAction::triggered, this, act);
        return button;
    };
    on([this] { addColumn(); });
    on([this] {
        if (commands().moveLeft)
            moveColumn(MoveDirection::Left);
    });
    on([this] {
        if (commands().moveRight)
            moveColumn(MoveDirection::Right);
    });
    on([this] { deleteColumns(); });
    on([this] { copyAllData(); });
    m_sortButton = on([this](bool shown) { setPanelShown(shown); });
    m_sortButton->setCheckable(true);
    return toolbar;
}

void GradesPage::makeMenu() {
    const auto add = [this](QMenu& menu, const QString& caption, auto act) {
        QAction* action = menu.addAction(caption);
        connect(action, &QAction::triggered, this, act);
        return action;
    };
    add(*m_menu, u"Add a Grades Column..."_s, [this] { addColumn(); });
    m_delete = add(*m_menu, u"Delete selected Column(s)..."_s, [this] { deleteColumns(); });
    m_rename = add(*m_menu, u"Rename selected Column..."_s, [this] { renameColumn(); });
    QMenu* move = m_menu->addMenu(u"Move selected Column"_s);
    m_moveLeft = add(*move, u"Move Left"_s, [this] { moveColumn(MoveDirection::Left); });
    m_moveRight = add(*move, u"Move Right"_s, [this] { moveColumn(MoveDirection::Right); });
    m_hide = add(*m_menu, u"Hide the selected Column(s)"_s, [this] { hideColumns(); });
    add(*m_menu, u"Show All Columns"_s, [this] { showAllColumns(); });
    m_sortAction = add(*m_menu, u"Sort Data..."_s, [this](bool shown) { setPanelShown(shown); });
    m_sortAction->setCheckable(true);
    QMenu* copy = m_menu->addMenu(u"Copy to Clipboard"_s);
    add(*copy, u"Copy student names"_s, [this] { copyNames(); });
    add(*copy, u"Copy All data"_s, [this] { copyAllData(); });
    copy->addAction(u"Copy Selected data"_s); // has never done anything
    add(*m_menu, u"Save Columns Layout"_s, [this] { saveColumnWidths(); });
}

ColumnCommands GradesPage::commands() const {
    return gradeColumnCommands(m_grid->selectedColumns(), desk().sheet().columnCount());
}

void GradesPage::openMenu(QPoint place) {
    const ColumnCommands can = commands();
    m_delete->setEnabled(can.remove);
    m_rename->setEnabled(can.rename);
    m_moveLeft->setEnabled(can.moveLeft);
    m_moveRight->setEnabled(can.moveRight);
    m_hide->setEnabled(can.hide);
    m_menu->popup(place);
}

QStringList GradesPage::selectedFields() const {
    QStringList fields;
    for (const int column : m_grid->selectedColumns())
        fields += desk().sheet().columns()[column];
    return fields;
}

void GradesPage::showRecords() {
    if (!m_keepsLayout)
        loadColumnWidths();
    m_sort->fillSortFields();
    goToVisibleColumn();
}

/// The first column of grades that shows, else the tutor's.
void GradesPage::goToVisibleColumn() {
    int shown = PupilSheet::TutorColumn;
    for (int column = desk().sheet().columnCount() - 1; column >= PupilSheet::FirstOwnColumn;
         --column) {
        if (!m_grid->isColumnHidden(column))
            shown = column;
    }
    m_grid->selectionModel()->setCurrentIndex(desk().records().index(desk().currentRow(), shown),
                                              QItemSelectionModel::ClearAndSelect);
}

void GradesPage::showPupil(int) {}

bool GradesPage::leave() {
    m_grid->takeOverEditor();
    return true;
}

void GradesPage::storeCell(const QModelIndex& cell, const QString& text) {
    if (text == cell.data(Qt::EditRole).toString())
        return;
    const dao::DataType type = desk().sheet().records().Fields(cell.column()).Type();
    try {
        desk().records().write(cell.row(), {{cell.column(), gradeValue(text, type, QLocale())}});
    } catch (const dao::EngineError& error) {
        tellFailure(session().GetSeams().prompts, AfterUpdateFailure, error);
    }
}

void GradesPage::changeStructure(const std::function<void()>& change, const QString& select) {
    leave();
    desk().release();
    change();
    emit recordsChanged();
    const int column = desk().sheet().columnOf(select);
    if (!select.isEmpty() && column >= 0)
        m_grid->pickColumn(column);
}

void GradesPage::addColumn() {
    Prompts& prompts = session().GetSeams().prompts;
    const std::optional<NewField> field = askGradeColumn(prompts);
    if (field)
        changeStructure(
            [&] { addGradeColumn(session().CurrentDB, desk().classCode(), *field, prompts); });
}

void GradesPage::deleteColumns() {
    Prompts& prompts = session().GetSeams().prompts;
    const QStringList columns = askRemoveColumns(selectedFields(), prompts);
    if (columns.isEmpty())
        return;
    changeStructure(
        [&] { removeGradeColumns(session().CurrentDB, desk().classCode(), columns, prompts); });
    saveColumnWidths();
}

void GradesPage::renameColumn() {
    if (!commands().rename)
        return;
    const QString field = selectedFields().first();
    const QString title = askColumnTitle(field, session().GetSeams().prompts);
    if (title.isEmpty())
        return;
    bool isRenamed = false;
    changeStructure([&] {
        isRenamed = renameGradeColumn(session().CurrentDB, desk().classCode(), field, title);
    });
    m_grid->pickColumn(desk().sheet().columnOf(isRenamed ? title : field));
}

void GradesPage::moveColumn(MoveDirection direction) {
    const QString field = selectedFields().first();
    changeStructure([&] { MoveColumn(session().CurrentDB, desk().classCode(), field, direction); },
                    field);
}

void GradesPage::hideColumns() {
    const QList<int> columns = m_grid->selectedColumns();
    if (columns.isEmpty())
        showNothingToHide(session().GetSeams().prompts);
    for (const int column : columns)
        m_grid->setColumnHidden(column, true);
    if (m_grid->isColumnHidden(m_grid->currentIndex().column()))
        goToVisibleColumn();
}

void GradesPage::showAllColumns() {
    for (int column = 0; column < desk().sheet().columnCount(); ++column)
        m_grid->setColumnHidden(column, false);
    m_grid->hideNames();
}

void GradesPage::loadColumnWidths() {
    constexpr int usualWidth = 1000; // twips, as the next
    constexpr int tutorWidth = 600;
    const QList<ColumnLayout> columns =
        loadColumns(session().GetSettings(), desk().classCode(), desk().sheet().columns());
    for (int column = 0; column < columns.size(); ++column) {
        const int usual = column == PupilSheet::TutorColumn ? tutorWidth : usualWidth;
        const int width = columns[column].width > 0 ? columns[column].width : usual;
        m_grid->setColumnWidth(column, width / TwipsPerPixel);
        m_grid->setColumnHidden(column, columns[column].isHidden);
    }
    m_grid->hideNames();
}

void GradesPage::saveColumnWidths() {
    if (desk().sheet().columnCount() == 0)
        return; // the records could not be opened
    QList<ColumnLayout> columns;
    for (int column = 0; column < desk().sheet().columnCount(); ++column) {
        const bool isHidden = m_grid->isColumnHidden(column);
        m_grid->setColumnHidden(column, false); // a hidden one has no width
        columns.append({desk().sheet().columns()[column],
                        m_grid->columnWidth(column) * TwipsPerPixel, isHidden});
        m_grid->setColumnHidden(column, isHidden);
    }
    saveColumns(session().GetSettings(), desk().classCode(), columns);
}

/// As wide as its title or the current pupil's grade, whichever is wider.
void GradesPage::fitColumn(int column) {
    if (desk().sheet().columnCount() < 2 || desk().currentRow() < 0)
        return;
    constexpr int margin = 14;
    const QFontMetrics metrics = fontMetrics();
    const QString grade = desk().sheet().text(desk().currentRow(), column);
    m_grid->setColumnWidth(column, qMax(metrics.horizontalAdvance(desk().sheet().columns()[column]),
                                        metrics.size(0, grade).width()) +
                                       margin);
}

void GradesPage::copyToClipboard(const std::function<QString()>& makeText) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QGuiApplication::clipboard()->setText(makeText());
    QApplication::restoreOverrideCursor();
}

void GradesPage::copyNames() {
    copyToClipboard([this] { return studentNames(desk().sheet()); });
}

void GradesPage::copyAllData() {
    copyToClipboard([this] {
        return allData(desk().sheet(),
                       [this](int column) { return !m_grid->isColumnHidden(column); });
    });
    showDataCopied(session().GetSeams().prompts);
}

void GradesPage::setPanelShown(bool shown) {
    session().GetSettings().set(setting::SortPanel, shown);
    m_sort->setVisible(shown);
    m_sortAction->setChecked(shown);
    m_sortButton->setChecked(shown);
}

void GradesPage::runQuery(const QString& query, bool picks) {
    try {
        desk().showQuery(query, picks);
        const QScopedValueRollback guard(m_keepsLayout, true);
        emit recordsShown();
        showAllColumns();
    } catch (const dao::EngineError& error) {
        tellFailure(session().GetSeams().prompts, QueryFailure, error);
    }
}
