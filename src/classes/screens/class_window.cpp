#include "classes/screens/class_window.h"

#include "classes/class_export_commands.h"
#include "classes/class_list_import.h"
#include "classes/class_removal.h"
#include "classes/grade_layout.h"
#include "classes/pupils.h"
#include "classes/screens/class_home_page.h"
#include "classes/screens/class_view_page.h"
#include "classes/screens/grades_page.h"
#include "classes/screens/name_list.h"
#include "classes/screens/new_class_wizard.h"
#include "classes/screens/pupil_information_page.h"
#include "classes/screens/pupil_notes_page.h"
#include "classes/screens/register_page.h"
#include "controls/colours.h"
#include "controls/icons.h"
#include "controls/kept_writing.h"
#include "controls/layout_toolbar.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/window_placement.h"
#include "store/engine/error.h"

#include <QAction>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QStackedWidget>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize UsualRegisterSize{900, 560};
constexpr int ExportButton = 4;
constexpr int MultiselectButton = 5;

/// The views in the order of their buttons.
constexpr ClassView ViewOrder[] = {RegisterView, GradesView, PupilInformationView, PupilNotesView};

} // namespace

ClassWindow::ClassWindow(Session& session) : m_session(session), m_desk(session) {
    setObjectName(u"RegisterFrm"_s);
    setWindowTitle(u"Class lists, register & grades"_s);
    makeParts();
    load();
    m_first->setFocus();
}

ClassWindow::~ClassWindow() {
    leaveView();
    m_names->follow(nullptr);
    // The pages tell of losing the focus while they go: as long as there is a desk to hear it.
    delete m_pages;
    delete m_names;
}

QSize ClassWindow::sizeHint() const {
    return UsualRegisterSize;
}

