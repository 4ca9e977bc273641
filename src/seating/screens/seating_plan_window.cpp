#include "seating/screens/seating_plan_window.h"

#include "classes/pupil_photo.h"
#include "controls/colours.h"
#include "controls/fonts.h"
#include "controls/layout_toolbar.h"
#include "controls/tool_button.h"
#include "controls/wheel_guard.h"
#include "core/clock.h"
#include "core/engine_failure.h"
#include "core/saved_picture.h"
#include "core/session.h"
#include "seating/plan_layout.h"
#include "seating/plan_picture_document.h"
#include "seating/screens/desk_canvas.h"
#include "seating/screens/seating_side_panel.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize SeatingSize(677, 529); ///< 10155 by 7935 twips
constexpr FailureBox PlanUnread{u"Open Plan Error", u"Error number = %2\nError %1"};
constexpr FailureBox PlanUnsaved{.title = u"Save Plan Error"};

/// The buttons of the toolbars, by their places.
enum PlanTool { PictureTool, RegenerateTool, AddDeskTool, DeleteDeskTool };
enum DragTool { GridTool, NoDragTool };
enum LayoutTool { ShuffleTool, CopyTool, CreateTool };

QComboBox* makeSelector(const QString& name, const QString& list, const QString& words) {
    auto* selector = new QComboBox;
    selector->setObjectName(name);
    selector->view()->setObjectName(list);
    selector->setAccessibleName(words);
    selector->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    constexpr int letters = 9;
    selector->setMinimumContentsLength(letters);
    ignoreWheel(*selector);
    return selector;
}

} // namespace

SeatingPlanWindow::SeatingPlanWindow(Session& session)
    : m_session(session)
    , m_canvas(
          new DeskCanvas(m_editor, *this, QSize(session.TwipsPerPixelX, session.TwipsPerPixelY)))
    , m_scroll(new QScrollArea)
    , m_side(new SeatingSidePanel(session))
    , m_classes(makeSelector(u"Sel1"_s, u"List1"_s, u"Class Selector"_s))
    , m_plans(makeSelector(u"C1"_s, u"List3"_s, u"Room"_s))
    , m_lag(new QLabel)
    , m_save(makeToolButton(u"cmdTool"_s, u"save"_s, u"Save the seating plan."_s))
    , m_delete(makeToolButton(u"cmdDel"_s, u"delete"_s, u"Delete the seating plan of this room."_s))
    , m_planTools(new LayoutToolbar(u"Toolbar1"_s, u"BB|BB"_s,
                                    u"Save as a BMP picture file.|Regenerate Plan.|Add an empty "
                                    "desk.|Delete this empty desk."_s,
                                    u"picture|refresh|new|delete"_s))
    , m_dragTools(new LayoutToolbar(u"Toolbar2"_s, u"BB"_s,
                                    u"Show Snap-to Grid|Disable Drag\\Resize."_s, u"grid|lock"_s))
    , m_layoutTools(new LayoutToolbar(u"Toolbar3"_s, u"BBB"_s,
                                      u"Shuffle Desks|Copy layout from another class|Create "
                                      "another plan for this class"_s,
                                      u"shuffle|copy|seating"_s)) {
    setObjectName(u"SeatingPlanFrm"_s);
    m_scroll->setWidget(m_canvas);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    auto* body = new QHBoxLayout;
    body->addWidget(m_scroll, 1);
    body->addWidget(m_side);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 4);
    layout->setSpacing(2);
    layout->addWidget(makeBar());
    layout->addWidget(makeToolbars());
    layout->addLayout(body, 1);
    makeMenus();
    connectParts();
    connectToolbars();
    showLook();
    showTitle();
}

SeatingPlanWindow::~SeatingPlanWindow() {
    m_canvas->detach();
    delete m_scroll; // the canvas looks at the editor as long as it is there
}

QSize SeatingPlanWindow::sizeHint() const {
    return SeatingSize;
}

