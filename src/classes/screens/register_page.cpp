#include "classes/screens/register_page.h"

#include "classes/class_export_commands.h"
#include "classes/class_settings.h"
#include "classes/register_lessons.h"
#include "classes/screens/pupil_grid.h"
#include "classes/screens/register_delegate.h"
#include "classes/screens/register_header.h"
#include "classes/screens/side_panel.h"
#include "classes/screens/undo_entries.h"
#include "core/clock.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/window_placement.h"
#include "store/engine/error.h"

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QSplitter>
#include <QToolTip>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

RegisterPage::RegisterPage(Session& session, ClassDesk& desk)
    : ClassViewPage(session, desk)
    , m_keys(readRegisterKeys(session.GetSettings(), session.GetSeams().prompts))
    , m_grid(new PupilGrid(desk.records()))
    , m_header(new RegisterHeader)
    , m_info(new QLabel)
    , m_splitter(new QSplitter)
    , m_panel(new SidePanel(session, desk, m_keys))
    , m_menu(new QMenu(this)) {
    m_grid->setObjectName(u"RegisterGrid"_s);
    setFocusProxy(m_grid);
    m_grid->setAccessibleName(u"Register"_s);
    m_grid->setHorizontalHeader(m_header);
    m_grid->watchHead();
    m_header->setSectionResizeMode(QHeaderView::Interactive);
    m_header->setMinimumSectionSize(1);
    m_header->setDefaultSectionSize(MarkColumnWidth / TwipsPerPixel);
    m_grid->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    auto* delegate = new RegisterDelegate(
        m_keys, [this](const QModelIndex& cell, const QString& text) { storeCell(cell, text); },
        this);
    m_grid->setItemDelegate(delegate);
    connect(delegate, &RegisterDelegate::keyRefused, this, &RegisterPage::refuseKey);
    m_grid->onKey([this](QKeyEvent& event) { return keyPressed(event); });
    m_info->setObjectName(u"Lblessons"_s);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->addWidget(makeSheet());
    m_splitter->addWidget(m_panel);
    m_splitter->setStretchFactor(0, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_splitter);
    makeMenu();
    connect(m_grid->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& cell) {
                if (isVisible())
                    m_panel->showLessonNote(cell.row(), cell.column());
            });
}

QWidget* RegisterPage::makeSheet() {
    auto* sheet = new QWidget;
    auto* layout = new QVBoxLayout(sheet);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_grid, 1);
    layout->addWidget(m_info);
    return sheet;
}

void RegisterPage::makeMenu() {
    makeMarkMenu();
    QAction* shows = m_menu->addAction(u"Display Panel"_s);
    shows->setCheckable(true);
    const bool isShown = session().GetSettings().get(setting::DisplayKey);
    shows->setChecked(isShown);
    m_panel->setVisible(isShown);
    connect(shows, &QAction::toggled, this, &RegisterPage::setPanelShown);
    m_fillMenu = m_menu->addMenu(u"Fill Register"_s);
    const auto addFill = [this](const QString& caption, RegisterFill what) {
        connect(m_fillMenu->addAction(caption), &QAction::triggered, this,
                [this, what] { fill(what); });
    };
    addFill(u"Present"_s, RegisterFill::Present);
    addFill(u"Absent"_s, RegisterFill::Absent);
    addFill(u"Clear All"_s, RegisterFill::ClearAll);
    connect(m_menu->addAction(u"Calculate Attendance..."_s), &QAction::triggered, this,
            &RegisterPage::calculateAttendance);
    connect(m_menu->addAction(u"Lessons Remaining..."_s), &QAction::triggered, this,
            &RegisterPage::lessonsRemaining);
    connect(m_menu->addAction(u"Show Planning for this lesson..."_s), &QAction::triggered, this,
            &RegisterPage::showPlanning);
    addUndoEntries(*m_menu, *m_grid, desk().records(), session().GetSeams().prompts,
                   ColumnUpdateFailure);
    connect(m_grid, &PupilGrid::menuWanted, this, [this](QPoint place) {
        enableMenus();
        m_menu->popup(place);
    });
}

/// The keys of the list, for the mouse.
void RegisterPage::makeMarkMenu() {
    m_markMenu = m_menu->addMenu(u"Mark"_s);
    const QStringList lines = markLines(m_keys);
    for (qsizetype i = 0; i < lines.size(); ++i)
        connect(m_markMenu->addAction(QString(lines[i]).replace(u'&', u"&&"_s)),
                &QAction::triggered, this, [this, mark = m_keys.marks[i]] { typeMark(mark); });
    connect(m_markMenu->addAction(u"No mark"_s), &QAction::triggered, this,
            [this] { storeCell(m_grid->currentIndex(), {}); });
}

void RegisterPage::enableMenus() {
    const bool isLesson = canFill(m_grid->currentIndex().column());
    for (const QMenu* menu : {m_markMenu, m_fillMenu}) {
        for (QAction* action : menu->actions())
            action->setEnabled(isLesson);
    }
}

void RegisterPage::showRecords() {
    m_grid->hideNames();
    showLessons();
    showCurrentLesson();
}

/// The current lesson is wider than all others, and in view with those before it.
void RegisterPage::showLessons() {
    const QDate today = session().GetSeams().clock.today();
    const std::optional<int> current = currentLessonColumn(desk().sheet(), today);
    m_header->setCurrentLesson(current.value_or(-1));
    constexpr int tutorWidth = 600;
    m_grid->setColumnWidth(PupilSheet::TutorColumn, tutorWidth / TwipsPerPixel);
    for (int lesson = PupilSheet::FirstOwnColumn; lesson < desk().sheet().columnCount(); ++lesson)
        m_grid->setColumnWidth(lesson, MarkColumnWidth / TwipsPerPixel);
    if (current) {
        m_grid->setColumnWidth(*current, CurrentLessonWidth / TwipsPerPixel);
        m_grid->setLeftColumn(
            firstColumnInView(*current, session().GetSettings().get(setting::PreviousDates)));
    }
    const int column = current.value_or(PupilSheet::TutorColumn);
    m_grid->setCurrentIndex(desk().records().index(desk().currentRow(), column));
}

