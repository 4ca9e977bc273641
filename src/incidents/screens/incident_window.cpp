#include "incidents/screens/incident_window.h"

#include "controls/edit_menu.h"
#include "controls/format_tools.h"
#include "controls/icons.h"
#include "controls/window_going.h"
#include "core/engine_failure.h"
#include "core/session.h"
#include "core/settings.h"
#include "incidents/incident_settings.h"
#include "incidents/incident_tree_model.h"
#include "incidents/new_incident.h"
#include "incidents/screens/incident_report_panel.h"
#include "incidents/screens/new_incident_panel.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSet>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTreeView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize IncidentsSize(880, 560);
constexpr int TreeWidthInLetters = 26;
constexpr FailureBox IncidentFailure{.title = u"Incident Reporter"};

} // namespace

IncidentWindow::IncidentWindow(Session& session)
    : m_session(session)
    , m_model(new IncidentTreeModel(session.ShortDateFormat, this))
    , m_tree(new QTreeView)
    , m_new(new QPushButton(icon(u"new"_s), u"&New Report..."_s))
    , m_delete(new QPushButton(icon(u"delete"_s), u"&Delete"_s))
    , m_panel(new IncidentReportPanel(session, *this))
    , m_newPanel(new NewIncidentPanel(session))
    , m_pages(new QStackedWidget)
    , m_writing(*this, session.GetSeams(),
                {.what = u"The incident report"_s,
                 .save = [this] { return m_panel->save(); },
                 .leave = [this] { return m_panel->leave(); }}) {
    setObjectName(u"IncidentFrm"_s);
    setWindowTitle(u"Incident Reporter"_s);
    m_pages->addWidget(m_panel);
    m_pages->addWidget(m_newPanel);
    auto* split = new QSplitter;
    split->setChildrenCollapsible(false);
    split->addWidget(makeTreeSide());
    split->addWidget(m_pages);
    split->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(split);
    makeMenus();
    connectParts();
    new AskBeforeGoing(*this, [this] { return mayLeaveNew(); });
    tryTelling(session.GetSeams().prompts, IncidentFailure, [&] {
        const int cutTexts = Check_Incident_Tables(session.CurrentDB);
        if (cutTexts > 0)
            session.GetSeams().prompts.msg_Box(
                u"The reports of an older program have been taken over. %1 texts were too long "
                "for their fields and have been cut at their end."_s.arg(cutTexts),
                OkButton | WarningIcon, u"Incident Reporter"_s);
    });
    loadTreeview();
    (m_tree->isEnabled() ? static_cast<QWidget*>(m_tree) : m_new)->setFocus();
}

IncidentWindow::~IncidentWindow() {
    m_writing.end();
    // The boxes tell of losing the focus while they go: as long as there is somebody to hear it.
    delete m_panel;
}

QSize IncidentWindow::sizeHint() const {
    return IncidentsSize;
}

QWidget* IncidentWindow::makeTreeSide() {
    m_tree->setObjectName(u"tv1"_s);
    m_tree->setAccessibleName(u"Incident reports"_s);
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setModel(m_model);
    m_new->setObjectName(u"cmdNew"_s);
    m_delete->setObjectName(u"cmdDelete"_s);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {m_new, m_delete}) {
        button->setAutoDefault(true);
        buttons->addWidget(button);
    }
    auto* side = new QWidget;
    side->setMinimumWidth(fontMetrics().averageCharWidth() * TreeWidthInLetters);
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins({});
    layout->addWidget(m_tree, 1);
    layout->addLayout(buttons);
    return side;
}