QWidget* SeatingPlanWindow::makeBar() {
    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins({});
    m_lag->setObjectName(u"LbLag"_s);
    for (QWidget* each : {static_cast<QWidget*>(m_classes), static_cast<QWidget*>(m_plans),
                          static_cast<QWidget*>(m_delete), static_cast<QWidget*>(m_save)})
        layout->addWidget(each);
    layout->addWidget(m_lag);
    layout->addStretch();
    return bar;
}

QWidget* SeatingPlanWindow::makeToolbars() {
    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins({});
    layout->addWidget(m_planTools);
    layout->addWidget(m_dragTools);
    layout->addWidget(m_layoutTools);
    layout->addStretch();
    for (qsizetype i = 0; i < m_dragTools->buttonCount(); ++i)
        m_dragTools->button(i)->setCheckable(true);
    return bar;
}

/// All that the buttons do, for the keyboard.
void SeatingPlanWindow::makeMenus() {
    auto* menu = new QMenu(u"&Plan"_s, this);
    const auto add = [&](const QString& name, const QString& caption,
                         QKeySequence::StandardKey key) {
        QAction* action = menu->addAction(caption);
        action->setObjectName(name);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(action);
        return action;
    };
    connect(add(u"mnuSave"_s, u"Save"_s, QKeySequence::Save), &QAction::triggered, this,
            &SeatingPlanWindow::SaveCurrentPlan);
    QUndoStack& history = m_editor.history();
    QAction* undo = add(u"mnuUndo"_s, u"Undo"_s, QKeySequence::Undo);
    QAction* redo = add(u"mnuRedo"_s, u"Redo"_s, QKeySequence::Redo);
    undo->setEnabled(false);
    redo->setEnabled(false);
    connect(undo, &QAction::triggered, &history, &QUndoStack::undo);
    connect(redo, &QAction::triggered, &history, &QUndoStack::redo);
    connect(&history, &QUndoStack::canUndoChanged, undo, &QAction::setEnabled);
    connect(&history, &QUndoStack::canRedoChanged, redo, &QAction::setEnabled);
    for (LayoutToolbar* toolbar : {m_planTools, m_dragTools, m_layoutTools}) {
        menu->addSeparator();
        for (qsizetype i = 0; i < toolbar->buttonCount(); ++i)
            menu->addAction(toolbar->button(i));
    }
    auto* bar = new QMenuBar;
    bar->addMenu(menu);
    layout()->setMenuBar(bar);
}

void SeatingPlanWindow::connectParts() {
    connect(m_classes, &QComboBox::textActivated, this, [this](const QString& classCode) {
        if (classCode != m_plan.classCode)
            selectClass(classCode);
    });
    connect(m_plans, &QComboBox::activated, this, &SeatingPlanWindow::selectPlan);
    connect(m_save, &QToolButton::clicked, this, &SeatingPlanWindow::SaveCurrentPlan);
    connect(m_delete, &QToolButton::clicked, this, &SeatingPlanWindow::deletePlan);
    connect(&m_editor, &PlanEditor::desksChanged, this, &SeatingPlanWindow::showDesks);
    connect(&m_editor.history(), &QUndoStack::cleanChanged, this, &SeatingPlanWindow::showTitle);
    connect(m_canvas, &DeskCanvas::selectionChanged, this, &SeatingPlanWindow::DrawTools);
    connect(m_canvas, &DeskCanvas::shown, this,
            [this](QWidget* desk) { m_scroll->ensureWidgetVisible(desk); });
    connect(m_canvas, &DeskCanvas::deleteWanted, m_planTools->button(DeleteDeskTool),
            &QAction::trigger);
    connect(m_side, &SeatingSidePanel::lookChanged, this, &SeatingPlanWindow::showLook);
    connect(m_side, &SeatingSidePanel::sizeWanted, this, [this] {
        m_editor.change(u"size"_s,
                        [this](Desks& desks) { setDeskSizes(desks, m_side->deskSize()); });
    });
    connect(m_side, &SeatingSidePanel::pupilChosen, this,
            [this](qint64 pupil) { m_canvas->mark(pupil); });
    Notices& notices = m_session.GetNotices();
    connect(&notices, &Notices::pupilsChanged, this, &SeatingPlanWindow::followPupils);
    connect(&notices, &Notices::classesChanged, this, &SeatingPlanWindow::followClasses);
}

