#include "frame/screens/main_window.h"

#include "controls/placed_widget.h"
#include "core/session.h"
#include "core/setting_notices.h"
#include "core/settings.h"
#include "frame/frame_settings.h"
#include "frame/screens/about_dialog.h"
#include "frame/screens/frame_menus.h"
#include "frame/screens/frame_toolbar.h"
#include "frame/screens/mdi_background.h"
#include "frame/year_roads.h"
#include "help/screens/context_help.h"
#include "help/screens/help_viewer.h"
#include "year/screens/startup_wizard.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QShortcut>
#include <QTimer>

#include <algorithm>
#include <utility>

MainWindow::MainWindow(Session& session, bool startsByItself, QWidget* splash, WindowTable windows)
    : m_session(session)
    , m_windows(windows)
    , m_client(new MdiBackground(session, this))
    , m_help(new HelpViewer(session, *this))
    , m_splash(splash)
    , m_startPending(startsByItself) {
    setObjectName(QStringLiteral("mdiORVA"));
    RemoveSystemMenuItems();
    DisableRestoreButton();
    setCentralWidget(m_client);
    resize(1024, 700);
    const FormTest hasForm = [this](QStringView form) { return findWindow(m_windows, form); };
    m_menus = new FrameMenus(session, hasForm, *this);
    m_toolbar = new FrameToolbar(toolbarLayout(hasForm), *m_menus);
    Reparent_HelpButton();
    makeToolbar();
    m_session.SetFrame(this);
    LoadMainWindow(m_session);
}

MainWindow::~MainWindow() {
    CloseOpenForms(); // while there is a list that they can leave
    m_session.SetFrame(nullptr);
}

/// Of the window's system menu the commands that would leave it smaller. To move it and to fit it
/// to a screen that changes stays with the desktop, which has them in a menu of its own.
void MainWindow::RemoveSystemMenuItems() {
    setWindowFlag(Qt::WindowMinimizeButtonHint, false);
}

void MainWindow::DisableRestoreButton() {
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
}

/// The title bar is the desktop's own, so the button stands at the end of the menu bar below it.
void MainWindow::Reparent_HelpButton() {
    auto* bar = new QMenuBar;
    bar->setObjectName(QStringLiteral("menuBar"));
    m_menus->addTo(*bar);
    auto* help = new ContextHelp;
    connect(help, &ContextHelp::helpWanted, this, &MainWindow::helpWanted);
    if (findWindow(m_windows, u"HelpFrm"))
        connect(this, &MainWindow::helpWanted, m_help,
                [this](QWidget* control) { m_help->showHelp(HelpContext, control); });
    auto* top = new QWidget;
    auto* layout = new QHBoxLayout(top);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(bar, 1);
    layout->addWidget(help);
    setMenuWidget(top);
}

void MainWindow::makeToolbar() {
    QAction& shows = m_menus->action(FrameCommand::ShowToolbar);
    shows.setChecked(true);
    connect(&shows, &QAction::toggled, m_toolbar, &QWidget::setVisible);
    connect(m_toolbar, &FrameToolbar::popupOpens, this, [this](FrameCommand popup, QMenu& menu) {
        const WindowEntry* entry = findWindow(m_windows, commandEntry(popup).form);
        if (entry && entry->fill)
            entry->fill(m_session, menu);
    });
    auto* toToolbar = new QShortcut(Qt::Key_F6, this);
    connect(toToolbar, &QShortcut::activated, this, &MainWindow::switchFocus);
    m_session.GetSettings().notices().onChange(setting::ToolbarAlignment, this,
                                               [this] { ToolbarAlign(); });
    ToolbarAlign();
}

void MainWindow::ToolbarAlign() {
    m_toolbar->dock(*this, m_session.GetSettings().get(setting::ToolbarAlignment));
    m_toolbar->setVisible(m_menus->action(FrameCommand::ShowToolbar).isChecked());
}

void MainWindow::ShadeMDI() {
    m_client->ShadeMDI();
}

void MainWindow::switchFocus() {
    QMdiSubWindow* form = m_client->activeSubWindow();
    if (m_toolbar->isAncestorOf(focusWidget()) && form)
        form->setFocus();
    else
        m_toolbar->takeFocus();
}

void MainWindow::Help_Menu(HelpItem item) {
    switch (item) {
    case HelpItem::About:
        AboutDialog(this).exec();
        break;
    case HelpItem::Contents:
        m_help->showHelp(HelpIndex);
        break;
    case HelpItem::Search:
        m_help->showHelp(HelpSearch);
        break;
    }
}

void MainWindow::SetCaption(const QString& caption) {
    setWindowTitle(caption);
}

void MainWindow::EnableInput(bool enable) {
    m_menus->EnableInput(enable);
    m_toolbar->setEnabled(enable);
    for (QMdiSubWindow* form : std::as_const(m_forms)) {
        if (form->isVisible() && entryOf(*form)->needsDatabase)
            form->setEnabled(enable);
    }
}

