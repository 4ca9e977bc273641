#include "planning/screens/weekly_sheet_window.h"

#include "controls/colours.h"
#include "controls/edit_menu.h"
#include "controls/format_tools.h"
#include "controls/icons.h"
#include "controls/insert_object_menu.h"
#include "controls/layout_toolbar.h"
#include "controls/rich_text_box.h"
#include "controls/wheel_guard.h"
#include "core/session.h"
#include "core/settings.h"
#include "planning/daily_sheets.h"
#include "planning/planning_settings.h"
#include "planning/screens/lesson_slot.h"
#include "planning/screens/links_panel.h"
#include "planning/screens/maximise_button.h"
#include "planning/weekly_plan.h"
#include "user_menu/screens/tools_popup.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize WeeklySheetSize(900, 600);

const QString maximiseLessonTip = u"Maximise Lesson"_s;
const QString restoreLessonTip = u"Restore"_s;

} // namespace

WeeklySheetWindow::WeeklySheetWindow(Session& session)
    : m_session(session)
    , m_sheets(session)
    , m_tools(new FormatTools(session, u"BBBB|BB|B"_s, *this))
    , m_writing(*this, session.GetSeams(), {.what = u"The weekly planning sheet"_s, .save = [this] {
                                                return writeLessons();
                                            }}) {
    setObjectName(u"ORVA2frm"_s);
    setWindowTitle(u"Weekly Planning Sheet"_s);
    makeParts();
    makeMenus();
    m_sheets.load();
    fillLists();
    for (auto notice : {&Notices::classesChanged, &Notices::sheetsChanged})
        connect(&session.GetNotices(), notice, this, &WeeklySheetWindow::showClassesAgain);
    showWeek(m_sheets.currentWeek());
    m_class->setFocus(); // the toolbar before it begins with buttons that do nothing
}

WeeklySheetWindow::~WeeklySheetWindow() {
    m_writing.end();
    // The boxes tell of losing the focus while they go: as long as there is somebody to hear it.
    delete m_scroll;
}

QSize WeeklySheetWindow::sizeHint() const {
    return WeeklySheetSize;
}

