#include "core/screens/mdiorva.h"

#include "core/commands.h"
#include "core/core_settings.h"
#include "core/screens/aboutfrm.h"
#include "core/screens/context_help.h"
#include "core/screens/frame_menus.h"
#include "core/screens/frame_toolbar.h"
#include "core/screens/help_viewer.h"
#include "core/screens/mdi_background.h"
#include "core/screens/placed_widget.h"
#include "core/session.h"
#include "core/settings.h"
#include "store/screens/startupwiz.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QShortcut>
#include <QTimer>

#include <algorithm>
#include <utility>

mdiORVA::mdiORVA(Session& session, bool startsByItself, QWidget* splash, WindowTable windows)
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

mdiORVA::~mdiORVA() {
    CloseOpenForms(); // while there is a list that they can leave
    m_session.SetFrame(nullptr);
}

/// Of the window's system menu the commands that would leave it smaller. To move it and to fit it
/// to a screen that changes stays with the desktop, which has them in a menu of its own.
void mdiORVA::RemoveSystemMenuItems() {
    setWindowFlag(Qt::WindowMinimizeButtonHint, false);
}

void mdiORVA::DisableRestoreButton() {
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
}

/// The title bar is the desktop's own, so the button stands at the end of the menu bar below it.
void mdiORVA::Reparent_HelpButton() {
    auto* bar = new QMenuBar;
    bar->setObjectName(QStringLiteral("menuBar"));
    m_menus->addTo(*bar);
    auto* help = new ContextHelp;
    connect(help, &ContextHelp::helpWanted, this, &mdiORVA::helpWanted);
    if (findWindow(m_windows, u"HelpFrm"))
        connect(this, &mdiORVA::helpWanted, m_help,
                [this](QWidget* control) { m_help->showHelp(HelpContext, control); });
    auto* top = new QWidget;
    auto* layout = new QHBoxLayout(top);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(bar, 1);
    layout->addWidget(help);
    setMenuWidget(top);
}

void mdiORVA::makeToolbar() {
    QAction& shows = m_menus->action(FrameCommand::ShowToolbar);
    shows.setChecked(true);
    connect(&shows, &QAction::toggled, m_toolbar, &QWidget::setVisible);
    connect(m_toolbar, &FrameToolbar::popupOpens, this, [this](FrameCommand popup, QMenu& menu) {
        const WindowEntry* entry = findWindow(m_windows, commandEntry(popup).form);
        if (entry && entry->fill)
            entry->fill(m_session, menu);
    });
    auto* toToolbar = new QShortcut(Qt::Key_F6, this);
    connect(toToolbar, &QShortcut::activated, this, &mdiORVA::switchFocus);
    ToolbarAlign();
}

void mdiORVA::ToolbarAlign() {
    const qint32 alignment =
        m_session.GetSettings().readNumber(setting::Root, setting::ToolbarAlignment);
    m_toolbar->dock(*this, toolbarSide(alignment));
    m_toolbar->setVisible(m_menus->action(FrameCommand::ShowToolbar).isChecked());
}

void mdiORVA::ShadeMDI() {
    m_client->ShadeMDI();
}

void mdiORVA::switchFocus() {
    QMdiSubWindow* form = m_client->activeSubWindow();
    if (m_toolbar->isAncestorOf(focusWidget()) && form)
        form->setFocus();
    else
        m_toolbar->takeFocus();
}

void mdiORVA::Help_Menu(HelpItem item) {
    switch (item) {
    case HelpItem::About:
        AboutFrm(this).exec();
        break;
    case HelpItem::Contents:
        m_help->showHelp(HelpIndex);
        break;
    case HelpItem::Search:
        m_help->showHelp(HelpSearch);
        break;
    }
}

void mdiORVA::SetCaption(const QString& caption) {
    setWindowTitle(caption);
}

void mdiORVA::EnableInput(bool enable) {
    m_menus->EnableInput(enable);
    m_toolbar->setEnabled(enable);
    for (QMdiSubWindow* form : std::as_const(m_forms)) {
        if (form->isVisible() && entryOf(*form)->needsDatabase)
            form->setEnabled(enable);
    }
}

void mdiORVA::CloseOpenForms() {
    while (!m_forms.isEmpty()) {
        const QPointer<QMdiSubWindow> form = m_forms.takeLast();
        // What it still has to write is written as it closes; it goes even where it would stay.
        if (entryOf(*form)->needsDatabase)
            form->close();
        delete form;
    }
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
    const WindowEntry* entry = findWindow(m_windows, name);
    if (QMdiSubWindow* form = loadedForm(name))
        bringForward(*form);
    else if (entry && entry->make)
        loadForm(*entry);
}

void mdiORVA::OpenFormOn(const QString& name, const QVariant& subject) {
    OpenForm(name);
    const WindowEntry* entry = findWindow(m_windows, name);
    QMdiSubWindow* form = loadedForm(name);
    if (form && entry->showSubject)
        entry->showSubject(*form->widget(), subject);
}

void mdiORVA::RefreshForm(const QString& name) {
    const WindowEntry* entry = findWindow(m_windows, name);
    QMdiSubWindow* form = loadedForm(name);
    if (form && entry->refresh)
        entry->refresh(*form->widget());
}

void mdiORVA::CloseForm(const QString& name) {
    if (QMdiSubWindow* form = loadedForm(name))
        form->close();
}

void mdiORVA::RunFormCommand(const QString& name, FrameCommand command) {
    const WindowEntry* entry = findWindow(m_windows, name);
    if (entry && entry->run)
        entry->run(m_session, command);
    else
        OpenForm(name);
}

const WindowEntry* mdiORVA::entryOf(const QMdiSubWindow& form) const {
    return findWindow(m_windows, form.widget()->objectName());
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

void mdiORVA::loadForm(const WindowEntry& entry) {
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

void mdiORVA::bringForward(QMdiSubWindow& form) {
    if (form.isMinimized()) {
        form.showNormal();
        PlacedWidget placed = placedForm(form);
        const QStringView key = commandPlacementKey(placed.windowName());
        if (!key.isEmpty())
            RestoreChildPlacement(m_session.GetSettings(), placed, key);
    }
    m_client->setActiveSubWindow(&form);
}

void mdiORVA::keepPlace(QMdiSubWindow& form) {
    const WindowEntry* entry = entryOf(form);
    if (!entry->placementKey.isEmpty())
        SaveWindowPlacement(m_session.GetSettings(), placedForm(form), entry->placementKey);
}

/// A tool window's place is kept as it closes, by whatever way.
bool mdiORVA::eventFilter(QObject* watched, QEvent* event) {
    auto* form = qobject_cast<QMdiSubWindow*>(watched);
    if (form && form->widget() && event->type() == QEvent::Close)
        keepPlace(*form);
    return QMainWindow::eventFilter(watched, event);
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

void mdiORVA::Unload() {
    close();
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
    m_help->close(); // it keeps its place
    SaveCurrentStartup(m_session);
    ShutDown(m_session);
    QMainWindow::closeEvent(event);
}
