#include "frame/screens/main_window.h"

#include "controls/declined_boxes.h"
#include "controls/placed_widget.h"
#include "controls/window_going.h"
#include "core/program_settings.h"
#include "core/session.h"
#include "core/setting_notices.h"
#include "core/settings.h"
#include "frame/screens/about_dialog.h"
#include "frame/screens/frame_menus.h"
#include "frame/screens/frame_toolbar.h"
#include "frame/screens/mdi_background.h"
#include "frame/year_roads.h"
#include "help/screens/context_help.h"
#include "help/screens/help_viewer.h"
#include "year/moved_year.h"
#include "year/recent_years.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileSystemWatcher>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSessionManager>
#include <QShortcut>
#include <QTimer>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The desktop decides which keys close a window; these two do on every one.
void closeByCtrlF4(QMdiSubWindow& form) {
    for (QAction* action : form.systemMenu()->actions()) {
        if (action->shortcuts().contains(QKeySequence(QKeySequence::Close)))
            action->setShortcuts({Qt::CTRL | Qt::Key_W, Qt::CTRL | Qt::Key_F4});
    }
}

} // namespace

MainWindow::MainWindow(Session& session, WindowTable windows, bool startsByItself, QWidget* splash)
    : m_session(session)
    , m_windows(windows)
    , m_client(new MdiBackground(session, this))
    , m_help(new HelpViewer(session, *this))
    , m_splash(splash)
    , m_startPending(startsByItself) {
    setObjectName(u"mdiORVA"_s);
    removeSystemMenuItems();
    disableRestoreButton();
    setCentralWidget(m_client);
    resize(1024, 700);
    const WindowTest has = [this](ToolWindow window) { return this->has(window); };
    m_menus = new FrameMenus(session, *this, has, *this);
    m_toolbar = new FrameToolbar(toolbarLayout(has), *m_menus);
    addHelpButton();
    makeToolbar();
    m_session.SetWindows(this);
    connect(&m_session.GetNotices(), &Notices::yearOpened, this, &MainWindow::yearOpened);
    connect(&m_session.GetNotices(), &Notices::yearMoved, this, &MainWindow::watchYear);
    m_toWatch.setSingleShot(true);
    connect(&m_toWatch, &QTimer::timeout, this, &MainWindow::watchYearFile);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &MainWindow::leaveDesktop);
    LoadMainWindow(m_session, *this);
}

MainWindow::~MainWindow() {
    CloseOpenForms(); // while there is a list that they can leave
    m_session.SetWindows(nullptr);
}

/// Of the window's system menu the commands that would leave it smaller. To move it and to fit it
/// to a screen that changes stays with the desktop, which has them in a menu of its own.
void MainWindow::removeSystemMenuItems() {
    setWindowFlag(Qt::WindowMinimizeButtonHint, false);
}

void MainWindow::disableRestoreButton() {
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
}

