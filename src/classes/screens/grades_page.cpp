#include "classes/screens/grades_page.h"

#include "classes/class_export_commands.h"
#include "classes/class_settings.h"
#include "classes/grade_clipboard.h"
#include "classes/grade_import.h"
#include "classes/screens/grades_grid.h"
#include "classes/screens/sort_panel.h"
#include "classes/screens/undo_entries.h"
#include "controls/layout_toolbar.h"
#include "controls/window_going.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/window_placement.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

GradesPage::GradesPage(Session& session, ClassDesk& desk)
    : ClassViewPage(session, desk)
    , m_grid(new GradesGrid(
          desk.records(),
          [this](const QModelIndex& cell, const QString& text) { return storeCell(cell, text); }))
    , m_sort(new SortPanel(session, desk))
    , m_menu(new QMenu(this)) {
    m_grid->setObjectName(u"GradesGrid"_s);
    setFocusProxy(m_grid);
    m_grid->setAccessibleName(u"Grades"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addWidget(makeToolbar());
    layout->addWidget(m_grid, 1);
    layout->addWidget(m_sort);
    makeMenu();
    new AskBeforeGoing(*this, [this] { return m_grid->leaveCell(); });
    connect(m_grid, &PupilGrid::menuWanted, this, &GradesPage::openMenu);
    connect(m_grid, &GradesGrid::refused, this, &GradesPage::tellRefusal);
    connect(m_grid, &GradesGrid::copyWanted, this, &GradesPage::copyCells);
    connect(m_grid, &GradesGrid::pasteWanted, this, &GradesPage::paste);
    connect(m_grid->horizontalHeader(), &QHeaderView::sectionClicked, this, &GradesPage::fitColumn);
    connect(m_sort, &SortPanel::queryWanted, this, &GradesPage::runQuery);
    connect(m_sort, &SortPanel::allWanted, this, &GradesPage::showAllPupils);
    const bool isShown = session.GetSettings().get(setting::SortPanel);
    m_sort->setVisible(isShown);
    m_sortAction->setChecked(isShown);
    m_sortButton->setChecked(isShown);
}

LayoutToolbar* GradesPage::makeToolbar() {
    auto* toolbar = new LayoutToolbar(
        u"GradesTools"_s, u"BBBB|BBB"_s,
        u"Add Column.|Move Selected Column Left.|Move Selected Column Right.|"
        "Remove Selected Column.|Copy Data to Clipboard.|Toggle the Sort/Query Panel.|"
        "Import from MSExcel to selected column."_s,
        u"new|previous|next|delete|copy|search|import"_s);
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
    on([this] { importColumn(); });
    return toolbar;
}

void GradesPage::makeMenu() {
    const auto add = [this](QMenu& menu, const QString& caption, auto act) {
        QAction* action = menu.addAction(caption);
        connect(action, &QAction::triggered, this, act);
        return action;
    };
    add(*m_menu, u"Add a Grades Column..."_s, [this] { addColumn(); });
    m_import =
        add(*m_menu, u"Import to selected column from Excel..."_s, [this] { importColumn(); });
    add(*m_menu, u"Import complete Excel Sheet..."_s, [this] { importSheet(); });
    add(*m_menu, u"Import from another ORVA database..."_s, [this] { importYear(); });
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
    addUndoEntries(*m_menu, *m_grid, desk().records(), session().GetSeams().prompts,
                   AfterUpdateFailure);
    m_menu->addSeparator();
    add(*m_menu, u"Copy\tCtrl+C"_s, [this] { copyCells(); });
    add(*m_menu, u"Paste\tCtrl+V"_s, [this] { paste(); });
}

ColumnCommands GradesPage::commands() const {
    return gradeColumnCommands(m_grid->selectedColumns(), m_grid->shownGrades());
}

void GradesPage::openMenu(QPoint place) {
    const ColumnCommands can = commands();
    m_import->setEnabled(can.importInto);
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

PupilGrid* GradesPage::grid() const {
    return m_grid;
}

void GradesPage::showRecords() {
    loadColumnWidths();
    m_sort->fillSortFields();
    goToVisibleColumn();
}

/// The first column of grades that shows, else the tutor's.
void GradesPage::goToVisibleColumn() {
    const int shown = m_grid->shownGrades().value(0, PupilSheet::TutorColumn);
    m_grid->selectionModel()->setCurrentIndex(desk().records().index(desk().currentRow(), shown),
                                              QItemSelectionModel::ClearAndSelect);
}

void GradesPage::showPupil(int) {}

bool GradesPage::leave() {
    return m_grid->leaveCell();
}

void GradesPage::exportRecords() {
    exportGradesView(session(), desk().sheet(),
                     [this](int column) { return !m_grid->isColumnHidden(column); });
}

bool GradesPage::storeCell(const QModelIndex& cell, const QString& text) {
    try {
        const RowChange change =
            gradeChange(desk().sheet(), cell.row(), cell.column(), text, QLocale());
        if (!change.cells.isEmpty())
            desk().records().write(change.row, change.cells);
        return true;
    } catch (const dao::EngineError& error) {
        m_refusal = error;
        m_refusedColumn = cell.column();
        return false;
    }
}

void GradesPage::tellRefusal() {
    const dao::RecordsetField field = desk().sheet().records().Fields(m_refusedColumn);
    tellGradeRefused(session().GetSeams().prompts, *m_refusal, field.Type());
}

void GradesPage::changeStructure(const std::function<QString()>& change) {
    const QScopedValueRollback keeping(m_kept, columnLayout());
    desk().release();
    const QString picked = change();
    emit recordsChanged();
    m_grid->pickColumn(desk().sheet().columnOf(picked));
}

void GradesPage::addColumn() {
    Prompts& prompts = session().GetSeams().prompts;
    const std::optional<NewField> field = leave() ? askGradeColumn(prompts) : std::nullopt;
    if (!field)
        return;
    changeStructure([&] {
        if (!addGradeColumn(session().CurrentDB, desk().classCode(), *field, prompts))
            return QString();
        m_kept.append({field->name}); // whatever is kept of an older one of this title
        return field->name;
    });
}

void GradesPage::importColumn() {
    Prompts& prompts = session().GetSeams().prompts;
    if (!commands().importInto)
        return showNoColumnToImport(prompts);
    const QString field = selectedFields().first();
    const auto source = leave() ? askSelectedColumn(session(), field) : std::nullopt;
    if (!source)
        return;
    changeStructure([&] {
        importSelectedColumn(session().CurrentDB, desk().classCode(), field, *source, prompts);
        desk().records().history().forgetFields({field}); // an import has no undo
        return field;
    });
    if (isPupilField(field))
        emit session().GetNotices().pupilsChanged(desk().classCode());
}

void GradesPage::importSheet() {
    const auto source = leave() ? askExcelSheet(session()) : std::nullopt;
    if (!source)
        return;
    changeStructure([&] {
        const auto titles = ImportExcelSheet(session().CurrentDB, desk().classCode(), *source,
                                             session().GetSeams().prompts);
        return showImported(titles.value_or(QStringList()));
    });
}

void GradesPage::importYear() {
    const auto grades = leave() ? askForeignGrades(session()) : std::nullopt;
    if (!grades)
        return;
    changeStructure([&] {
        const auto titles = ImportFromMDB(session().CurrentDB, desk().classCode(), *grades,
                                          session().GetSeams().prompts);
        QStringList overwritten;
        for (const dao::Field& column : grades->columns)
            overwritten += column.Name;
        desk().records().history().forgetFields(overwritten);
        return showImported(titles.value_or(QStringList()));
    });
}

/// New columns show whatever is kept of older ones of their titles. Answers which one to select.
QString GradesPage::showImported(const QStringList& titles) {
    for (const QString& title : titles)
        m_kept.append({title});
    return titles.value(0);
}

void GradesPage::deleteColumns() {
    Prompts& prompts = session().GetSeams().prompts;
    const QStringList columns =
        leave() ? askRemoveColumns(selectedFields(), prompts) : QStringList();
    if (columns.isEmpty())
        return;
    changeStructure([&] {
        if (removeGradeColumns(session().CurrentDB, desk().classCode(), columns, prompts))
            desk().records().history().forgetFields(columns);
        return QString();
    });
    saveColumnWidths();
}

void GradesPage::renameColumn() {
    if (!commands().rename || !leave())
        return;
    const QString field = selectedFields().first();
    const QString title = askColumnTitle(field, session().GetSeams().prompts);
    if (title.isEmpty())
        return;
    changeStructure([&] {
        if (!renameGradeColumn(session().CurrentDB, desk().classCode(), field, title))
            return field;
        desk().records().history().renameField(field, title);
        for (ColumnLayout& each : m_kept) {
            if (each.field == field)
                each.field = title;
        }
        return title;
    });
}

void GradesPage::moveColumn(MoveDirection direction) {
    if (!leave())
        return;
    const QString field = selectedFields().first();
    QStringList hidden;
    for (const ColumnLayout& each : columnLayout()) {
        if (each.isHidden)
            hidden += each.field;
    }
    changeStructure([&] {
        MoveColumn(session().CurrentDB, desk().classCode(), field, direction, hidden);
        return field;
    });
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
    QList<ColumnLayout> columns =
        loadColumns(session().GetSettings(), desk().classCode(), desk().sheet().columns());
    for (ColumnLayout& column : columns) {
        const auto kept = std::find_if(m_kept.cbegin(), m_kept.cend(), [&](const auto& each) {
            return each.field == column.field;
        });
        if (kept != m_kept.cend())
            column = *kept;
    }
    for (int column = 0; column < columns.size(); ++column) {
        const int usual = column == PupilSheet::TutorColumn ? tutorWidth : usualWidth;
        const int width = columns[column].width > 0 ? columns[column].width : usual;
        m_grid->setColumnWidth(column, width / TwipsPerPixel);
        m_grid->setColumnHidden(column, columns[column].isHidden);
    }
    m_grid->hideNames();
}

QList<ColumnLayout> GradesPage::columnLayout() {
    QList<ColumnLayout> columns;
    for (int column = 0; column < desk().sheet().columnCount(); ++column) {
        const bool isHidden = m_grid->isColumnHidden(column);
        m_grid->setColumnHidden(column, false); // a hidden one has no width
        columns.append({desk().sheet().columns()[column],
                        m_grid->columnWidth(column) * TwipsPerPixel, isHidden});
        m_grid->setColumnHidden(column, isHidden);
    }
    return columns;
}

void GradesPage::saveColumnWidths() {
    if (desk().sheet().columnCount() > 0) // the records are open
        saveColumns(session().GetSettings(), desk().classCode(), columnLayout());
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

void GradesPage::copyCells() {
    QList<int> rows;
    QList<int> columns;
    for (const QModelIndex& cell : m_grid->selectionModel()->selectedIndexes()) {
        if (m_grid->isColumnHidden(cell.column()))
            continue;
        if (!rows.contains(cell.row()))
            rows += cell.row();
        if (!columns.contains(cell.column()))
            columns += cell.column();
    }
    std::sort(rows.begin(), rows.end());
    std::sort(columns.begin(), columns.end());
    if (!rows.isEmpty())
        copyToClipboard([&] { return cellsText(desk().sheet(), rows, columns); });
}

/// From the current cell on, or from the first of those that are selected.
void GradesPage::paste() {
    int row = desk().currentRow();
    int column = m_grid->currentIndex().column();
    for (const QModelIndex& cell : m_grid->selectionModel()->selectedIndexes()) {
        row = qMin(row, cell.row());
        column = qMin(column, cell.column());
    }
    QList<int> columns = m_grid->shownGrades();
    columns.removeIf([column](int each) { return each < column; });
    const QString text = QGuiApplication::clipboard()->text();
    if (row >= 0 && column >= PupilSheet::FirstOwnColumn && leave())
        pasteGrades(desk().records(), row, columns, readTable(text), QLocale(),
                    session().GetSeams().prompts);
}

void GradesPage::setPanelShown(bool shown) {
    session().GetSettings().set(setting::SortPanel, shown);
    m_sort->setVisible(shown);
    m_sortAction->setChecked(shown);
    m_sortButton->setChecked(shown);
    // Tab, which goes from grade to grade, would be a long way there.
    (shown ? static_cast<QWidget*>(m_sort) : m_grid)->setFocus();
}

void GradesPage::runQuery(const QString& query, bool picks) {
    if (!leave())
        return;
    tryTelling(session().GetSeams().prompts, QueryFailure, [&] {
        const QScopedValueRollback keeping(m_kept, columnLayout());
        desk().showQuery(query, picks);
        emit recordsShown();
        showAllColumns();
    });
}

void GradesPage::showAllPupils() {
    if (!leave())
        return;
    const QScopedValueRollback keeping(m_kept, columnLayout());
    desk().selection().setMultiSelect(false);
    emit recordsChanged();
}