void WeeklySheetWindow::makeParts() {
    auto* bars = new QHBoxLayout;
    bars->setContentsMargins({});
    for (LayoutToolbar* toolbar : {m_tools->toolbar(), m_tools->colourToolbar(), makeToolbar()})
        bars->addWidget(toolbar);
    bars->addStretch();
    auto* content = new QWidget;
    m_column = new QVBoxLayout(content);
    m_column->setContentsMargins(4, 0, 4, 0);
    m_scroll = new QScrollArea;
    m_scroll->setObjectName(u"SlotPanel"_s);
    m_scroll->setWidget(content);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameStyle(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_links = new LinksPanel(m_session, u"Combo3"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addLayout(bars);
    layout->addWidget(makeSelectors());
    layout->addWidget(m_scroll, 1);
    layout->addWidget(m_links);
    makeMaximiseButton();
}

QWidget* WeeklySheetWindow::makeSelectors() {
    auto* panel = new QWidget;
    auto* layout = new QHBoxLayout(panel);
    layout->setContentsMargins(4, 0, 4, 0);
    m_class = makeSelector(u"SelClass"_s, u"List2"_s, u"Class"_s);
    m_week = makeSelector(u"SelWeek"_s, u"List1"_s, u"Week"_s);
    m_previous = makeMoveButton(0, u"previous"_s, u"Previous week"_s, -1);
    m_next = makeMoveButton(1, u"next"_s, u"Next week"_s, 1);
    m_heading = new QLabel;
    m_heading->setObjectName(u"Heading"_s);
    QFont bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    for (QWidget* part : {static_cast<QWidget*>(m_class), static_cast<QWidget*>(m_previous),
                          static_cast<QWidget*>(m_week), static_cast<QWidget*>(m_next)})
        layout->addWidget(part);
    layout->addStretch();
    layout->addWidget(m_heading);
    return panel;
}

/// A list that drops down from the choice that it stands on.
QComboBox* WeeklySheetWindow::makeSelector(const QString& name, const QString& list,
                                           const QString& meaning) {
    auto* selector = new QComboBox;
    selector->setObjectName(name);
    selector->setAccessibleName(meaning);
    selector->setToolTip(meaning);
    selector->setView(new QListView);
    selector->view()->setObjectName(list);
    selector->view()->setAccessibleName(meaning);
    selector->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    selector->setFocusPolicy(Qt::StrongFocus);
    ignoreWheel(*selector);
    connect(selector, &QComboBox::currentIndexChanged, this, &WeeklySheetWindow::reload);
    return selector;
}

QToolButton* WeeklySheetWindow::makeMoveButton(int element, const QString& iconName,
                                               const QString& tip, int step) {
    auto* button = new QToolButton;
    button->setObjectName(u"ButtonEx1(%1)"_s.arg(element));
    button->setIcon(icon(iconName));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, [this, step] {
        selectSlot(-1);
        m_week->setCurrentIndex(m_week->currentIndex() + step);
    });
    return button;
}

/// Kept on purpose: the first two buttons do nothing.
LayoutToolbar* WeeklySheetWindow::makeToolbar() {
    auto* toolbar = new LayoutToolbar(u"ORVA2_Btns"_s, u"BBBB"_s,
                                      u"Show Lesson History|Lesson Properties. (STP details)|"
                                      "Export Weekly Plan(s) to MSWord|Insert Object"_s,
                                      u"history|properties|export|insert_object"_s, this);
    connect(toolbar->button(2), &QAction::triggered, this, &WeeklySheetWindow::exportToWord);
    toolbar->setMenu(3, m_tools->insertMenu());
    return toolbar;
}

void WeeklySheetWindow::makeMenus() {
    m_slotMenu = new QMenu(u"&Lesson"_s, this);
    m_slotMenu->setObjectName(u"mnuPopup"_s);
    m_maximise = m_slotMenu->addAction(icon(u"maximise"_s), maximiseLessonTip, this,
                                       &WeeklySheetWindow::toggleMaximised);
    m_maximise->setShortcut(Qt::CTRL | Qt::Key_M);
    m_maximise->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(m_maximise);
    QMenu* exports = m_slotMenu->addMenu(u"Export to MS Word"_s);
    exports->addAction(icon(u"export"_s), u"Weekly Planning Sheet"_s, this,
                       &WeeklySheetWindow::exportToWord);
    m_slotMenu->addMenu(m_tools->insertMenu());
    auto* bar = new QMenuBar;
    bar->addMenu(m_slotMenu);
    bar->addMenu(m_tools->editMenu());
    auto* shortcuts = bar->addMenu(u"&Shortcuts"_s);
    shortcuts->setObjectName(u"mnuUserApps"_s);
    fillOlderShortcuts(m_session, *shortcuts);
    layout()->setMenuBar(bar);
}

void WeeklySheetWindow::makeMaximiseButton() {
    m_maximiseButton = new MaximiseButton(u"cmd1"_s, this);
    connect(m_maximiseButton, &QToolButton::clicked, this, &WeeklySheetWindow::toggleMaximised);
}

void WeeklySheetWindow::fillLists() {
    const QSignalBlocker weekBlocker(m_week);
    const QSignalBlocker classBlocker(m_class);
    m_week->clear();
    m_class->clear();
    for (const QDate day : m_sheets.weeks())
        m_week->addItem(weekEntry(day));
    for (const ClassColour& each : m_sheets.classes()) {
        const QColor colour = toColour(each.colour);
        m_class->addItem(each.code);
        m_class->setItemData(m_class->count() - 1, colour, Qt::BackgroundRole);
        m_class->setItemData(m_class->count() - 1, textColourOn(colour), Qt::ForegroundRole);
    }
}

void WeeklySheetWindow::showClassesAgain() {
    const QString shown = m_class->itemText(m_shownClass);
    if (!m_sheets.load())
        return;
    fillLists();
    selectEntries(m_shownWeek, qMax(0, m_class->findText(shown)));
    showWeek(m_shownWeek);
}

void WeeklySheetWindow::reload() {
    showWeek(m_week->currentIndex());
}

void WeeklySheetWindow::showWeek(int week) {
    if (!m_writing.leave() || !m_sheets.showWeek(week, m_class->currentText()))
        return selectEntries(m_shownWeek, m_shownClass);
    m_shownWeek = week;
    m_shownClass = m_class->currentIndex();
    selectEntries(m_shownWeek, m_shownClass);
    showSlots();
    m_heading->setText(m_sheets.heading());
    enableMoves();
    applyDefaultFont();
}

void WeeklySheetWindow::selectEntries(int week, int classIndex) {
    const QSignalBlocker weekBlocker(m_week);
    const QSignalBlocker classBlocker(m_class);
    m_week->setCurrentIndex(week);
    m_class->setCurrentIndex(classIndex);
}

void WeeklySheetWindow::showSlots() {
    restore();
    selectSlot(-1);
    for (LessonSlotWidget* slot : std::exchange(m_slots, {}))
        delete slot;
    const QList<LessonSlot>& lessons = m_sheets.lessons();
    for (int element = 0; element < lessons.size(); ++element)
        addSlot(element, lessons.at(element));
    if (lessons.isEmpty())
        addNotice(m_sheets.hasSheets() ? NoLessonsNotice : QString());
    QWidget* before = m_next;
    for (LessonSlotWidget* slot : m_slots) {
        setTabOrder(before, &slot->lesson());
        setTabOrder(&slot->lesson(), &slot->homework());
        before = &slot->homework();
    }
}

void WeeklySheetWindow::addSlot(int element, const LessonSlot& slot) {
    auto* widget = new LessonSlotWidget(element, slot);
    m_slots.push_back(widget);
    m_column->addWidget(widget, 1);
    for (RichTextBox* box : {&widget->lesson(), &widget->homework()}) {
        if (!box->isReadOnly())
            m_tools->serve(*box);
    }
    connect(widget, &LessonSlotWidget::selected, this, [this, element] { selectSlot(element); });
    connect(widget, &LessonSlotWidget::edited, this, [this] { m_writing.typed(); });
    connect(widget, &LessonSlotWidget::menuWanted, m_slotMenu,
            [this](const QPoint& place) { m_slotMenu->popup(place); });
}

void WeeklySheetWindow::addNotice(const QString& notice) {
    m_slots.push_back(new LessonSlotWidget(notice));
    m_column->addWidget(m_slots.back(), 1);
}

void WeeklySheetWindow::enableMoves() {
    const int week = m_week->currentIndex();
    m_previous->setEnabled(week > 0);
    m_next->setEnabled(week >= 0 && week < m_week->count() - 1);
}

void WeeklySheetWindow::applyDefaultFont() {
    const FontRecord font =
        m_session.GetSettings().ReadFontRecord(setting::keyOf(setting::Planning));
    for (const LessonSlotWidget* slot : m_slots) {
        slot->lesson().applyDefaultFont(font);
        slot->homework().applyDefaultFont(font);
    }
}

void WeeklySheetWindow::selectSlot(int element) {
    if (m_selected == element)
        return;
    if (m_selected >= 0)
        m_slots.at(m_selected)->setSelected(false);
    m_selected = element;
    if (element >= 0) {
        LessonSlotWidget& slot = *m_slots.at(element);
        slot.setSelected(true);
        if (!slot.lesson().hasFocus() && !slot.homework().hasFocus())
            slot.lesson().setFocus();
    }
    m_maximise->setEnabled(element >= 0);
    placeMaximiseButton();
    showSlotLinks();
}

/// The period is what the caption says, as for writing back.
void WeeklySheetWindow::showSlotLinks() {
    if (m_selected < 0)
        return m_links->showLinks({}, 0);
    const LessonSlot& slot = m_sheets.lessons().at(m_selected);
    m_links->showLinks(slot.planDate, captionPeriod(slot.caption));
}

bool WeeklySheetWindow::writeLessons() {
    QList<SlotTexts> texts;
    for (const LessonSlotWidget* slot : m_slots)
        texts += slot->texts();
    if (!m_sheets.writeLessons(texts))
        return false;
    for (qsizetype i = 0; i < texts.size(); ++i)
        m_slots.at(static_cast<size_t>(i))->markWritten(texts.at(i));
    return true;
}

/// The document shows what is in the file.
void WeeklySheetWindow::exportToWord() {
    if (m_shownWeek < 0 || m_shownClass < 0 || !m_writing.save())
        return;
    const QList<QDate>& weeks = m_sheets.weeks();
    ExportWeeklyPlan(m_session, documentPlace(m_session),
                     {m_class->itemText(m_shownClass), weeks.value(m_shownWeek), weeks});
}

void WeeklySheetWindow::closeEvent(QCloseEvent* event) {
    // A text that could not be written stays where it can be seen.
    event->setAccepted(m_writing.mayGo());
}

void WeeklySheetWindow::toggleMaximised() {
    if (m_selected < 0)
        return;
    if (m_isMaximised)
        return restore();
    m_isMaximised = true;
    for (LessonSlotWidget* slot : m_slots)
        slot->setVisible(slot == m_slots.at(m_selected));
    m_slots.at(m_selected)->setMaximised(true);
    placeMaximiseButton();
}

void WeeklySheetWindow::restore() {
    if (!m_isMaximised)
        return;
    m_isMaximised = false;
    for (LessonSlotWidget* slot : m_slots) {
        slot->setMaximised(false);
        slot->show();
    }
    placeMaximiseButton();
}

void WeeklySheetWindow::placeMaximiseButton() {
    const QString tip = m_isMaximised ? restoreLessonTip : maximiseLessonTip;
    m_maximise->setText(tip);
    m_maximiseButton->setMaximised(m_isMaximised, tip);
    m_maximiseButton->standOn(m_selected >= 0 ? m_slots.at(m_selected)->lesson().viewport()
                                              : nullptr);
}
