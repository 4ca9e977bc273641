#include "planning/screens/daily_sheet_window.h"

#include "controls/bound_rich_text.h"
#include "controls/date_field.h"
#include "controls/edit_menu.h"
#include "controls/format_tools.h"
#include "controls/icons.h"
#include "controls/layout_toolbar.h"
#include "core/session.h"
#include "core/settings.h"
#include "planning/cover_sheets.h"
#include "planning/plan_document.h"
#include "planning/planning_settings.h"
#include "planning/quick_plan.h"
#include "planning/screens/bottom_blocks.h"
#include "planning/screens/class_box.h"
#include "planning/screens/links_panel.h"
#include "planning/screens/maximise_button.h"
#include "planning/screens/period_area.h"
#include "planning/screens/sheet_bar.h"
#include "planning/screens/sheet_commands.h"
#include "planning/screens/short_term_plan_panel.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize DailySheetSize(960, 620);

const QString sheetTitle = u"Quick Daily Planning Sheet"_s;
const QString planTitle = u"Short Term Plan:"_s;
const QString maximiseActivityTip = u"Maximise Selected Activity"_s;
const QString restoreTip = u"Restore"_s;

} // namespace

DailySheetWindow::DailySheetWindow(Session& session)
    : m_session(session)
    , m_sheets(session)
    , m_showsCoding(session.GetSettings().get(setting::ShowClassCoding))
    , m_tools(new FormatTools(session, u"BBBB|BB|B"_s, *this))
    , m_commands(new SheetCommands(session, *m_tools, *this))
    , m_writing(*this, session.GetSeams(),
                {.what = u"The daily planning sheet"_s,
                 .save = [this] { return m_sheets.save(); },
                 .leave = [this] { return m_sheets.leave(); }}) {
    setObjectName(u"ORVAfrm"_s);
    setWindowTitle(sheetTitle);
    makeParts();
    makeMenus();
    bindBoxes();
    connectCommands();
    followTheYear();
    m_sheets.onChange([this] { sheetChanged(); });
    m_sheets.showFirst();
    if (!m_sheets.isEmpty())
        m_periods->lesson(1).setFocus();
}

DailySheetWindow::~DailySheetWindow() {
    m_writing.end();
    m_sheets.plan().close();
    // The parts tell of losing the focus while they go: as long as there is somebody to hear it.
    delete m_pages;
}

QSize DailySheetWindow::sizeHint() const {
    return DailySheetSize;
}

void DailySheetWindow::makeParts() {
    m_bar = new SheetBar(m_sheets, this);
    m_links = new LinksPanel(m_session, u"Combo1"_s);
    m_pages = new QStackedWidget;
    m_pages->addWidget(makeSheet());
    m_pages->addWidget(makeMaximised());
    m_maximiseButton = new MaximiseButton(u"CMD2"_s, this);
    auto* bars = new QHBoxLayout;
    bars->setContentsMargins({});
    for (LayoutToolbar* toolbar :
         {m_tools->toolbar(), m_tools->colourToolbar(), m_commands->toolbar()})
        bars->addWidget(toolbar);
    bars->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addLayout(bars);
    layout->addWidget(m_bar);
    layout->addWidget(m_pages, 1);
    layout->addWidget(m_links);
}

QWidget* DailySheetWindow::makeSheet() {
    constexpr int periodsShare = 4;
    m_periods = new PeriodArea(m_session.PeriodsPerDay, m_sheets.classCodes());
    m_bottom = new BottomBlocks;
    auto* sheet = new QSplitter(Qt::Vertical);
    sheet->setContentsMargins(4, 0, 4, 0);
    sheet->setChildrenCollapsible(false);
    sheet->addWidget(m_periods);
    sheet->addWidget(m_bottom);
    sheet->setStretchFactor(0, periodsShare);
    sheet->setStretchFactor(1, 1);
    return sheet;
}

QWidget* DailySheetWindow::makeMaximised() {
    m_maximisedPage = new QWidget;
    m_maximisedHeading = new QLabel;
    m_maximisedHeading->setObjectName(u"Label2"_s);
    auto* layout = new QVBoxLayout(m_maximisedPage);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->addWidget(m_maximisedHeading);
    return m_maximisedPage;
}

void DailySheetWindow::makeMenus() {
    auto* bar = new QMenuBar;
    for (QMenu* menu : {m_commands->planningMenu(), m_commands->periodMenu(),
                        static_cast<QMenu*>(m_tools->editMenu())})
        bar->addMenu(menu);
    layout()->setMenuBar(bar);
}