void RegisterPage::showCurrentLesson() {
    m_info->setText(::currentLessonText(desk().sheet(), session().GetSeams().clock.today()));
}

void RegisterPage::showPupil(int row) {
    m_panel->showPhoto();
    m_panel->showLessonNote(row, m_grid->currentIndex().column());
}

bool RegisterPage::leave() {
    m_grid->takeOverEditor();
    return m_panel->storeNote();
}

void RegisterPage::exportRecords() {
    exportRegisterView(session(), desk().classCode(), desk().sheet());
}

bool RegisterPage::keyPressed(QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    const QModelIndex cell = m_grid->currentIndex();
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_grid->setCurrentIndex(
            cell.siblingAtRow(cell.row() + 1).isValid() ? cell.siblingAtRow(cell.row() + 1) : cell);
        return true;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        storeCell(cell, {});
        return true;
    default:
        return !event.text().isEmpty() && event.text().at(0).isPrint() && typeMark(event.text());
    }
}

/// Whatever marks nothing types nothing.
bool RegisterPage::typeMark(const QString& typed) {
    const QModelIndex cell = m_grid->currentIndex();
    QString mark;
    if (!canFill(cell.column()))
        return true;
    if (registerKey(m_keys, typed, mark) != KeyEffect::Mark) {
        refuseKey();
        return true;
    }
    try {
        enterMark(session().CurrentDB, desk().classCode(), desk().records(), cell.row(),
                  cell.column(), mark);
    } catch (const dao::EngineError& error) {
        tellFailure(session().GetSeams().prompts, KeyPressFailure, error);
    }
    return true;
}

/// Where the panel does not show, its list stands below the cell for a moment.
void RegisterPage::refuseKey() {
    if (m_panel->isVisible())
        return m_panel->flashKey();
    constexpr int moment = 2000; // milliseconds
    const QRect cell = m_grid->visualRect(m_grid->currentIndex());
    QToolTip::showText(
        m_grid->viewport()->mapToGlobal(cell.bottomLeft()),
        (fixedKeyLines() + m_keys.lines).join(u'\n').toHtmlEscaped().replace(u'\n', u"<br>"_s),
        m_grid->viewport(), {}, moment);
}

/// A text that came by the editor or by pasting marks as a key does; what is no mark stays out.
void RegisterPage::storeCell(const QModelIndex& cell, const QString& text) {
    const QRect place = m_grid->visualRect(cell);
    const QRect onScreen(m_grid->viewport()->mapToGlobal(place.topLeft()), place.size());
    if (!canFill(cell.column()) || text == cell.data().toString() ||
        !checkMarkText(text, onScreen, session().GetSeams().prompts))
        return;
    QString mark;
    if (!text.isEmpty() && registerKey(m_keys, text, mark) != KeyEffect::Mark)
        return;
    try {
        if (text.isEmpty())
            desk().records().write(cell.row(), {{cell.column(), text}});
        else
            enterMark(session().CurrentDB, desk().classCode(), desk().records(), cell.row(),
                      cell.column(), mark);
    } catch (const dao::EngineError& error) {
        tellFailure(session().GetSeams().prompts, ColumnUpdateFailure, error);
    }
}

void RegisterPage::fill(RegisterFill what) {
    tryTelling(session().GetSeams().prompts, ColumnUpdateFailure,
               [&] { fillRegister(desk().records(), m_grid->currentIndex().column(), what); });
}

void RegisterPage::calculateAttendance() {
    if (desk().currentRow() >= 0)
        showAttendance(desk().sheet(), desk().currentRow(), session().GetSeams().clock.today(),
                       session().GetSeams().prompts);
}

void RegisterPage::lessonsRemaining() {
    showLessonsRemaining(desk().sheet(), session().GetSeams().clock.today(), session().AcademicYear,
                         QLocale(), session().GetSeams().prompts);
}

void RegisterPage::showPlanning() {
    const std::optional<QDate> date =
        planningDate(desk().sheet(), m_grid->currentIndex().column(), m_grid->selectedColumns());
    if (date)
        session().GetWindows().open(ToolWindow::DailySheet, *date);
}

void RegisterPage::setPanelShown(bool shown) {
    session().GetSettings().set(setting::DisplayKey, shown);
    m_panel->setVisible(shown);
    placeSplitter();
}

void RegisterPage::showEvent(QShowEvent* event) {
    ClassViewPage::showEvent(event);
    placeSplitter();
}

/// Puts the panel where it stood when the window was closed, once there is a width to divide.
void RegisterPage::placeSplitter() {
    if (m_isSplitterPlaced || !isVisible() || m_panel->isHidden())
        return;
    m_isSplitterPlaced = true;
    const qint32 left = session().GetSettings().get(setting::DisplayPnlLeft);
    constexpr int usualPanelWidth = 200;
    const int width = m_splitter->width();
    const int sheet = left > 0 ? left / TwipsPerPixel : width - usualPanelWidth;
    m_splitter->setSizes({sheet, qMax(1, width - sheet)});
}

void RegisterPage::saveLook() {
    m_panel->saveLook();
    if (!m_isSplitterPlaced || m_panel->isHidden())
        return;
    session().GetSettings().set(setting::DisplayPnlLeft,
                                m_splitter->sizes().value(0) * TwipsPerPixel);
}