/// The title bar is the desktop's own, so the button stands at the end of the menu bar below it.
void MainWindow::addHelpButton() {
    auto* bar = new QMenuBar;
    bar->setObjectName(u"menuBar"_s);
    m_menus->addTo(*bar);
    auto* help = new ContextHelp;
    connect(help, &ContextHelp::helpWanted, this, &MainWindow::helpWanted);
    if (has(ToolWindow::Help))
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
        const std::optional<ToolWindow> window = commandEntry(popup).window;
        const WindowEntry* entry = window ? findWindow(m_windows, *window) : nullptr;
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

void MainWindow::yearOpened() {
    watchYear();
    EnableInput(true);
}

void MainWindow::watchYear() {
    const QString file = m_session.CurrentDB.Name();
    SetCaption(mainCaption(file));
    NoteRecentYear(m_session.GetSettings(), file);
    m_hasToldMoved = false;
    m_toWatch.start(0); // what is shown of the year comes first
}

void MainWindow::watchYearFile() {
    if (!m_session.CurrentDB.isOpen())
        return;
    if (!m_yearFile) {
        m_yearFile = new QFileSystemWatcher(this);
        connect(m_yearFile, &QFileSystemWatcher::fileChanged, this, &MainWindow::followYearFile);
    }
    if (!m_yearFile->files().isEmpty())
        m_yearFile->removePaths(m_yearFile->files());
    m_yearFile->addPath(m_session.CurrentDB.Name());
    followYearFile();
}

/// Told at once, while the person remembers what was done to the file; where the system tells of no
/// changes it is told at the next write that fails, and on leaving.
void MainWindow::followYearFile() {
    if (HasMoved(m_session) && !std::exchange(m_hasToldMoved, true))
        TellMovedYear(m_session);
}

void MainWindow::EnableInput(bool enable) {
    m_menus->EnableInput(enable);
    m_toolbar->setEnabled(enable);
    for (const Loaded& loaded : std::as_const(m_loaded)) {
        if (loaded.holder->isVisible() && loaded.entry->needsDatabase)
            loaded.holder->setEnabled(enable);
    }
}

bool MainWindow::MayLeave() {
    return MayLeaveMovedYear(m_session) &&
           std::all_of(m_loaded.begin(), m_loaded.end(),
                       [](const Loaded& loaded) { return mayWindowGo(*loaded.window); });
}

void MainWindow::CloseOpenForms() {
    while (!m_loaded.isEmpty()) {
        const Loaded last = m_loaded.last();
        const QPointer<QWidget> holder = last.holder;
        // What it still has to write is written as it closes; it goes even where it would stay.
        if (last.entry->needsDatabase)
            holder->close();
        forget(last.holder);
        delete holder;
    }
}

bool MainWindow::has(ToolWindow window) const {
    return findWindow(m_windows, window);
}

void MainWindow::open(ToolWindow window, const WindowSubject& subject) {
    const WindowEntry* entry = findWindow(m_windows, window);
    if (!entry || !entry->make)
        return;
    const Loaded* loaded = find(*entry, subject);
    if (loaded)
        bringForward(*loaded);
    else if (entry->insteadOf && !close(*entry->insteadOf))
        return;
    else
        loaded = load(*entry, subject);
    if (loaded && entry->show)
        entry->show(*loaded->window, subject);
}

bool MainWindow::close(ToolWindow window) {
    const auto of = [window](const Loaded& loaded) { return loaded.entry->window == window; };
    for (const Loaded& loaded : QList(m_loaded)) {
        if (of(loaded) && !loaded.holder->close())
            return false;
    }
    m_loaded.removeIf(of); // the windows themselves go from the event loop
    return true;
}

bool MainWindow::isOpen(ToolWindow window) const {
    return std::any_of(m_loaded.begin(), m_loaded.end(), [window](const Loaded& loaded) {
        return loaded.entry->window == window && loaded.holder->isVisible();
    });
}

bool MainWindow::closeYearWindows() {
    const auto stays = [](const Loaded& loaded) {
        return loaded.entry->window == ToolWindow::Settings || !loaded.entry->needsDatabase;
    };
    for (const Loaded& loaded : std::as_const(m_loaded)) {
        if (!stays(loaded) && !mayWindowGo(*loaded.window))
            return false;
    }
    for (const Loaded& loaded : QList(m_loaded)) {
        if (stays(loaded))
            continue;
        const QPointer<QWidget> holder = loaded.holder;
        holder->close();
        forget(holder);
        delete holder; // its records go with it, and not from the event loop
    }
    return true;
}

bool MainWindow::backUpNow() {
    return BackupNowCommand(m_session, *this);
}

void MainWindow::archiveClass(const QString& classCode) {
    QTimer::singleShot(0, this,
                       [this, classCode] { ArchiveClassCommand(m_session, *this, classCode); });
}

void MainWindow::run(ToolWindow window, FrameCommand command, const WindowSubject& subject) {
    const WindowEntry* entry = findWindow(m_windows, window);
    if (entry && entry->run)
        entry->run(m_session, command, subject);
    else
        open(window);
}

const MainWindow::Loaded* MainWindow::find(const WindowEntry& entry,
                                           const WindowSubject& subject) const {
    const auto found = std::find_if(m_loaded.begin(), m_loaded.end(), [&](const Loaded& loaded) {
        return loaded.entry == &entry &&
               (entry.kind != WindowKind::FloatingMany || loaded.subject == subject);
    });
    return found == m_loaded.end() ? nullptr : &*found;
}

PlacedWidget MainWindow::placed(const Loaded& loaded) const {
    const bool isInside = loaded.entry->kind == WindowKind::Tool;
    return {*loaded.holder, loaded.entry->name, isInside ? m_client->viewport() : nullptr};
}

const MainWindow::Loaded* MainWindow::load(const WindowEntry& entry, const WindowSubject& subject) {
    QWidget* window = entry.make(m_session, subject);
    if (!window)
        return nullptr;
    QWidget* holder = hold(entry, *window);
    m_loaded.append({&entry, subject, holder, window});
    connect(holder, &QObject::destroyed, &m_listening, [this, holder] { forget(holder); });
    PlacedWidget place = placed(m_loaded.last());
    if (!entry.placementKey.isEmpty())
        RestoreWindowPlacement(m_session.GetSettings(), place, entry.placementKey);
    holder->show();
    if (entry.kind != WindowKind::Tool && !holder->testAttribute(Qt::WA_ShowWithoutActivating))
        holder->activateWindow(); // not every desktop gives the keyboard to such a window by itself
    takeFocus(*window);
    return find(entry, subject);
}

/// A window that comes forward has the keyboard: where it says itself, else in its first control.
void MainWindow::takeFocus(QWidget& window) {
    if (window.isAncestorOf(QApplication::focusWidget()))
        return;
    QWidget* target = window.focusWidget() ? window.focusWidget() : window.nextInFocusChain();
    while (target != &window && (!(target->focusPolicy() & Qt::TabFocus) ||
                                 !window.isAncestorOf(target) || !target->isEnabledTo(&window)))
        target = target->nextInFocusChain();
    target->setFocus(Qt::ActiveWindowFocusReason);
}

void MainWindow::forget(const QWidget* holder) {
    m_loaded.removeIf([holder](const Loaded& loaded) { return loaded.holder == holder; });
}

/// Puts a window where its kind stands.
QWidget* MainWindow::hold(const WindowEntry& entry, QWidget& window) {
    addMenus(window);
    QWidget* holder = &window;
    if (entry.kind == WindowKind::Tool) {
        // The toolkit measures a title some sixty times while its window comes in: it comes last.
        const QString title = window.windowTitle();
        window.setWindowTitle({});
        QMdiSubWindow* form = m_client->addSubWindow(&window);
        window.setWindowTitle(title);
        closeByCtrlF4(*form);
        holder = form;
    } else {
        window.setParent(this, window.windowFlags() | Qt::Tool);
    }
    holder->setAttribute(Qt::WA_DeleteOnClose);
    holder->installEventFilter(this);
    return holder;
}

/// The main window's own menus, in front of the window's: all that they do is the main window's.
void MainWindow::addMenus(const QWidget& window) const {
    if (auto* bar = window.layout() ? qobject_cast<QMenuBar*>(window.layout()->menuBar()) : nullptr)
        m_menus->addTo(*bar);
}

void MainWindow::bringForward(const Loaded& loaded) {
    if (loaded.holder->isMinimized()) {
        loaded.holder->showNormal();
        PlacedWidget place = placed(loaded);
        if (!loaded.entry->minimisedKey.isEmpty())
            RestoreChildPlacement(m_session.GetSettings(), place, loaded.entry->minimisedKey);
    }
    if (auto* form = qobject_cast<QMdiSubWindow*>(loaded.holder)) {
        m_client->setActiveSubWindow(form);
        takeFocus(*loaded.window);
    } else {
        loaded.holder->raise();
        loaded.holder->activateWindow();
    }
}

/// A window's place is kept as it closes, by whatever way.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close) {
        for (const Loaded& loaded : std::as_const(m_loaded)) {
            if (loaded.holder == watched && !loaded.entry->placementKey.isEmpty())
                SaveWindowPlacement(m_session.GetSettings(), placed(loaded),
                                    loaded.entry->placementKey);
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

QList<ToolWindow> MainWindow::visible() const {
    QList<ToolWindow> windows;
    for (const Loaded& loaded : m_loaded) {
        if (loaded.holder->isVisible())
            windows += loaded.entry->window;
    }
    return windows;
}

QList<StartupWindow> MainWindow::startupWindows() const {
    QList<StartupWindow> noted;
    for (const WindowEntry& entry : m_windows) {
        if (entry.openAtStart)
            noted += {*entry.openAtStart, entry.window};
    }
    return noted;
}

void MainWindow::RunCurrentStartup() {
    ::RunCurrentStartup(m_session, *this);
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
        ActivateMainWindow(m_session, *this);
        emit started();
    });
}

void MainWindow::Terminate() {
    const bool isUnderDialog = QApplication::activeModalWidget();
    // Of a year whose file is gone there is nothing left but what is shown: that is worth a wait.
    if (!isUnderDialog && !MayLeaveMovedYear(m_session))
        return;
    m_isTerminated = true;
    new DeclinedBoxes(qApp); // who ends a program so waits for no answers
    // Under an open dialog nothing is closed: the program unwinds as if it had been cancelled, and
    // the windows keep what was typed on its way out.
    if (isUnderDialog)
        QCoreApplication::exit();
    else
        close();
}

/// The desktop's session ends. Its question to the person can call that off.
void MainWindow::leaveDesktop(QSessionManager& manager) {
    if (!manager.allowsInteraction())
        return;
    if (!MayLeave())
        manager.cancel();
    manager.release();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!m_isTerminated && !MayLeave()) {
        event->ignore();
        return;
    }
    const PlacedWidget placed(*this, objectName());
    SaveWindowPlacement(m_session.GetSettings(), placed, setting::Options);
    m_help->close(); // it keeps its place
    SaveCurrentStartup(m_session, *this);
    ShutDown(m_session, !m_isTerminated);
    QMainWindow::closeEvent(event);
}
