#include "core/screens/mdiorva.h"

#include "core/commands.h"
#include "core/core_settings.h"
#include "core/screens/aboutfrm.h"
#include "core/screens/mdi_background.h"
#include "core/screens/placed_widget.h"
#include "core/screens/window_table.h"
#include "core/session.h"
#include "core/upgrade.h"
#include "store/screens/startupwiz.h"

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QTimer>

#include <algorithm>
#include <utility>

mdiORVA::mdiORVA(Session& session, bool startsByItself, QWidget* splash)
    : m_session(session)
    , m_client(new MdiBackground(session, this))
    , m_splash(splash)
    , m_startPending(startsByItself) {
    setObjectName(QStringLiteral("mdiORVA"));
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    setCentralWidget(m_client);
    resize(1024, 700);
    buildFileMenu();
    buildHelpMenu();
    m_session.SetFrame(this);
    LoadMainWindow(m_session);
}

mdiORVA::~mdiORVA() {
    CloseOpenForms(); // while there is a list that they can leave
    m_session.SetFrame(nullptr);
}

void mdiORVA::buildFileMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    menu->setObjectName(QStringLiteral("mnuFile"));
    const auto add = [this, menu](int index, const QString& caption, auto command) {
        QAction* action = menu->addAction(caption, this, command);
        action->setObjectName(QStringLiteral("mnufileItem(%1)").arg(index));
        return action;
    };
    add(0, tr("Open a ORVA Database... "), [this] {
        OpenDatabaseCommand(m_session);
    })->setShortcut(QKeySequence::Open);
    add(1, tr("Setup a New ORVA database..."), [this] { SetupDatabaseCommand(m_session); });
    add(2, tr("Return to the Startup Wizard..."), [this] { ReturnToWizardCommand(m_session); });
    menu->addSeparator();
    add(8, tr("E&xit"), [this] { close(); })->setShortcut(QKeySequence::Quit);
}

void mdiORVA::buildHelpMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Help"));
    menu->setObjectName(QStringLiteral("mnuHelp"));
    menu->addAction(tr("&About ORVA"), this, [this] { AboutFrm(this).exec(); })
        ->setObjectName(QStringLiteral("mnHelpAbout"));
    menu->addAction(tr("Check for Internet Upgrade"), this, [this] { GetUpgradeInfo(m_session); })
        ->setObjectName(QStringLiteral("mnuHelpUpgrade"));
}

void mdiORVA::SetCaption(const QString& caption) {
    setWindowTitle(caption);
}

void mdiORVA::EnableInput(bool enable) {
    // The wizard is there to find a database, so it needs none.
    for (QMdiSubWindow* form : std::as_const(m_forms)) {
        if (form->isVisible() && !qobject_cast<StartupWiz*>(form->widget()))
            form->setEnabled(enable);
    }
}

void mdiORVA::CloseOpenForms() {
    while (!m_forms.isEmpty())
        delete m_forms.takeLast();
}

void mdiORVA::ShowStartupWizard() {
    OpenForm(QStringLiteral("StartupWiz"));
}

void mdiORVA::ShowStartupWizardSetup() {
    ShowStartupWizard();
    for (QMdiSubWindow* form : std::as_const(m_forms)) {
        if (auto* wizard = qobject_cast<StartupWiz*>(form->widget()))
            wizard->startSetup();
    }
}

void mdiORVA::OpenForm(const QString& name) {
    if (QMdiSubWindow* form = loadedForm(name))
        bringForward(form, findWindow(name)->placementKey);
    else
        loadForm(name);
}

QMdiSubWindow* mdiORVA::loadedForm(const QString& name) const {
    const auto found = std::find_if(m_forms.begin(), m_forms.end(), [&name](QMdiSubWindow* form) {
        return form->widget()->objectName() == name;
    });
    return found == m_forms.end() ? nullptr : *found;
}

PlacedWidget mdiORVA::placedForm(QMdiSubWindow& form) const {
    return {form, form.widget()->objectName(), m_client->viewport()};
}

void mdiORVA::loadForm(const QString& name) {
    const WindowEntry* entry = findWindow(name);
    if (!entry)
        return;
    QMdiSubWindow* form = m_client->addSubWindow(entry->make(m_session));
    form->setAttribute(Qt::WA_DeleteOnClose);
    m_forms += form;
    connect(form, &QObject::destroyed, this, [this, form] { m_forms.removeAll(form); });
    PlacedWidget placed = placedForm(*form);
    if (!entry->placementKey.isEmpty())
        RestoreWindowPlacement(m_session.GetSettings(), placed, entry->placementKey);
    form->show();
}

void mdiORVA::bringForward(QMdiSubWindow* form, const QString& placementKey) {
    if (form->isMinimized()) {
        form->showNormal();
        PlacedWidget placed = placedForm(*form);
        if (!placementKey.isEmpty())
            RestoreChildPlacement(m_session.GetSettings(), placed, placementKey);
    }
    m_client->setActiveSubWindow(form);
}

QStringList mdiORVA::visibleForms() const {
    QStringList names;
    for (QMdiSubWindow* form : m_forms) {
        if (form->isVisible())
            names += form->widget()->objectName();
    }
    return names;
}

void mdiORVA::DestroySplash() {
    delete m_splash;
}

void mdiORVA::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // From the event loop, so that the frame is drawn before a long opening begins.
    if (std::exchange(m_startPending, false))
        QTimer::singleShot(0, this, &mdiORVA::activateFirst);
}

void mdiORVA::activateFirst() {
    emit shown();
    QTimer::singleShot(0, this, [this] {
        ActivateMainWindow(m_session);
        emit started();
    });
}

void mdiORVA::closeEvent(QCloseEvent* event) {
    const PlacedWidget placed(*this, objectName());
    SaveWindowPlacement(m_session.GetSettings(), placed, setting::Options);
    SaveCurrentStartup(m_session);
    ShutDown(m_session);
    QMainWindow::closeEvent(event);
}
