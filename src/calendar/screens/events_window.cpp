#include "calendar/screens/events_window.h"

#include "calendar/event_settings.h"
#include "calendar/screens/day_box.h"
#include "calendar/screens/day_caption.h"
#include "calendar/screens/events_bar.h"
#include "calendar/screens/month_page.h"
#include "controls/colours.h"
#include "controls/edit_menu.h"
#include "controls/format_tools.h"
#include "controls/layout_toolbar.h"
#include "core/clock.h"
#include "core/engine_failure.h"
#include "core/session.h"
#include "core/setting_notices.h"
#include "core/settings.h"
#include "core/writing_settings.h"
#include "store/schema.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize EventsSize(720, 600);

} // namespace

EventsWindow::EventsWindow(Session& session, PostToSheet postToSheet)
    : m_session(session)
    , m_postToSheet(std::move(postToSheet))
    , m_months(session)
    , m_tools(new FormatTools(session, u"BBB"_s, *this))
    , m_bar(new EventsBar(m_months))
    , m_commands(new EventsCommands(session, *m_tools, *m_bar->monthMenu(), *this))
    , m_page(new MonthPage(session.GradientsEnabled))
    , m_scroll(new QScrollArea)
    , m_writing(*this, session.GetSeams(),
                {.what = u"The calendar of events"_s,
                 .save = [this] { return m_months.save(); },
                 .leave = [this] { return m_months.leave(); }}) {
    setObjectName(u"COEfrm"_s);
    setWindowTitle(u"Calendar of Events"_s);
    makeParts();
    bindBoxes();
    connectParts();
    followColours();
    m_months.load();
    SelectDate(session.GetSeams().clock.today());
}

EventsWindow::~EventsWindow() {
    m_writing.end();
    m_session.GetSettings().set(setting::ShowHolidays, m_commands->showHolidays()->isChecked());
    m_months.close();
    // The boxes tell of losing the focus while they go: as long as there is somebody to hear it.
    delete m_scroll;
}

QSize EventsWindow::sizeHint() const {
    return EventsSize;
}

