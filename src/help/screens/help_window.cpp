#include "help/screens/help_window.h"

#include "controls/icons.h"
#include "controls/layout_toolbar.h"
#include "controls/placed_widget.h"
#include "core/settings.h"
#include "help/screens/help_page_view.h"
#include "help/screens/help_panes.h"

#include <QAction>
#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView placementKey = u"Help";

enum Button { Back, Forward, Start, SmallerText, LargerText, FindInPage };

} // namespace

HelpWindow::HelpWindow(HelpBook book, Settings& settings, QWidget* owner)
    : QWidget(owner, Qt::Window), m_book(std::move(book)), m_settings(settings) {
    setObjectName(u"HelpFrm"_s);
    setWindowTitle(u"ORVA Help"_s);
    resize(940, 680);
    m_view = new HelpPageView(m_book);
    makeToolbar();
    auto* sides = new QSplitter;
    sides->addWidget(makePanes());
    sides->addWidget(makePageSide());
    sides->setStretchFactor(1, 1);
    sides->setSizes({300, 640});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_toolbar);
    layout->addWidget(sides, 1);
    makeShortcuts();
    connect(m_view, &HelpPageView::pageShown, this, &HelpWindow::pageShown);
    PlacedWidget placed(*this, objectName());
    RestoreWindowPlacement(m_settings, placed, placementKey);
    m_view->showPage(0);
}

void HelpWindow::makeToolbar() {
    m_toolbar = new LayoutToolbar(
        u"Help_Btns"_s, u"BBB|BB|B"_s,
        u"Back.|Forward.|First page.|Smaller text.|Larger text.|Find in this page."_s,
        u"previous|next|home|zoom_out|zoom_in|search"_s);
    m_toolbar->button(Back)->setEnabled(false);
    m_toolbar->button(Forward)->setEnabled(false);
    const auto connectTo = [this](Button button, auto act) {
        connect(m_toolbar->button(button), &QAction::triggered, this, act);
    };
    connectTo(Back, [this] { m_view->backward(); });
    connectTo(Forward, [this] { m_view->forward(); });
    connectTo(Start, [this] { m_view->showPage(0); });
    connectTo(SmallerText, [this] { m_view->zoom(-1); });
    connectTo(LargerText, [this] { m_view->zoom(1); });
    connectTo(FindInPage, [this] { startFinding(); });
    connect(m_view, &QTextBrowser::backwardAvailable, m_toolbar->button(Back),
            &QAction::setEnabled);
    connect(m_view, &QTextBrowser::forwardAvailable, m_toolbar->button(Forward),
            &QAction::setEnabled);
}

QWidget* HelpWindow::makePanes() {
    m_tabs = new QTabWidget;
    m_tabs->setObjectName(u"HelpTabs"_s);
    m_tabs->setAccessibleName(u"Ways to a page"_s);
    m_contents = new HelpContentsTree(m_book);
    auto* index = new HelpIndexPane(m_book);
    m_search = new HelpSearchPane(m_book);
    m_tabs->addTab(m_contents, u"&Contents"_s);
    m_tabs->addTab(index, u"I&ndex"_s);
    m_tabs->addTab(m_search, u"&Search"_s);
    m_tabs->tabBar()->installEventFilter(this);
    connect(m_tabs, &QTabWidget::tabBarClicked, this, &HelpWindow::focusPane, Qt::QueuedConnection);
    const auto showUnmarked = [this](int page) {
        m_view->setMarkedWords({});
        m_view->showPage(page);
    };
    connect(m_contents, &HelpContentsTree::pageChosen, this, showUnmarked);
    connect(index, &HelpListPane::pageChosen, this, showUnmarked);
    connect(m_search, &HelpListPane::pageChosen, this, [this](int page) {
        m_view->setMarkedWords(m_search->field().text());
        m_view->showPage(page);
    });
    return m_tabs;
}

QWidget* HelpWindow::makePageSide() {
    auto* side = new QWidget;
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_view, 1);
    layout->addWidget(makeFindBar());
    return side;
}