void DailySheetWindow::bindBoxes() {
    for (int period = 1; period <= m_periods->periods(); ++period) {
        bindClass(period);
        bindRichText(m_periods->lesson(period), {SheetBox::Lesson, period});
        bindRichText(m_periods->homework(period), {SheetBox::Homework, period});
    }
    for (const SheetBox block : BottomBlocks::Blocks)
        bindRichText(m_bottom->box(block), {block, 0});
}

void DailySheetWindow::bindClass(int period) {
    ClassBox& box = m_periods->classBox(period);
    m_sheets.binding().bind(classField(period), box);
    connect(&box, &ClassBox::edited, this, [this, &box, period] {
        m_writing.typed();
        enableCommands();
        if (m_showsCoding)
            m_periods->showColour(period, m_sheets.classColour(box.currentText()));
    });
}

void DailySheetWindow::bindRichText(RichTextBox& box, const SheetPlace& place) {
    const bool isLimited = place.box == SheetBox::Lesson;
    m_bound.push_back(std::make_unique<BoundRichText>(box));
    m_sheets.binding().bind(fieldOf(place), *m_bound.back(),
                            isLimited ? u"Period %1"_s.arg(place.period) : QString());
    m_places.insert(&box, place);
    m_tools->serve(box);
    connect(&box, &RichTextBox::edited, this, [this] { m_writing.typed(); });
}

void DailySheetWindow::connectCommands() {
    connect(&m_bar->calendar(), &DateField::dateChosen, this, &DailySheetWindow::pickDate);
    connect(m_periods, &PeriodArea::periodSelected, this, &DailySheetWindow::selectPeriod);
    connect(m_periods, &PeriodArea::menuWanted, this, [this](int period, const QPoint& place) {
        m_periods->selectPeriod(period);
        m_commands->periodMenu()->popup(place);
    });
    connect(m_periods, &PeriodArea::planWanted, this, &DailySheetWindow::ZoomIn);
    connect(m_commands, &SheetCommands::planToggled, this, &DailySheetWindow::togglePlan);
    connect(m_maximiseButton, &QToolButton::clicked, this, &DailySheetWindow::toggleMaximised);
    connect(m_commands, &SheetCommands::maximiseWanted, this, &DailySheetWindow::toggleMaximised);
    connect(m_commands, &SheetCommands::createWanted, &m_bar->calendar(), &DateField::dropDown);
    connect(m_commands, &SheetCommands::todayWanted, this, [this] { m_sheets.showToday(); });
    connect(m_commands, &SheetCommands::tomorrowWanted, this, [this] { m_sheets.showTomorrow(); });
    connect(m_commands, &SheetCommands::deleteWanted, this, [this] { m_sheets.deleteSheet(); });
    connect(m_commands, &SheetCommands::eventWanted, this, &DailySheetWindow::carryOut);
    connect(m_commands, &SheetCommands::registerWanted, this, &DailySheetWindow::openRegister);
    connect(m_commands, &SheetCommands::historyWanted, this, &DailySheetWindow::openHistory);
    connectExports();
}

/// A document shows what is in the file.
void DailySheetWindow::connectExports() {
    const auto make = [this](auto wanted, auto create) {
        connect(m_commands, wanted, this, [this, create] {
            if (m_writing.save())
                create(documentPlace(m_session), m_sheets.date());
        });
    };
    make(&SheetCommands::quickPlanWanted, [this](const DocumentPlace& place, QDate date) {
        CreateQuickPlan(m_session, place, date);
    });
    make(&SheetCommands::coverSheetsWanted, [this](const DocumentPlace& place, QDate date) {
        ExportCoverSheets(m_session, place, date);
    });
    make(&SheetCommands::shortTermPlanWanted, [this](const DocumentPlace& place, QDate date) {
        CreateShortTermPlan(m_session, place, date, m_periods->selectedPeriod());
    });
}

/// On the class of the period, where it has one.
void DailySheetWindow::openRegister() {
    m_session.GetWindows().open(ToolWindow::Classes, m_sheets.classOf(m_periods->selectedPeriod()));
}

/// Of the class as it stands in its box, where there may be a new one since the period was
/// selected.
void DailySheetWindow::openHistory() {
    m_writing.save();
    m_sheets.selectPeriod(m_periods->selectedPeriod());
    m_session.GetWindows().open(ToolWindow::History);
}