void SeatingPlanWindow::connectToolbars() {
    const struct {
        LayoutToolbar* toolbar;
        qsizetype button;
        void (SeatingPlanWindow::*act)();
    } tools[] = {
        {m_planTools, PictureTool, &SeatingPlanWindow::savePicture},
        {m_planTools, RegenerateTool, &SeatingPlanWindow::regenerate},
        {m_planTools, AddDeskTool, &SeatingPlanWindow::AddEmptyDesk},
        {m_planTools, DeleteDeskTool, &SeatingPlanWindow::DeleteEmptyDesk},
        {m_layoutTools, ShuffleTool, &SeatingPlanWindow::Shuffle_Desks},
        {m_layoutTools, CopyTool, &SeatingPlanWindow::copyLayout},
        {m_layoutTools, CreateTool, &SeatingPlanWindow::createPlan},
    };
    for (const auto& tool : tools)
        connect(tool.toolbar->button(tool.button), &QAction::triggered, this, tool.act);
    connect(m_dragTools->button(GridTool), &QAction::toggled, m_canvas, &DeskCanvas::setShowGrid);
    connect(m_dragTools->button(NoDragTool), &QAction::toggled, m_canvas,
            [this](bool isDown) { m_canvas->setDragEnabled(!isDown); });
}

/// The first plan is chosen when the classroom has its size, for which it may have to be laid out.
void SeatingPlanWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (std::exchange(m_isShown, true))
        return;
    GetClassLists();
    if (m_classes->count() > 0)
        selectClass(m_classes->itemText(0));
    DrawTools();
    m_classes->setFocus();
}

/// A pupil's desk bears the pupil's name, whatever is written on it.
void SeatingPlanWindow::EventBeforeEdit(qint64 desk, bool& cancel) {
    cancel = desk > TeachersDesk;
}

Classroom SeatingPlanWindow::classroom() const {
    const QSize shown = m_scroll->viewport()->size();
    return {.canvas = {shown.width() * m_session.TwipsPerPixelX,
                       shown.height() * m_session.TwipsPerPixelY},
            .sizes = {.desk = m_side->defaultDeskSize()}};
}

void SeatingPlanWindow::GetClassLists() {
    m_classes->clear();
    tryTelling(m_session.GetSeams().prompts, PlanUnread,
               [this] { m_classes->addItems(::GetClassLists(m_session.CurrentDB)); });
    m_classes->setCurrentText(m_plan.classCode);
    const bool hasClasses = m_classes->count() > 0;
    m_classes->setEnabled(hasClasses);
    m_save->setEnabled(hasClasses);
    // The actions and not the toolbars, since the menu has them too. With a class the selected
    // desk decides.
    for (LayoutToolbar* toolbar : {m_planTools, m_layoutTools}) {
        for (qsizetype i = 0; i < toolbar->buttonCount(); ++i)
            toolbar->button(i)->setEnabled(hasClasses);
    }
    if (hasClasses)
        DrawTools();
}

void SeatingPlanWindow::selectClass(const QString& classCode) {
    m_plan = {.classCode = classCode};
    m_classes->setCurrentText(classCode);
    ensureDefaultPlan(m_session.CurrentDB, classCode, classroom(), m_session.GetSeams().prompts);
    Reset_Toolbars();
    OpenExistingPlan();
}

void SeatingPlanWindow::selectPlan(int entry) {
    const QString room = entry == 0 ? QString() : m_plans->itemText(entry);
    if (room != m_plan.room)
        showRoom(room);
}

void SeatingPlanWindow::showRoom(const QString& room) {
    m_plan.room = room;
    OpenExistingPlan();
}