QFrame* HelpWindow::makeFindBar() {
    m_findBar = new QFrame;
    m_findField = new QLineEdit;
    m_findField->setObjectName(u"FindField"_s);
    m_findField->setAccessibleName(u"Find in this page"_s);
    m_findState = new QLabel;
    m_findState->setObjectName(u"FindState"_s);
    auto* layout = new QHBoxLayout(m_findBar);
    layout->addWidget(new QLabel(u"Find in this page:"_s));
    layout->addWidget(m_findField, 1);
    const auto addButton = [this, layout](const QString& name, const QString& iconName,
                                          const QString& tip, bool backwards) {
        auto* button = new QToolButton;
        button->setObjectName(name);
        button->setIcon(icon(iconName));
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        connect(button, &QToolButton::clicked, this, [this, backwards] { find(backwards); });
        layout->addWidget(button);
    };
    addButton(u"FindPrevious"_s, u"previous"_s, u"Previous place (Shift+F3)"_s, true);
    addButton(u"FindNext"_s, u"next"_s, u"Next place (F3)"_s, false);
    layout->addWidget(m_findState);
    m_findBar->hide();
    connect(m_findField, &QLineEdit::returnPressed, this, [this] { find(false); });
    connect(m_findField, &QLineEdit::textChanged, this, [this] {
        m_view->moveCursor(QTextCursor::Start);
        find(false);
    });
    return m_findBar;
}

void HelpWindow::makeShortcuts() {
    const auto add = [this](const QKeySequence& keys, auto act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    add(QKeySequence::Find, [this] { startFinding(); });
    add(Qt::Key_F3, [this] { find(false); });
    add(Qt::SHIFT | Qt::Key_F3, [this] { find(true); });
    add(Qt::CTRL | Qt::Key_Plus, [this] { m_view->zoom(1); });
    add(Qt::CTRL | Qt::Key_Equal, [this] { m_view->zoom(1); });
    add(Qt::CTRL | Qt::Key_Minus, [this] { m_view->zoom(-1); });
    add(Qt::CTRL | Qt::Key_0, [this] { m_view->resetZoom(); });
    add(Qt::ALT | Qt::Key_Left, [this] { m_view->backward(); });
    add(Qt::ALT | Qt::Key_Right, [this] { m_view->forward(); });
    add(Qt::ALT | Qt::Key_Home, [this] { m_view->showPage(0); });
}

void HelpWindow::showHelp(HelpCommand command, const QStringList& controlPath) {
    switch (command) {
    case HelpIndex:
        m_tabs->setCurrentWidget(m_contents);
        focusPane();
        break;
    case HelpSearch:
        m_tabs->setCurrentWidget(m_search);
        focusPane();
        break;
    case HelpContext:
        m_view->setMarkedWords({});
        m_view->showPage(std::max(m_book.topicOf(controlPath), 0));
        m_view->setFocus();
        break;
    }
}

/// The pane in front has the keyboard, ready for the next word.
void HelpWindow::focusPane() {
    m_tabs->currentWidget()->setFocus();
    if (auto* pane = qobject_cast<HelpListPane*>(m_tabs->currentWidget()))
        pane->field().selectAll();
}

/// The letter underlined in a tab goes to the pane, also where that is in front already.
bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_tabs->tabBar() && event->type() == QEvent::Shortcut)
        QMetaObject::invokeMethod(this, &HelpWindow::focusPane, Qt::QueuedConnection);
    return QWidget::eventFilter(watched, event);
}

void HelpWindow::pageShown(int page) {
    m_contents->select(page);
    m_findState->clear();
    if (page >= 0)
        setWindowTitle(u"ORVA Help: "_s + m_book.pages[page].title);
}

void HelpWindow::startFinding() {
    m_findBar->show();
    m_findField->setFocus();
    m_findField->selectAll();
}

void HelpWindow::endFinding() {
    m_findBar->hide();
    m_view->setFocus();
}

/// Goes on at the other end of the page where it reaches one.
void HelpWindow::find(bool backwards) {
    const QString text = m_findField->text();
    const QTextDocument::FindFlags flags =
        backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    m_findState->clear();
    if (text.isEmpty() || m_view->find(text, flags))
        return;
    m_view->moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
    if (!m_view->find(text, flags))
        m_findState->setText(u"Not in this page"_s);
}

void HelpWindow::closeEvent(QCloseEvent* event) {
    SaveWindowPlacement(m_settings, PlacedWidget(*this, objectName()), placementKey);
    QWidget::closeEvent(event);
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape)
        return QWidget::keyPressEvent(event);
    if (m_findBar->isVisible())
        endFinding();
    else
        close();
}
