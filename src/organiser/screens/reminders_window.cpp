#include "organiser/screens/reminders_window.h"

#include "controls/colours.h"
#include "controls/icons.h"
#include "controls/layout_toolbar.h"
#include "controls/window_going.h"
#include "core/clock.h"
#include "core/engine_failure.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "organiser/reminder_settings.h"
#include "organiser/screens/reminder_panel.h"
#include "organiser/screens/reminder_window.h"
#include "organiser/sound_list.h"

#include <QAction>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QStyle>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize RemindersSize(790, 520);
constexpr int PaneWidth = 250;
constexpr int DetailsWidth = PaneWidth - 50; ///< without the frames around it, at least

const FailureBox RemindersFailure{.title = u"Schedule Reminder error",
                                  .text = u"Error number : %2\n%1"};

QIcon colourIcon(qint32 colour) {
    constexpr int side = 16;
    QPixmap picture(side, side);
    picture.fill(toColour(colour));
    QPainter painter(&picture);
    painter.setPen(textColourOn(toColour(colour)));
    painter.drawRect(0, 0, side - 1, side - 1);
    return picture;
}

QVBoxLayout* addSection(QVBoxLayout& pane, const QString& title) {
    auto* section = new QGroupBox(title);
    pane.addWidget(section);
    return new QVBoxLayout(section);
}

} // namespace