void IncidentWindow::makeMenus() {
    auto* options = new QMenu(u"&Options"_s, this);
    QAction* quiet = options->addAction(u"Don't Display the Security Warning"_s);
    quiet->setObjectName(u"mnuOptItem(0)"_s);
    quiet->setCheckable(true);
    Settings& settings = m_session.GetSettings();
    connect(options, &QMenu::aboutToShow, quiet,
            [&settings, quiet] { quiet->setChecked(settings.get(setting::ShowSecurityDialog)); });
    connect(quiet, &QAction::triggered, this,
            [&settings](bool isQuiet) { settings.set(setting::ShowSecurityDialog, isQuiet); });
    auto* bar = new QMenuBar;
    bar->addMenu(options);
    bar->addMenu(m_panel->tools().editMenu());
    layout()->setMenuBar(bar);
}

void IncidentWindow::connectParts() {
    connect(m_tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &IncidentWindow::selectionChanged);
    connect(m_tree, &QTreeView::activated, this, [this](const QModelIndex& index) {
        if (m_model->report(index))
            m_panel->enter();
    });
    auto* deletes = new QShortcut(Qt::Key_Delete, m_tree);
    deletes->setContext(Qt::WidgetShortcut);
    connect(deletes, &QShortcut::activated, this, &IncidentWindow::deleteCurrent);
    connect(m_new, &QPushButton::clicked, this, &IncidentWindow::beginNew);
    connect(m_delete, &QPushButton::clicked, this, &IncidentWindow::deleteCurrent);
    connect(m_panel, &IncidentReportPanel::edited, this, [this] { m_writing.typed(); });
    connect(m_panel, &IncidentReportPanel::exportWanted, this, [this] {
        m_writing.save();
        CreateWordDoc(m_session, documentPlace(m_session),
                      m_panel->texts(m_session.ShortDateFormat));
    });
    connect(m_newPanel, &NewIncidentPanel::createWanted, this, &IncidentWindow::create);
    connect(m_newPanel, &NewIncidentPanel::leaveWanted, this, &IncidentWindow::leaveNew);
}

/// Reads the tree anew. The pupils that were unfolded stay so; nothing is selected.
void IncidentWindow::loadTreeview() {
    const QScopedValueRollback loading(m_isLoading, true);
    QSet<qint64> unfolded;
    for (int group = 0; group < m_model->rowCount(); ++group) {
        const QModelIndex index = m_model->groupIndex(group);
        if (m_tree->isExpanded(index))
            unfolded += m_model->pupil(index)->id;
    }
    tryTelling(m_session.GetSeams().prompts, IncidentFailure,
               [this] { m_model->setIncidents(readIncidents(m_session.CurrentDB)); });
    for (const qint64 pupil : std::as_const(unfolded))
        m_tree->expand(m_model->indexOfPupil(pupil));
    m_shown.reset();
    m_panel->EnableControlsForEditing(false);
    m_tree->setEnabled(!m_model->isEmpty());
    m_delete->setEnabled(!m_model->isEmpty());
    m_panel->setVisible(!m_model->isEmpty());
}

/// The current place alone says nothing: the tree makes one when the keyboard comes to it.
QModelIndex IncidentWindow::selected() const {
    return m_tree->selectionModel()->selectedIndexes().value(0);
}

void IncidentWindow::selectReport(qint64 report) {
    const QModelIndex place = m_model->indexOfReport(report);
    m_tree->expand(place.parent());
    m_tree->setCurrentIndex(place);
    m_tree->scrollTo(place);
}

/// What was typed is written before the tree shows something else; where it can't be, the tree
/// stays with it.
void IncidentWindow::selectionChanged() {
    if (m_isLoading)
        return;
    if (!m_writing.leave()) {
        const QScopedValueRollback loading(m_isLoading, true);
        if (m_shown)
            m_tree->setCurrentIndex(m_model->indexOfReport(*m_shown));
        return;
    }
    showCurrent();
}