void EventsWindow::makeParts() {
    auto* bars = new QHBoxLayout;
    bars->setContentsMargins({});
    for (LayoutToolbar* toolbar :
         {m_tools->toolbar(), m_tools->colourToolbar(), m_commands->toolbar()})
        bars->addWidget(toolbar);
    bars->addStretch();
    m_scroll->setWidget(m_page);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameStyle(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->verticalScrollBar()->setObjectName(u"VScroll1"_s);
    auto* menus = new QMenuBar;
    menus->addMenu(m_commands->menu());
    menus->addMenu(m_tools->editMenu());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->setMenuBar(menus);
    layout->addLayout(bars);
    layout->addWidget(m_bar);
    layout->addWidget(m_scroll, 1);
}

void EventsWindow::bindBoxes() {
    for (int day = 1; day <= DaysOfCalendar; ++day) {
        DayBox& box = m_page->box(day);
        m_months.binding().bind(dayField(day), box);
        m_tools->serve(box);
        connect(&box, &RichTextBox::edited, this, [this] {
            m_months.typed();
            m_writing.typed();
        });
    }
}

void EventsWindow::connectParts() {
    m_months.onChange([this] { showPage(); });
    connect(m_bar, &EventsBar::neighbourWanted, this,
            [this](int step) { showMonth(m_months.neighbour(step)); });
    connect(m_bar, &EventsBar::monthWanted, this,
            [this](int month) { showMonth(m_months.inTeachingYear(month)); });
    connect(m_bar, &EventsBar::dateWanted, this, &EventsWindow::SelectDate);
    connect(m_page, &MonthPage::daySelected, this, &EventsWindow::daySelected);
    connect(m_page, &MonthPage::boxGrown, this, &EventsWindow::showSelectedDay);
    connect(m_page, &MonthPage::monthWanted, this, &EventsWindow::goToNeighbour);
    connect(m_commands, &EventsCommands::planningWanted, this, &EventsWindow::showPlanning);
    connect(m_commands, &EventsCommands::importWanted, this,
            [this] { selectTodayAfter(m_months.importFromDatabase()); });
    connect(m_commands, &EventsCommands::mailImportWanted, this,
            [this] { selectTodayAfter(m_months.importFromMailClient()); });
    connect(m_commands, &EventsCommands::postWanted, this, &EventsWindow::post);
    connect(m_commands, &EventsCommands::scheduleWanted, this, &EventsWindow::scheduleEvent);
    QAction* holidays = m_commands->showHolidays();
    holidays->setChecked(m_session.GetSettings().get(setting::ShowHolidays));
    connect(holidays, &QAction::toggled, this, &EventsWindow::showGrounds);
}

/// What is changed in the settings is seen at once.
void EventsWindow::followColours() {
    SettingNotices& notices = m_session.GetSettings().notices();
    for (const auto& colour : {setting::WeekendCol, setting::HolidayCol})
        notices.onChange(colour, this, [this] { showGrounds(); });
}

void EventsWindow::SelectDate(QDate date) {
    if (showMonth({date.year(), date.month()}))
        m_page->enterDay(date.day());
}

bool EventsWindow::showMonth(const EventMonth& month) {
    m_page->setNewTextFont(
        m_session.GetSettings().ReadFontRecord(setting::keyOf(setting::Planning)));
    return m_months.ShowMonth(month);
}

void EventsWindow::showPage() {
    m_page->showMonth(m_months);
    m_page->setEnabled(m_months.hasRow());
    m_bar->showMonth();
    showGrounds();
}

void EventsWindow::showGrounds() {
    const Settings& settings = m_session.GetSettings();
    const QColor weekend = toColour(settings.get(setting::WeekendCol));
    const QColor holiday = m_commands->showHolidays()->isChecked()
                               ? toColour(settings.get(setting::HolidayCol))
                               : QColor(Qt::white);
    for (int day = 1; day <= m_months.days(); ++day) {
        const DayKind kind = m_months.kind(day);
        m_page->showGround(day, kind == DayKind::Weekend   ? weekend
                                : kind == DayKind::Holiday ? holiday
                                                           : QColor(Qt::white));
    }
}

void EventsWindow::daySelected(int day) {
    m_commands->setHasDay(day > 0);
    m_bar->showDay(day);
    showSelectedDay();
}

/// Scrolls to where the selected day is seen, all of a box that has grown: by the box, where the
/// scroll area would be content with its caret.
void EventsWindow::showSelectedDay() {
    if (m_page->selectedDay() == 0)
        return;
    const QRect box = m_page->box(m_page->selectedDay()).geometry();
    m_scroll->ensureVisible(box.center().x(), box.center().y(), 0, (box.height() + 1) / 2);
}

/// The keys go on to the last day of the month before, or to the first of the next.
void EventsWindow::goToNeighbour(int step) {
    if (showMonth(m_months.neighbour(step)))
        m_page->enterDay(step < 0 ? m_months.days() : 1);
}

void EventsWindow::showPlanning() {
    if (m_page->selectedDay() > 0)
        m_session.GetWindows().open(ToolWindow::DailySheet, m_months.date(m_page->selectedDay()));
}

void EventsWindow::post(DayBlock block) {
    const RichTextBox* box = m_tools->box();
    const int day = m_page->selectedDay();
    if (day == 0 || !box || box->selectionLength() == 0)
        return;
    tryTelling(m_session.GetSeams().prompts, {u"Calendar of Events Error"},
               [&] { m_postToSheet(m_months.date(day), block, box->selectedRtf()); });
}

void EventsWindow::scheduleEvent() {
    const int day = m_page->selectedDay();
    if (day > 0)
        m_session.GetWindows().open(
            ToolWindow::Reminders,
            EventText{.date = m_months.date(day), .text = m_page->box(day).plainText()});
}

void EventsWindow::selectTodayAfter(bool isImported) {
    if (isImported)
        SelectDate(m_session.GetSeams().clock.today());
}

void EventsWindow::closeEvent(QCloseEvent* event) {
    // A text that could not be written stays where it can be seen.
    event->setAccepted(m_writing.mayGo());
}

void EventsWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    showSelectedDay();
}

void EventsWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    showSelectedDay();
}
