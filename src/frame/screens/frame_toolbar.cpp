#include "frame/screens/frame_toolbar.h"

#include "frame/screens/frame_menus.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

Qt::ToolBarArea areaOf(ToolbarSide side) {
    switch (side) {
    case ToolbarSide::Right:
        return Qt::RightToolBarArea;
    case ToolbarSide::Top:
        return Qt::TopToolBarArea;
    case ToolbarSide::Bottom:
        return Qt::BottomToolBarArea;
    default:
        return Qt::LeftToolBarArea;
    }
}

QString tipsOf(const ToolbarLayout& layout) {
    QStringList tips;
    for (const ToolbarButton& button : layout.buttons)
        tips += button.tip;
    return tips.join(u'|');
}

QString iconsOf(const ToolbarLayout& layout) {
    QStringList icons;
    for (const ToolbarButton& button : layout.buttons)
        icons += commandEntry(button.command).icon.toString();
    return icons.join(u'|');
}

} // namespace

FrameToolbar::FrameToolbar(const ToolbarLayout& layout, FrameMenus& menus)
    : LayoutToolbar(u"Toolbar1"_s, layout.layout, tipsOf(layout), iconsOf(layout))
    , m_menus(menus)
    , m_buttons(layout.buttons) {
    setWindowTitle(u"Toolbar"_s);
    setFloatable(false);
    constexpr int iconPixels = 28;
    setIconSize({iconPixels, iconPixels});
    for (qsizetype i = 0; i < buttonCount(); ++i) {
        const FrameCommand command = m_buttons[static_cast<size_t>(i)].command;
        const QKeySequence key = menus.action(command).shortcut();
        widgetForAction(button(i))->setAccessibleDescription(
            key.toString(QKeySequence::NativeText));
        if (isPopup(command))
            connect(button(i), &QAction::triggered, this, [this, command] { showPopup(command); });
        else
            connect(button(i), &QAction::triggered, &menus.action(command), &QAction::trigger);
    }
    addMargin(actions().value(0));
    addMargin(nullptr);
}

/// The room before and behind the buttons, of equal size.
void FrameToolbar::addMargin(QAction* before) {
    auto* margin = new QWidget(this);
    margin->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    insertWidget(before, margin);
}

void FrameToolbar::dock(QMainWindow& window, ToolbarSide side) {
    m_side = side;
    window.addToolBar(areaOf(side), this);
}

void FrameToolbar::takeFocus() {
    for (qsizetype i = 0; i < buttonCount(); ++i) {
        QWidget* stop = widgetForAction(button(i));
        if (stop->focusPolicy() == Qt::TabFocus)
            stop->setFocus(Qt::ShortcutFocusReason);
    }
}

QWidget* FrameToolbar::buttonOf(FrameCommand command) const {
    for (size_t i = 0; i < m_buttons.size(); ++i) {
        if (m_buttons[i].command == command)
            return widgetForAction(button(static_cast<qsizetype>(i)));
    }
    return nullptr;
}

void FrameToolbar::showPopup(FrameCommand popup) {
    QMenu& menu = m_menus.popup(popup);
    emit popupOpens(popup, menu);
    const QWidget* button = buttonOf(popup);
    menu.popup(
        popupPlace(m_side, {button->mapToGlobal(QPoint()), button->size()}, menu.sizeHint()));
    menu.setActiveAction(menu.actions().value(0));
}