/// The plan with the lists that belong to it.
void SeatingPlanWindow::OpenExistingPlan() {
    m_canvas->detach();
    m_canvas->mark(std::nullopt);
    ShownPlan shown;
    tryTelling(m_session.GetSeams().prompts, PlanUnread,
               [&] { readShownPlan(m_session.CurrentDB, m_plan, shown); });
    m_pupils = shown.pupils;
    m_editor.show(shown.desks);
    listPlans(shown.plans);
    m_canvas->SetDragging(-1);
    m_canvas->setShowGrid(m_dragTools->button(GridTool)->isChecked());
    m_canvas->setDragEnabled(!m_dragTools->button(NoDragTool)->isChecked());
    m_side->listPupils(listedPupils(shown.desks));
    showTitle();
}

void SeatingPlanWindow::listPlans(const QStringList& plans) {
    m_plans->clear();
    m_plans->addItems(plans);
    m_plans->setEnabled(plans.size() > 1);
    m_plans->setCurrentIndex(m_plan.room.isEmpty() ? 0 : m_plans->findText(m_plan.room));
    m_delete->setEnabled(!m_plan.room.isEmpty());
}

void SeatingPlanWindow::SaveCurrentPlan() {
    if (!hasPlan())
        return;
    Prompts& prompts = m_session.GetSeams().prompts;
    Desks missing;
    const bool isSaved = tryTelling(prompts, PlanUnsaved, [&] {
        missing = savePlan(m_session.CurrentDB, m_plan, m_editor.desks());
    });
    if (isSaved)
        m_editor.setSaved();
    for (const Desk& desk : missing)
        prompts.msg_Box(u"Couldn't find ID %1 For "_s.arg(desk.id) + desk.caption, OkButton, {});
}

void SeatingPlanWindow::Reset_Toolbars() {
    for (qsizetype i = 0; i < m_dragTools->buttonCount(); ++i)
        m_dragTools->button(i)->setChecked(false);
    for (qsizetype i = 0; i < m_planTools->buttonCount(); ++i)
        m_planTools->button(i)->setEnabled(i != DeleteDeskTool);
}

/// What belongs to the selected desk.
void SeatingPlanWindow::DrawTools() {
    const qsizetype place = deskPlace(m_editor.desks(), m_canvas->selected().value_or(0));
    const Desk* desk = m_canvas->selected() && place >= 0 ? &m_editor.desks()[place] : nullptr;
    m_planTools->button(DeleteDeskTool)->setEnabled(desk && desk->isEmpty());
    if (!desk || !desk->isPupils())
        return m_side->showNobody();
    QImage photo;
    tryTelling(m_session.GetSeams().prompts, PlanUnread,
               [&] { photo = pupilPhoto(m_session.CurrentDB, m_plan.classCode, desk->id); });
    m_side->showPupil(photo, desk->place.size());
}

/// The desks stand elsewhere, or are others.
void SeatingPlanWindow::showDesks() {
    m_lag->setText(planLag(m_editor.desks(), m_pupils));
    DrawTools();
}

void SeatingPlanWindow::showLook() {
    const FontRecord& font = m_side->deskFont();
    m_canvas->setLook({.desks = toColour(m_side->colour(SeatingSidePanel::DeskColour)),
                       .teachers = toColour(m_side->colour(SeatingSidePanel::TeacherColour)),
                       .font = toFont(font),
                       .text = toColour(font.colour)},
                      toColour(m_side->colour(SeatingSidePanel::ClassroomColour)));
}

void SeatingPlanWindow::showTitle() {
    QString title = u"Seating Plans"_s;
    if (hasPlan())
        title += u" - "_s + m_plan.classCode;
    if (!m_plan.room.isEmpty())
        title += u", room "_s + m_plan.room;
    setWindowTitle(title + u"[*]"_s);
    setWindowModified(m_editor.isChanged());
}

/// A pupil has come, gone or got another name. What was changed here and not saved stays.
void SeatingPlanWindow::followPupils(const QString& classCode) {
    if (classCode != m_plan.classCode)
        return;
    if (!m_editor.isChanged())
        return OpenExistingPlan();
    QList<qint64> gone;
    tryTelling(m_session.GetSeams().prompts, PlanUnread, [&] {
        m_pupils = pupilsToSeat(m_session.CurrentDB, classCode);
        for (const Desk& desk : m_editor.desks()) {
            const bool isThere =
                std::any_of(m_pupils.begin(), m_pupils.end(),
                            [&](const SeatedPupil& pupil) { return pupil.id == desk.id; });
            if (desk.isPupils() && !isThere)
                gone += desk.id;
        }
    });
    m_editor.remove(gone);
    m_side->listPupils(listedPupils(m_editor.desks()));
    showDesks();
}