void IncidentWindow::showCurrent() {
    const QModelIndex at = selected();
    const IncidentReport* report = m_model->report(at);
    m_shown.reset();
    if (!report)
        return m_panel->EnableControlsForEditing(false);
    Prompts& prompts = m_session.GetSeams().prompts;
    const bool isRead = tryTelling(prompts, IncidentFailure, [&] {
        const dao::Recordset row = openIncident(m_session.CurrentDB, report->id);
        if (row.EOF_())
            return;
        m_panel->show(row, *m_model->pupil(at));
        m_shown = report->id;
    });
    if (m_shown)
        return;
    m_panel->EnableControlsForEditing(false);
    if (isRead)
        prompts.msg_Box(u"Can't find it!"_s, OkButton, {});
}

void IncidentWindow::showNewPanel(bool shown) {
    m_pages->setCurrentWidget(shown ? static_cast<QWidget*>(m_newPanel) : m_panel);
    m_new->setEnabled(!shown);
    m_tree->setEnabled(!shown && !m_model->isEmpty());
    m_delete->setEnabled(!shown && !m_model->isEmpty());
    m_panel->setVisible(!shown && !m_model->isEmpty());
}

void IncidentWindow::beginNew() {
    if (!m_writing.leave())
        return;
    showNewPanel(true);
    m_newPanel->begin(m_model->pupil(selected()));
}

void IncidentWindow::create() {
    const std::optional<qint64> report = createIncident(m_session, m_newPanel->incident());
    if (!report)
        return;
    m_newPanel->setKept();
    m_newPanel->Reload_TitlesList();
    loadTreeview();
    showNewPanel(false);
    selectReport(*report);
    m_panel->enterFirstPage();
}

void IncidentWindow::leaveNew() {
    m_newPanel->setKept();
    showNewPanel(false);
    (m_tree->isEnabled() ? static_cast<QWidget*>(m_tree) : m_new)->setFocus();
}

/// What was entered for a report that was not made is lost only if the person says so.
bool IncidentWindow::mayLeaveNew() {
    if (m_pages->currentWidget() != m_newPanel || !m_newPanel->isChanged())
        return true;
    const BoxAnswer answer = m_session.GetSeams().prompts.msg_Box(
        u"The new report has not been made yet.\n\nDo you wish to leave it?"_s,
        YesNoButtons | QuestionIcon | SecondButtonDefault, u"Not saved"_s);
    if (answer != AnswerYes)
        return false;
    m_newPanel->setKept();
    return true;
}

void IncidentWindow::deleteCurrent() {
    const QModelIndex at = selected();
    if (m_model->report(at))
        deleteReport();
    else if (m_model->pupil(at))
        deletePupil();
    else
        m_session.GetSeams().prompts.msg_Box(u"Unknown selection"_s, OkButton, {});
    (m_tree->isEnabled() ? static_cast<QWidget*>(m_tree) : m_new)->setFocus();
}

void IncidentWindow::deletePupil() {
    const IncidentPupil pupil = *m_model->pupil(selected());
    Prompts& prompts = m_session.GetSeams().prompts;
    const BoxAnswer answer =
        prompts.msg_Box(u"You are about to delete all incidents for "_s + pupil.name() +
                            u"\nDo you wish to continue?"_s,
                        YesNoButtons | QuestionIcon | SecondButtonDefault, u"Delete Incidents"_s);
    if (answer == AnswerYes && tryTelling(prompts, IncidentFailure, [&] {
            deletePupilIncidents(m_session.CurrentDB, pupil.id);
        }))
        loadTreeview();
}

/// The pupil is selected then, if there are more reports on him.
void IncidentWindow::deleteReport() {
    const QModelIndex at = selected();
    const qint64 pupil = m_model->pupil(at)->id;
    if (!tryTelling(m_session.GetSeams().prompts, IncidentFailure,
                    [&] { deleteIncident(m_session.CurrentDB, m_model->report(at)->id); }))
        return;
    loadTreeview();
    m_tree->setCurrentIndex(m_model->indexOfPupil(pupil));
}

void IncidentWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(mayWindowGo(*this));
}