void MainWindow::CloseOpenForms() {
    while (!m_forms.isEmpty()) {
        const QPointer<QMdiSubWindow> form = m_forms.takeLast();
        // What it still has to write is written as it closes; it goes even where it would stay.
        if (entryOf(*form)->needsDatabase)
            form->close();
        delete form;
    }
}

void MainWindow::ShowStartupWizard() {
    OpenForm(QStringLiteral("StartupWiz"));
}

void MainWindow::ShowStartupWizardSetup() {
    ShowStartupWizard();
    for (QMdiSubWindow* form : std::as_const(m_forms)) {
        if (auto* wizard = qobject_cast<StartupWizard*>(form->widget()))
            wizard->startSetup();
    }
}

void MainWindow::OpenForm(const QString& name) {
    const WindowEntry* entry = findWindow(m_windows, name);
    if (QMdiSubWindow* form = loadedForm(name))
        bringForward(*form);
    else if (entry && entry->make)
        loadForm(*entry);
}

void MainWindow::OpenFormOn(const QString& name, const QVariant& subject) {
    OpenForm(name);
    const WindowEntry* entry = findWindow(m_windows, name);
    QMdiSubWindow* form = loadedForm(name);
    if (form && entry->showSubject)
        entry->showSubject(*form->widget(), subject);
}

void MainWindow::RefreshForm(const QString& name) {
    const WindowEntry* entry = findWindow(m_windows, name);
    QMdiSubWindow* form = loadedForm(name);
    if (form && entry->refresh)
        entry->refresh(*form->widget());
}

void MainWindow::CloseForm(const QString& name) {
    if (QMdiSubWindow* form = loadedForm(name))
        form->close();
}

void MainWindow::RunFormCommand(const QString& name, FrameCommand command) {
    const WindowEntry* entry = findWindow(m_windows, name);
    if (entry && entry->run)
        entry->run(m_session, command);
    else
        OpenForm(name);
}

const WindowEntry* MainWindow::entryOf(const QMdiSubWindow& form) const {
    return findWindow(m_windows, form.widget()->objectName());
}

QMdiSubWindow* MainWindow::loadedForm(const QString& name) const {
    const auto found = std::find_if(m_forms.begin(), m_forms.end(), [&name](QMdiSubWindow* form) {
        return form->widget()->objectName() == name;
    });
    return found == m_forms.end() ? nullptr : *found;
}

PlacedWidget MainWindow::placedForm(QMdiSubWindow& form) const {
    return {form, form.widget()->objectName(), m_client->viewport()};
}

void MainWindow::loadForm(const WindowEntry& entry) {
    QMdiSubWindow* form = m_client->addSubWindow(entry.make(m_session));
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->installEventFilter(this);
    m_forms += form;
    connect(form, &QObject::destroyed, this, [this, form] { m_forms.removeAll(form); });
    PlacedWidget placed = placedForm(*form);
    if (!entry.placementKey.isEmpty())
        RestoreWindowPlacement(m_session.GetSettings(), placed, entry.placementKey);
    form->show();
}

void MainWindow::bringForward(QMdiSubWindow& form) {
    if (form.isMinimized()) {
        form.showNormal();
        PlacedWidget placed = placedForm(form);
        const QStringView key = commandPlacementKey(placed.windowName());
        if (!key.isEmpty())
            RestoreChildPlacement(m_session.GetSettings(), placed, key);
    }
    m_client->setActiveSubWindow(&form);
}

void MainWindow::keepPlace(QMdiSubWindow& form) {
    const WindowEntry* entry = entryOf(form);
    if (!entry->placementKey.isEmpty())
        SaveWindowPlacement(m_session.GetSettings(), placedForm(form), entry->placementKey);
}

/// A tool window's place is kept as it closes, by whatever way.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    auto* form = qobject_cast<QMdiSubWindow*>(watched);
    if (form && form->widget() && event->type() == QEvent::Close)
        keepPlace(*form);
    return QMainWindow::eventFilter(watched, event);
}

QStringList MainWindow::visibleForms() const {
    QStringList names;
    for (QMdiSubWindow* form : m_forms) {
        if (form->isVisible())
            names += form->widget()->objectName();
    }
    return names;
}

void MainWindow::DestroySplash() {
    delete m_splash;
}

void MainWindow::Unload() {
    close();
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // From the event loop, so that the frame is drawn before a long opening begins.
    if (std::exchange(m_startPending, false))
        QTimer::singleShot(0, this, &MainWindow::activateFirst);
}

void MainWindow::activateFirst() {
    emit shown();
    QTimer::singleShot(0, this, [this] {
        ActivateMainWindow(m_session);
        emit started();
    });
}

void MainWindow::closeEvent(QCloseEvent* event) {
    const PlacedWidget placed(*this, objectName());
    SaveWindowPlacement(m_session.GetSettings(), placed, setting::Options);
    m_help->close(); // it keeps its place
    SaveCurrentStartup(m_session);
    ShutDown(m_session);
    QMainWindow::closeEvent(event);
}
