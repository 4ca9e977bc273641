#include "frame/screens/frame_menus.h"

#include "controls/icons.h"
#include "core/session.h"
#include "frame/year_roads.h"
#include "year/recent_years.h"

#include <QAccessible>
#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Toolkits that read the screen know a menu as the one of the bar that they asked first. When that
/// bar goes they are to ask again, or the menu is gone from the other bars too.
void forgetAccessible(QAction* menuAction) {
    if (QAccessibleInterface* known = QAccessible::queryAccessibleInterface(menuAction))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(known));
}

} // namespace

FrameMenus::FrameMenus(Session& session, MainFrame& frame, WindowTest has, QWidget& window)
    : QObject(&window)
    , m_session(session)
    , m_frame(frame)
    , m_has(std::move(has))
    , m_window(window) {
    makeActions(window);
    for (const MenuEntry& entry : frameMenus(m_has))
        m_menus += makeMenu(entry);
}

void FrameMenus::makeActions(QWidget& window) {
    for (const CommandEntry& entry : commandTable()) {
        auto* action = new QAction(entry.caption, &window);
        action->setObjectName(entry.name.toString());
        if (!entry.icon.isEmpty())
            action->setIcon(icon(entry.icon.toString()));
        if (isPopup(entry.command) || entry.command == FrameCommand::ShowToolbar) {
            action->setCheckable(entry.command == FrameCommand::ShowToolbar);
        } else {
            connect(action, &QAction::triggered, this,
                    [this, command = entry.command] { RunCommand(m_session, m_frame, command); });
        }
        m_actions[entry.command] = action;
        if (entry.shortcut.isEmpty() || !commandExists(entry.command, m_has))
            continue;
        action->setShortcut(QKeySequence(entry.shortcut.toString(), QKeySequence::PortableText));
        window.addAction(action);
    }
}

/// The main window's own, as its commands are: what a window adds to a popup is the popup's, and is
/// taken away from it again.
void FrameMenus::addSeparator(QMenu& menu) {
    auto* separator = new QAction(&m_window);
    separator->setSeparator(true);
    menu.addAction(separator);
}

QMenu* FrameMenus::makeMenu(const MenuEntry& entry) {
    auto* menu = new QMenu(entry.caption, &m_window);
    menu->setObjectName(entry.name.toString());
    for (const MenuItem& item : entry.items) {
        if (item.isSeparator)
            addSeparator(*menu);
        else
            menu->addAction(&action(item.command));
        if (!item.isSeparator && isPopup(item.command))
            action(item.command).setMenu(&popup(item.command));
    }
    if (menu->actions().contains(&action(FrameCommand::Exit)))
        connect(menu, &QMenu::aboutToShow, this, [this, menu] { listRecentYears(*menu); });
    return menu;
}

/// Made anew whenever the menu opens, above "Exit": a start reads none of it.
void FrameMenus::listRecentYears(QMenu& menu) {
    qDeleteAll(m_recentYears);
    m_recentYears.clear();
    QAction* exit = &action(FrameCommand::Exit);
    for (const QString& path : RecentYears(m_session.GetSettings())) {
        auto* year = new QAction(
            u"&%1 %2"_s.arg(m_recentYears.size() + 1).arg(ShortenPath(path).replace(u'&', u"&&"_s)),
            &menu);
        connect(year, &QAction::triggered, this,
                [this, path] { OpenRecentYear(m_session, m_frame, path); });
        menu.insertAction(exit, year);
        m_recentYears += year;
    }
    if (!m_recentYears.isEmpty())
        m_recentYears += menu.insertSeparator(exit);
}

QMenu& FrameMenus::popup(FrameCommand popup) {
    QMenu*& menu = m_popups[popup];
    if (!menu)
        menu = makeMenu(popupMenu(popup, m_has));
    return *menu;
}

void FrameMenus::addTo(QMenuBar& bar) const {
    QAction* first = bar.actions().value(0);
    for (QMenu* menu : m_menus)
        bar.insertAction(first, menu->menuAction());
    connect(&bar, &QObject::destroyed, this, [this] {
        for (const QMenu* menu : m_menus)
            forgetAccessible(menu->menuAction());
    });
}

void FrameMenus::EnableInput(bool enable) {
    for (const CommandEntry& entry : commandTable())
        action(entry.command).setEnabled(isCommandAllowed(entry, enable, m_session));
}