void DailySheetWindow::showText(const SheetText& text) {
    if (text.date != m_sheets.date() && !m_sheets.ShowPlan(text.date))
        return;
    restore();
    m_periods->selectPeriod(text.period);
    RichTextBox& box =
        text.isHomework ? m_periods->homework(text.period) : m_periods->lesson(text.period);
    box.setFocus();
    box.select(text.start, text.length);
    m_periods->reveal(box);
}

/// What other windows have written is shown when the focus comes back, what they have changed of
/// the classes and the calendar of events at once.
void DailySheetWindow::followTheYear() {
    connect(&m_writing, &KeptWriting::cameBack, this, [this] { m_sheets.refresh(); });
    const Notices& notices = m_session.GetNotices();
    connect(&notices, &Notices::classesChanged, this, &DailySheetWindow::showClassesAgain);
    connect(&notices, &Notices::sheetsChanged, this, &DailySheetWindow::showClassesAgain);
    connect(&notices, &Notices::eventsChanged, this, [this] {
        m_bottom->showEvents(m_sheets.isEmpty() ? QString() : m_sheets.eventText());
    });
}

void DailySheetWindow::closeEvent(QCloseEvent* event) {
    // A text that could not be written stays where it can be seen.
    event->setAccepted(m_writing.mayGo());
    if (!event->isAccepted())
        return;
    m_sheets.plan().close();
    m_session.GetWindows().close(ToolWindow::Search); // which looks through these sheets
}

void DailySheetWindow::sheetChanged() {
    closePlan();
    restore();
    m_bar->showPosition();
    setHasSheet(!m_sheets.isEmpty());
    m_periods->selectPeriod(0); // also what the focus selects on its way out of disabled boxes
    enableCommands();
    if (m_sheets.isEmpty())
        return m_bottom->showEvents({});
    m_periods->showCoding(m_sheets.classCoding(m_showsCoding));
    applyDefaultFont();
    m_bottom->showEvents(m_sheets.eventText());
}

void DailySheetWindow::showClassesAgain() {
    m_writing.save();
    m_periods->setClassCodes(m_sheets.classCodes());
    m_sheets.refresh();
    if (!m_sheets.isEmpty())
        m_periods->showCoding(m_sheets.classCoding(m_showsCoding));
    if (m_sheets.plan().isOpen())
        listPlannable();
}

void DailySheetWindow::setHasSheet(bool hasSheet) {
    m_periods->setHasSheet(hasSheet);
    m_bottom->setHasSheet(hasSheet);
    emit m_tools->focused().changed(); // its box may be written in or not
}

void DailySheetWindow::applyDefaultFont() {
    const FontRecord font =
        m_session.GetSettings().ReadFontRecord(setting::keyOf(setting::Planning));
    for (auto box = m_places.keyBegin(); box != m_places.keyEnd(); ++box)
        (*box)->applyDefaultFont(font);
    if (m_sheets.plan().isOpen())
        m_planPanel->applyDefaultFont(font);
}

void DailySheetWindow::enableCommands() {
    const int period = m_periods->selectedPeriod();
    const bool hasClass = period > 0 && !m_periods->classBox(period).currentText().isEmpty();
    m_commands->enable({.isThere = !m_sheets.isEmpty(),
                        .period = period,
                        .hasClass = hasClass,
                        .isPlanOpen = m_sheets.plan().isOpen()});
}

void DailySheetWindow::selectPeriod(int period) {
    m_sheets.selectPeriod(period);
    m_links->showLinks(m_sheets.planDate(), period);
    enableCommands();
    placeMaximiseButton();
}

void DailySheetWindow::pickDate(QDate date) {
    if (!m_sheets.pickDate(date))
        m_bar->calendar().setDate(m_sheets.date());
}

void DailySheetWindow::carryOut(SheetEvent event) {
    Prompts& prompts = m_session.GetSeams().prompts;
    RichTextBox* box = m_tools->box();
    if (!box || !m_places.contains(box) || box->selectionLength() == 0)
        return tellNoSelection(prompts);
    const SheetSelection selection{m_places.value(box), box->selectedText(), box->selectedRtf(),
                                   m_sheets.planDate(), m_sheets.week()};
    if (!confirmEvent(prompts, event, selection))
        return;
    if (event != SheetEvent::Remove)
        box->copy();
    m_sheets.carryOut(event, selection);
}

