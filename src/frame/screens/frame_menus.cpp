#include "frame/screens/frame_menus.h"

#include "controls/icons.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <utility>

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

QMenu* FrameMenus::makeMenu(const MenuEntry& entry) {
    auto* menu = new QMenu(entry.caption, &m_window);
    menu->setObjectName(entry.name.toString());
    for (const MenuItem& item : entry.items) {
        if (item.isSeparator)
            menu->addSeparator();
        else
            menu->addAction(&action(item.command));
        if (!item.isSeparator && isPopup(item.command))
            action(item.command).setMenu(&popup(item.command));
    }
    return menu;
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
}

void FrameMenus::EnableInput(bool enable) {
    for (const CommandEntry& entry : commandTable())
        action(entry.command).setEnabled(isCommandAllowed(entry, enable, m_session));
}