RemindersWindow::RemindersWindow(Session& session)
    : m_session(session)
    , m_list(new ScheduleList(session, this))
    , m_grid(new QTableView)
    , m_panel(new ReminderPanel(session))
    , m_pages(new QStackedWidget)
    , m_backColour(session.GetSettings().get(setting::SchedBackcolor))
    , m_fontColour(session.GetSettings().get(setting::SchedFontcolor)) {
    setObjectName(u"Schedulefrm"_s);
    setWindowTitle(u"Schedule Reminder"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(makePane());
    layout->addWidget(m_pages, 1);
    m_pages->addWidget(makeListPage());
    m_pages->addWidget(m_panel);
    connectParts();
    new AskBeforeGoing(*this, [this] { return mayLeavePanel(); });
    tryTelling(session.GetSeams().prompts, RemindersFailure,
               [&] { CheckSchedulesTable(session.CurrentDB); });
    Reload_Recordset(ScheduleMode::All);
    showColours();
    m_grid->setFocus();
}

QSize RemindersWindow::sizeHint() const {
    return RemindersSize;
}

QWidget* RemindersWindow::makePane() {
    auto* pane = new QWidget;
    pane->setObjectName(u"XPmenu"_s);
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 4, 0);
    makeItemEntries(*layout);
    makeColourEntries(*layout);
    makeDetails(*layout);
    layout->addStretch();
    auto* scroll = new QScrollArea;
    scroll->setWidget(pane);
    scroll->setWidgetResizable(true);
    scroll->setFrameStyle(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFixedWidth(PaneWidth + scroll->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    return scroll;
}

QPushButton* RemindersWindow::addEntry(QVBoxLayout& section, const QString& name,
                                       const QString& iconName, const QString& text,
                                       const std::function<void()>& act) {
    auto* button = new QPushButton(iconName.isEmpty() ? QIcon() : icon(iconName), text);
    button->setObjectName(name);
    button->setAutoDefault(true);
    section.addWidget(button);
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

void RemindersWindow::makeItemEntries(QVBoxLayout& pane) {
    QVBoxLayout* items = addSection(pane, u" Scheduled Items"_s);
    addEntry(*items, u"XPmenu(0)"_s, u"calendar"_s, u"Show A&ll items"_s, [this] { showAll(); });
    addEntry(*items, u"XPmenu(1)"_s, u"new"_s, u"Add &NEW Item"_s, [this] { addNew(); });
    QVBoxLayout* options = addSection(pane, u"Item Options"_s);
    m_edit =
        addEntry(*options, u"XPmenu(2)"_s, u"notes"_s, u"ED&IT Item"_s, [this] { SetEditMode(); });
    m_delete =
        addEntry(*options, u"XPmenu(3)"_s, u"delete"_s, u"D&ELETE Item"_s, [this] { remove(); });
}

void RemindersWindow::makeColourEntries(QVBoxLayout& pane) {
    QVBoxLayout* section = addSection(pane, u"Item Settings"_s);
    m_colourButtons[0] = addEntry(*section, u"ColorPicker1(0)"_s, {}, u"Bac&k colour..."_s,
                                  [this] { chooseColour(m_backColour); });
    m_colourButtons[1] = addEntry(*section, u"ColorPicker1(1)"_s, {}, u"Te&xt colour..."_s,
                                  [this] { chooseColour(m_fontColour); });
    addEntry(*section, u"cmdColours"_s, u"save"_s, u"Save &colours"_s, [this] { saveColours(); });
}

void RemindersWindow::makeDetails(QVBoxLayout& pane) {
    m_details = new QLabel;
    m_details->setObjectName(u"lbDetails"_s);
    m_details->setAccessibleName(u"Details of the item"_s);
    m_details->setTextFormat(Qt::PlainText);
    m_details->setWordWrap(true);
    m_details->setMargin(6);
    m_details->setAlignment(Qt::AlignTop);
    addSection(pane, u"Item Details"_s)->addWidget(m_details);
}

QWidget* RemindersWindow::makeListPage() {
    m_toolbar =
        new LayoutToolbar(u"TB1"_s, u"BB"_s, u"Show active items only|Show inactive items only"_s,
                          u"reminder|history"_s, this);
    for (qsizetype i = 0; i < m_toolbar->buttonCount(); ++i)
        m_toolbar->button(i)->setCheckable(true);
    m_grid->setObjectName(u"dbg"_s);
    m_grid->setAccessibleName(u"Scheduled items"_s);
    m_grid->setModel(m_list);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setTabKeyNavigation(false);
    m_grid->setCornerButtonEnabled(false);
    m_grid->verticalHeader()->hide();
    m_grid->horizontalHeader()->setStretchLastSection(true);
    m_grid->horizontalHeader()->setHighlightSections(false);
    m_grid->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->addWidget(m_toolbar);
    layout->addWidget(m_grid, 1);
    return page;
}

void RemindersWindow::connectParts() {
    for (qsizetype i = 0; i < m_toolbar->buttonCount(); ++i)
        connect(m_toolbar->button(i), &QAction::triggered, this,
                [this, i](bool isDown) { showToggled(i, isDown); });
    connect(m_grid->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &RemindersWindow::showDetails);
    connect(m_grid, &QTableView::activated, this, &RemindersWindow::SetEditMode);
    auto* deletes = new QShortcut(Qt::Key_Delete, m_grid);
    deletes->setContext(Qt::WidgetShortcut);
    connect(deletes, &QShortcut::activated, this, &RemindersWindow::remove);
    connect(m_panel, &ReminderPanel::saveWanted, this, &RemindersWindow::save);
    connect(m_panel, &ReminderPanel::testWanted, this, &RemindersWindow::testItem);
    connect(m_panel, &ReminderPanel::leaveWanted, this, &RemindersWindow::leavePanel);
    connect(&m_session.GetNotices(), &Notices::remindersChanged, this,
            &RemindersWindow::listChanged);
}

/// Reads the list, and comes back to the item that was selected, or to its place.
bool RemindersWindow::reload(const std::function<void()>& work) {
    const int place = currentPlace();
    const std::optional<ScheduleItem> before =
        place < 0 ? std::nullopt : std::optional(m_list->item(place));
    const QScopedValueRollback reading(m_isReading, true);
    const bool isDone = tryTelling(m_session.GetSeams().prompts, RemindersFailure, work);
    const int same = before ? m_list->find(*before) : 0;
    select(same < 0 ? place : same);
    m_isStale = false;
    return isDone;
}

void RemindersWindow::Reload_Recordset(ScheduleMode mode) {
    reload([&] { m_list->Reload_Recordset(mode); });
}

/// An item was due. What stands in the panel is left alone: its place in the list has to stay.
void RemindersWindow::listChanged() {
    if (m_isReading)
        return;
    if (m_pages->currentWidget() == m_panel)
        m_isStale = true;
    else
        reload([this] { m_list->readAnew(); });
}

void RemindersWindow::showAll() {
    if (!mayLeavePanel())
        return;
    for (qsizetype i = 0; i < m_toolbar->buttonCount(); ++i)
        m_toolbar->button(i)->setChecked(false);
    showList();
    Reload_Recordset(ScheduleMode::All);
}

void RemindersWindow::showToggled(qsizetype button, bool isDown) {
    m_toolbar->button(1 - button)->setChecked(false);
    if (!isDown)
        Reload_Recordset(ScheduleMode::All);
    else
        Reload_Recordset(button == 0 ? ScheduleMode::ActiveOnly : ScheduleMode::InactiveOnly);
}

int RemindersWindow::currentPlace() const {
    const QModelIndex current = m_grid->currentIndex();
    return current.isValid() ? current.row() : -1;
}

void RemindersWindow::select(int place) {
    const int rows = m_list->rowCount();
    if (rows > 0)
        m_grid->setCurrentIndex(m_list->index(qBound(0, place, rows - 1), 0));
    m_grid->resizeColumnToContents(0);
    m_grid->resizeColumnToContents(1);
    m_grid->resizeColumnToContents(2);
    showDetails();
}

void RemindersWindow::showDetails() {
    const int place = currentPlace();
    m_details->setText(place < 0 ? u"No Items available\n\nPlease select add new item above\nto "
                                   "schedule an event."_s
                                 : scheduleDetails(m_list->item(place)));
    // As high as it needs in any case, and of one height for most items.
    constexpr int usualLines = 7;
    m_details->setMinimumHeight(
        qMax(m_details->heightForWidth(DetailsWidth), usualLines * fontMetrics().lineSpacing()));
    m_edit->setEnabled(place >= 0);
    m_delete->setEnabled(place >= 0);
}

void RemindersWindow::showColours() {
    setBackground(m_details, toColour(m_backColour), toColour(m_fontColour));
    m_colourButtons[0]->setIcon(colourIcon(m_backColour));
    m_colourButtons[1]->setIcon(colourIcon(m_fontColour));
}

void RemindersWindow::chooseColour(qint32& colour) {
    colour = m_session.GetSeams().prompts.ChooseColour(colour).value_or(colour);
    showColours();
}

void RemindersWindow::saveColours() {
    Settings& settings = m_session.GetSettings();
    const Settings::Batch whole(settings);
    settings.set(setting::SchedBackcolor, m_backColour);
    settings.set(setting::SchedFontcolor, m_fontColour);
}

void RemindersWindow::edit(const ReminderDraft& draft, std::optional<int> place) {
    m_edited = place;
    m_pages->setCurrentWidget(m_panel);
    m_panel->showDraft(draft);
}

void RemindersWindow::addNew() {
    if (mayLeavePanel())
        edit(newDraft(m_session.GetSeams().clock.now()), std::nullopt);
}

void RemindersWindow::scheduleEvent(const EventText& event) {
    if (!mayLeavePanel())
        return;
    edit(newDraft(m_session.GetSeams().clock.now()), std::nullopt);
    m_panel->write(event);
}

void RemindersWindow::SetEditMode() {
    if (currentPlace() < 0 || !leavePanel())
        return;
    edit(draftOf(m_list->item(currentPlace())), currentPlace());
}

/// What is written in the panel is saved, given up or stayed with, as the person says.
bool RemindersWindow::mayLeavePanel() {
    if (m_pages->currentWidget() != m_panel || !m_panel->isChanged())
        return true;
    const BoxAnswer answer = m_session.GetSeams().prompts.msg_Box(
        u"This reminder has not been saved.\n\nDo you wish to save it?"_s,
        YesNoCancelButtons | QuestionIcon, u"Not saved"_s);
    if (answer == AnswerYes)
        return save();
    if (answer != AnswerNo)
        return false;
    m_panel->setKept();
    return true;
}

bool RemindersWindow::leavePanel() {
    if (!mayLeavePanel())
        return false;
    showList();
    return true;
}

void RemindersWindow::showList() {
    m_pages->setCurrentIndex(0);
    if (m_isStale)
        reload([this] { m_list->readAnew(); });
    m_grid->setFocus();
}

bool RemindersWindow::save() {
    const Seams& seams = m_session.GetSeams();
    const ReminderDraft draft = m_panel->draft();
    ScheduleItem item = itemOf(draft);
    bool isSaved = false;
    tryTelling(seams.prompts, RemindersFailure, [&] {
        std::function<bool(const QString&, const QString&)> isTaken;
        if (!m_edited)
            isTaken = [this](const QString& date, const QString& time) {
                return m_list->isTaken(date, time);
            };
        if (!maySave(draft, seams.clock.now(), seams.prompts, isTaken))
            return;
        if (m_edited)
            m_list->change(*m_edited, item);
        else
            m_list->add(item);
        isSaved = true;
    });
    if (!isSaved)
        return false;
    if (!draft.sound.isEmpty())
        NoteReminderSound(m_session.GetSettings(), draft.sound);
    if (m_edited && item.alarm.isEmpty())
        item.alarm = m_list->item(*m_edited).alarm;
    m_panel->setKept();
    m_isStale = false; // the list is read now
    showList();
    Reload_Recordset(m_list->mode());
    select(m_list->find(item));
    return true;
}

void RemindersWindow::testItem() {
    const ReminderDraft draft = m_panel->draft();
    const Seams& seams = m_session.GetSeams();
    if (!mayTest(draft, seams.prompts))
        return;
    ScheduleItem item = itemOf(draft);
    item.time = scheduleTime(seams.clock.now().time());
    ReminderWindow::present(m_session, item);
}

void RemindersWindow::remove() {
    if (currentPlace() < 0 || !leavePanel())
        return;
    if (currentPlace() < 0)
        return; // it has gone while the panel stood
    Prompts& prompts = m_session.GetSeams().prompts;
    const ScheduleItem item = m_list->item(currentPlace());
    const PromptAnswer answer = prompts.PlainBox(
        u"Deleting this task will remove it permanently.\nAre you sure you wish to remove this "
        "task."_s,
        YesNoButtons | QuestionIcon, u"Remove Task"_s);
    const int place = m_list->find(item); // another may have been due meanwhile
    if (answer != AnswerYes || place < 0)
        return;
    if (tryTelling(prompts, RemindersFailure, [&] { m_list->remove(place); }))
        Reload_Recordset(m_list->mode());
}

void RemindersWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(mayLeavePanel());
}