void ClassWindow::makeParts() {
    auto* bar = new QMenuBar;
    m_names = new NameList(m_desk);
    makePages();
    auto* top = new QHBoxLayout;
    top->setContentsMargins({});
    top->addWidget(makeSelector());
    top->addWidget(makeToolbar(), 1);
    auto* body = new QHBoxLayout;
    body->setContentsMargins({});
    body->setSpacing(0);
    body->addWidget(m_names);
    body->addWidget(m_pages, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->setMenuBar(bar);
    layout->addLayout(top);
    layout->addLayout(body, 1);
    m_names->onLeave([this] { return leaveView(); });
    connect(m_names, &NameList::pupilChanged, this, &ClassWindow::showCurrentPupil);
    connect(m_names, &NameList::multiselectWanted, this, [this] {
        m_desk.selection().setMultiSelect(true);
        showMultiselect();
    });
    connect(m_names, &NameList::rowHeightChanged, this, &ClassWindow::setRowHeight);
}

void ClassWindow::makePages() {
    m_pages = new QStackedWidget;
    m_first = new ClassHomePage(m_desk);
    m_pages->addWidget(m_first);
    m_views[RegisterView] = new RegisterPage(m_session, m_desk);
    m_views[GradesView] = new GradesPage(m_session, m_desk);
    m_views[PupilNotesView] = new PupilNotesPage(m_session, m_desk);
    m_views[PupilInformationView] = new PupilInformationPage(m_session, m_desk);
    for (ClassViewPage* page : std::as_const(m_views)) {
        m_pages->addWidget(page);
        connect(page, &ClassViewPage::recordsChanged, this,
                [this] { showView(m_desk.view().value_or(PupilInformationView)); });
        connect(page, &ClassViewPage::recordsShown, this, &ClassWindow::showRecords);
    }
    connect(m_first, &ClassHomePage::classWanted, this, &ClassWindow::selectClass);
    connect(m_first, &ClassHomePage::viewWanted, this, &ClassWindow::wantViewOfPupils);
    connect(m_first, &ClassHomePage::taskWanted, this, &ClassWindow::runTask);
}

/// The class that is selected, in its colour, and the way back to the first page.
QWidget* ClassWindow::makeSelector() {
    m_home = new QToolButton;
    m_home->setObjectName(u"cmdHome"_s);
    m_home->setIcon(icon(u"home"_s));
    m_home->setToolTip(u"Classes and tasks"_s);
    m_home->setAccessibleName(m_home->toolTip());
    m_home->setAutoRaise(true);
    m_home->setFocusPolicy(Qt::TabFocus);
    m_selector = new QComboBox;
    m_selector->setObjectName(u"cboClass"_s);
    m_selector->setAccessibleName(u"Class"_s);
    m_selector->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_selector->setMinimumContentsLength(8);
    auto* selector = new QWidget;
    auto* layout = new QHBoxLayout(selector);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->addWidget(m_home);
    layout->addWidget(m_selector);
    connect(m_home, &QToolButton::clicked, this, [this] {
        showFirstPage();
        m_pages->currentWidget()->setFocus();
    });
    connect(m_selector, &QComboBox::activated, this, [this](int index) {
        selectClass(m_selector->itemText(index));
        m_pages->currentWidget()->setFocus();
    });
    return selector;
}

LayoutToolbar* ClassWindow::makeToolbar() {
    m_toolbar = new LayoutToolbar(u"RegisterTools"_s, u"BBBB|BB"_s,
                                  u"Register|Grades|Pupil Information|Pupil Notes|"
                                  "Export to MSExcel|Toggle Multiselect (Ctrl + Click)"_s,
                                  u"register|grades|pupil|notes|export|multiselect"_s);
    for (int i = 0; i < ExportButton; ++i) {
        m_toolbar->button(i)->setCheckable(true);
        connect(m_toolbar->button(i), &QAction::triggered, this, [this, i] {
            wantView(ViewOrder[i]);
            viewShown();
        });
    }
    connect(m_toolbar->button(ExportButton), &QAction::triggered, this, &ClassWindow::exportView);
    QAction* multiselect = m_toolbar->button(MultiselectButton);
    multiselect->setCheckable(true);
    connect(multiselect, &QAction::triggered, this, &ClassWindow::toggleMultiselect);
    return m_toolbar;
}

void ClassWindow::load() {
    trying([this] { m_desk.updateTables(); });
    const bool isRead = trying([this] { m_desk.refreshClasses({}); });
    showClasses();
    if (!isRead || !m_desk.classes().isEmpty())
        return;
    showNoClasses(m_session.GetSeams().prompts);
    QTimer::singleShot(0, this, [this] { m_session.GetWindows().close(ToolWindow::Classes); });
}

void ClassWindow::showClasses() {
    m_selector->clear();
    for (const ClassColour& each : m_desk.classes()) {
        const QColor colour = toColour(each.colour);
        m_selector->addItem(each.code);
        m_selector->setItemData(m_selector->count() - 1, colour, Qt::BackgroundRole);
        m_selector->setItemData(m_selector->count() - 1, textColourOn(colour), Qt::ForegroundRole);
    }
    viewShown();
}

/// A view stays on for another class, if that has pupils to show.
void ClassWindow::selectClass(const QString& classCode) {
    const std::optional<ClassView> view = m_desk.view();
    if (!leaveView() || !trying([&] { m_desk.selectClass(classCode); })) {
        viewShown();
        return;
    }
    viewShown();
    if (view && m_desk.sheet().rowCount() > 0)
        showView(*view);
}

void ClassWindow::wantView(ClassView view) {
    if (!leaveView())
        return;
    if (m_desk.classCode().isEmpty())
        showNoClasses(m_session.GetSeams().prompts);
    else
        showView(view);
    m_pages->currentWidget()->setFocus();
}

/// The first page opens no view of a class without pupils.
void ClassWindow::wantViewOfPupils(ClassView view) {
    if (!m_desk.classCode().isEmpty() && m_desk.sheet().rowCount() == 0)
        showNoPupils(m_session.GetSeams().prompts, m_desk.classCode());
    else
        wantView(view);
}

void ClassWindow::showView(ClassView view) {
    if (!m_views.contains(view) || m_desk.classCode().isEmpty())
        return;
    setUpdatesEnabled(false);
    trying([&] { m_desk.showView(view); });
    viewShown();
    setUpdatesEnabled(true);
}

void ClassWindow::showFirstPage() {
    if (leaveView() && trying([this] { m_desk.showFirstPage(); }))
        viewShown();
}

/// Brings the window in line with the desk, whatever has changed there.
void ClassWindow::viewShown() {
    m_pages->setCurrentWidget(m_desk.view() ? static_cast<QWidget*>(page()) : m_first);
    m_names->follow(page() ? page()->grid() : nullptr);
    m_selector->setCurrentText(m_desk.classCode());
    colourSelector();
    m_first->showClasses();
    for (int i = 0; i < ExportButton; ++i)
        m_toolbar->button(i)->setChecked(m_desk.view() == ViewOrder[i]);
    m_home->setEnabled(m_desk.view().has_value());
    showMultiselect();
    showRecords();
}

void ClassWindow::colourSelector() {
    const int index = classIndex(m_desk.classes(), m_desk.classCode());
    QPalette colours;
    if (index >= 0) {
        const QColor colour = toColour(m_desk.classes()[index].colour);
        colours.setColor(QPalette::Button, colour);
        colours.setColor(QPalette::ButtonText, textColourOn(colour));
    }
    m_selector->setPalette(colours);
}

void ClassWindow::showRecords() {
    m_names->showRecords();
    const bool hasHeight = m_desk.view() == GradesView || m_desk.view() == PupilNotesView;
    m_names->setRowHeight(
        hasHeight ? loadRowHeight(m_session.GetSettings(), m_desk.classCode(), layoutKind()) /
                        TwipsPerPixel
                  : 0);
    if (page())
        trying([this] { page()->showRecords(); });
    showCurrentPupil();
}

void ClassWindow::showCurrentPupil() {
    if (page())
        page()->showPupil(m_desk.currentRow());
}

ClassViewPage* ClassWindow::page() const {
    return m_desk.view() ? m_views.value(*m_desk.view()) : nullptr;
}

bool ClassWindow::leaveView() {
    return !page() || page()->leave();
}

/// The first page shows no view: what it has is the class.
void ClassWindow::exportView() {
    if (m_desk.classCode().isEmpty())
        return showNoClasses(m_session.GetSeams().prompts);
    if (!page())
        return exportDetails();
    if (!leaveView())
        return;
    page()->exportRecords();
    showCurrentPupil(); // his boxes were let go
}

void ClassWindow::exportDetails() {
    Export_to_Excel(m_session, m_desk.classCode());
}

void ClassWindow::toggleMultiselect() {
    m_desk.selection().setMultiSelect(m_toolbar->button(MultiselectButton)->isChecked());
    m_desk.selection().toggleMultiselect();
    if (m_desk.view() && leaveView())
        showView(*m_desk.view());
    showMultiselect();
}

void ClassWindow::showMultiselect() {
    m_toolbar->button(MultiselectButton)->setChecked(m_desk.selection().isMultiSelect());
    m_names->showSelection();
}

LayoutKind ClassWindow::layoutKind() const {
    return m_desk.view() == GradesView ? LayoutKind::Grades : LayoutKind::Notes;
}

void ClassWindow::setRowHeight(int pixels) {
    const int kept = saveRowHeight(m_session.GetSettings(), m_desk.classCode(), layoutKind(),
                                   pixels * TwipsPerPixel);
    m_names->setRowHeight(kept / TwipsPerPixel);
}

void ClassWindow::AutoRegistration(const QString& classCode) {
    if (classIndex(m_desk.classes(), classCode) < 0 || !leaveView())
        return;
    if (trying([&] { m_desk.selectClass(classCode); }))
        wantView(RegisterView);
    viewShown();
}

void ClassWindow::runTask(ClassTask task, bool withCtrl) {
    if (m_desk.classCode().isEmpty() && task != ClassTask::CreateClass)
        return showNoClasses(m_session.GetSeams().prompts);
    switch (task) {
    case ClassTask::AddPupil:
        addPupil();
        break;
    case ClassTask::CreateClass:
        createClass();
        break;
    case ClassTask::ImportList:
        importList();
        break;
    case ClassTask::DeletePupil:
        deletePupil(withCtrl);
        break;
    case ClassTask::DeleteClass:
        deleteClass();
        break;
    case ClassTask::Export:
        exportDetails();
        break;
    }
}

/// The new pupil is the current one, the last in the file wherever he stands in the list.
void ClassWindow::addPupil() {
    const std::optional<qint64> pupil =
        Add_New_Pupil(m_session.CurrentDB, m_desk.classCode(), m_session.GetSeams().prompts);
    if (!pupil)
        return;
    emit m_session.GetNotices().pupilsChanged(m_desk.classCode());
    showFirstPage();
    m_names->goTo(static_cast<int>(m_desk.sheet().pupils().indexOf(*pupil)));
}

void ClassWindow::createClass() {
    QString made;
    trying([&] {
        NewClassWizard wizard(m_session, this);
        wizard.exec();
        made = wizard.createdClass();
    });
    if (made.isEmpty())
        return;
    trying([this] { m_desk.updateTables(); }); // the new class lacks what only they give it
    trying([&] { m_desk.refreshClasses(made); });
    showClasses();
    emit m_session.GetNotices().classesChanged();
}

void ClassWindow::importList() {
    const QString clipboard = QGuiApplication::clipboard()->text();
    if (Paste_Classlist(m_session, m_desk.classCode(), clipboard) == 0)
        return;
    emit m_session.GetNotices().pupilsChanged(m_desk.classCode());
    showFirstPage();
}

void ClassWindow::deletePupil(bool all) {
    Prompts& prompts = m_session.GetSeams().prompts;
    if (m_desk.currentRow() < 0)
        showNothingToDelete(prompts);
    else if (all)
        Delete_All_Pupils(m_session.CurrentDB, m_desk.classCode(), m_desk.sheet().pupils(),
                          prompts);
    else if (Delete_Pupil(m_session.CurrentDB, m_desk.classCode(), *m_desk.currentPupil(),
                          pupilName(m_desk.sheet(), m_desk.currentRow()),
                          m_session.DontAskDeletePupil, prompts))
        m_desk.forgetCurrent();
    emit m_session.GetNotices().pupilsChanged(m_desk.classCode());
    showFirstPage();
    m_first->selectFirstTask(); // Return does no further harm
}

void ClassWindow::deleteClass() {
    Prompts& prompts = m_session.GetSeams().prompts;
    const QString code = m_desk.classCode();
    const bool canArchive = m_session.GetWindows().has(ToolWindow::Archive);
    switch (askDeleteClass(prompts, code, canArchive, m_session.DontAskDeleteClass)) {
    case DeleteClassAnswer::No:
        return;
    case DeleteClassAnswer::Archive:
        m_session.GetWindows().archiveClass(code);
        return;
    case DeleteClassAnswer::Yes:
        break;
    }
    const bool isGone = Delete_Class(m_session.CurrentDB, code, prompts);
    // Its records were closed even where it is still there.
    trying([&] { m_desk.refreshClasses(isGone ? QString() : code); });
    showClasses();
    m_first->selectFirstTask();
    emit m_session.GetNotices().classesChanged();
}

/// Does what may fail in the file, and tells where it did.
bool ClassWindow::trying(const std::function<void()>& work) {
    return tryTelling(m_session.GetSeams().prompts, LoadingFailure, work);
}

void ClassWindow::closeEvent(QCloseEvent* event) {
    if (!mayWindowGo(*this) || !leaveView()) {
        event->ignore();
        return;
    }
    for (ClassViewPage* page : std::as_const(m_views))
        page->saveLook();
    m_desk.release();
}