void SeatingPlanWindow::followClasses() {
    GetClassLists();
    if (m_classes->findText(m_plan.classCode) >= 0)
        return;
    if (m_classes->count() > 0)
        return selectClass(m_classes->itemText(0));
    m_plan = {};
    m_pupils.clear();
    m_canvas->detach();
    m_editor.show({});
    m_plans->clear();
    m_side->listPupils({});
    showTitle();
}

void SeatingPlanWindow::savePicture() {
    const QString picture =
        ::savePicture(m_session.GetSeams().prompts, m_session.FolderDefaults[SaveFolder].folder,
                      m_canvas->picture(), {u"BMP file"_s, u"*.bmp"_s}, SavedFormats::BitmapOrPng);
    if (!picture.isEmpty())
        OfferPlanDocument(m_session.GetSeams(), documentPlace(m_session), m_plan.classCode,
                          picture);
}

/// The default plan, whichever is shown.
void SeatingPlanWindow::regenerate() {
    Prompts& prompts = m_session.GetSeams().prompts;
    if (!askRegenerate(prompts) ||
        !RegenerateTable(m_session.CurrentDB, m_plan.classCode, classroom(), prompts))
        return;
    Reset_Toolbars();
    showRoom({});
}

void SeatingPlanWindow::AddEmptyDesk() {
    SaveCurrentPlan();
    if (m_editor.isChanged())
        return; // it could not be saved, and would be lost
    const Desk desk{.id = nextEmptyId(m_editor.desks()),
                    .place = QRect(QPoint(), m_side->defaultDeskSize()),
                    .caption = EmptyDeskCaption};
    if (!tryTelling(m_session.GetSeams().prompts, PlanUnsaved,
                    [&] { addEmptyDesk(m_session.CurrentDB, m_plan, desk); }))
        return;
    OpenExistingPlan();
    m_canvas->select(desk.id);
}

/// Empty desks are deleted from default plans only; from that of a room one comes back to the
/// default one.
void SeatingPlanWindow::DeleteEmptyDesk() {
    const std::optional<qint64> desk = m_canvas->selected();
    if (!desk || *desk >= TeachersDesk)
        return;
    SaveCurrentPlan();
    if (m_editor.isChanged())
        return;
    if (!m_plan.room.isEmpty())
        return showRoom({});
    if (tryTelling(m_session.GetSeams().prompts, PlanUnsaved,
                   [&] { deleteEmptyDesk(m_session.CurrentDB, m_plan, *desk); }))
        OpenExistingPlan();
}

void SeatingPlanWindow::Shuffle_Desks() {
    const RandomNumber random = clockRandom(m_session.GetSeams().clock.now().toMSecsSinceEpoch());
    m_editor.change(u"shuffle"_s, [&](Desks& desks) { shuffle(desks, random); });
}

void SeatingPlanWindow::copyLayout() {
    Prompts& prompts = m_session.GetSeams().prompts;
    const QString source = askLayoutSource(m_session.CurrentDB, m_plan.classCode, prompts);
    if (source.isEmpty())
        return;
    Desks desks = m_editor.desks();
    if (CopyLayout(m_session.CurrentDB, source, desks, prompts))
        m_editor.change(u"copied layout"_s, [&](Desks& all) { all = desks; });
}

void SeatingPlanWindow::createPlan() {
    const QString room = Create_NewPlan(m_session.CurrentDB, m_plan.classCode, classroom(),
                                        m_session.GetSeams().prompts);
    if (!room.isEmpty())
        showRoom(room);
}

void SeatingPlanWindow::deletePlan() {
    if (deleteRoomPlan(m_session.CurrentDB, m_plan, m_session.GetSeams().prompts))
        showRoom({});
}