void DailySheetWindow::toggleMaximised() {
    const int period = m_periods->selectedPeriod();
    if (m_maximised > 0) {
        RichTextBox& lesson = m_periods->lesson(m_maximised);
        restore();
        lesson.setFocus();
    } else if (period > 0) {
        RichTextBox& lesson = m_periods->lesson(period);
        m_maximised = period;
        m_maximisedHeading->setText(u"Period %1 - %2    %3"_s.arg(period).arg(
            m_periods->classBox(period).currentText(), m_sheets.heading()));
        static_cast<QBoxLayout*>(m_maximisedPage->layout())->addWidget(&lesson, 1);
        lesson.show();
        m_pages->setCurrentWidget(m_maximisedPage);
        lesson.setFocus();
        placeMaximiseButton();
    }
}

void DailySheetWindow::restore() {
    if (m_maximised == 0)
        return;
    m_periods->takeBack(m_maximised);
    m_maximised = 0;
    m_pages->setCurrentIndex(0);
    placeMaximiseButton();
}

void DailySheetWindow::placeMaximiseButton() {
    const int period = m_sheets.plan().isOpen() ? 0 : m_periods->selectedPeriod();
    const QString tip = m_maximised > 0 ? restoreTip : maximiseActivityTip;
    m_commands->maximise()->setText(tip);
    m_maximiseButton->setMaximised(m_maximised > 0, tip);
    m_maximiseButton->standOn(period > 0 ? m_periods->lesson(period).viewport() : nullptr);
}

void DailySheetWindow::togglePlan() {
    if (m_sheets.plan().isOpen())
        ZoomOut();
    else
        ZoomIn(m_periods->selectedPeriod());
    enableCommands(); // the command has ticked itself
}

void DailySheetWindow::ZoomIn(int period) {
    ShortTermPlan& plan = m_sheets.plan();
    if (m_sheets.isEmpty() || !ShortTermPlan::takes(period) || period == plan.period())
        return;
    const bool isAnother = plan.isOpen();
    m_sheets.binding().flush();
    if (plan.leave() != Leaving::Done)
        return m_planPanel->showPeriod(plan.period());
    if (isAnother)
        putPlanAway();
    else
        restore();
    makePlanPanel();
    if (plan.open(m_sheets.planDate(), period))
        showPlan(isAnother);
    else
        showSheetPage();
}

void DailySheetWindow::ZoomOut() {
    m_sheets.binding().flush();
    if (m_sheets.plan().leave() != Leaving::Done)
        return;
    closePlan();
    m_periods->showCoding(m_sheets.classCoding(m_showsCoding)); // with the mark of the plan
}

/// With the first plan that is opened, so that the sheet itself stands sooner.
void DailySheetWindow::makePlanPanel() {
    if (m_planPanel)
        return;
    m_planPanel = new ShortTermPlanPanel(m_sheets.plan(), m_session.TermCount, *m_tools);
    m_pages->addWidget(m_planPanel);
    connect(m_planPanel, &ShortTermPlanPanel::edited, this, [this] { m_writing.typed(); });
    connect(m_planPanel, &ShortTermPlanPanel::periodChosen, this, &DailySheetWindow::ZoomIn);
    connect(m_planPanel, &ShortTermPlanPanel::closeWanted, this, &DailySheetWindow::ZoomOut);
}

/// The plan that has been opened; `isAnother`: in place of one that the panel showed before.
void DailySheetWindow::showPlan(bool isAnother) {
    const int period = m_sheets.plan().period();
    if (isAnother)
        m_planPanel->showPeriod(period); // the list is what has chosen it
    else
        listPlannable();
    m_planPanel->takeIn(m_periods->lesson(period), m_periods->homework(period));
    m_pages->setCurrentWidget(m_planPanel);
    setWindowTitle(planTitle);
    m_periods->selectPeriod(period);
    enableCommands();
    placeMaximiseButton();
    applyDefaultFont();
    if (!isAnother)
        m_planPanel->setFocus();
}

void DailySheetWindow::listPlannable() {
    m_planPanel->showSheet(m_sheets.heading(), m_sheets.plannablePeriods());
    m_planPanel->showPeriod(m_sheets.plan().period());
}

void DailySheetWindow::putPlanAway() {
    m_periods->takeBack(m_sheets.plan().period());
    m_sheets.plan().close();
}

/// Shows the sheet again, where the plan has been written or given up.
void DailySheetWindow::closePlan() {
    const int period = m_sheets.plan().period();
    if (period == 0)
        return;
    const bool hadFocus = m_planPanel->isAncestorOf(QApplication::focusWidget());
    putPlanAway();
    showSheetPage();
    if (hadFocus)
        m_periods->lesson(period).setFocus();
}

void DailySheetWindow::showSheetPage() {
    m_pages->setCurrentIndex(0);
    setWindowTitle(sheetTitle);
    enableCommands();
    placeMaximiseButton();
}
