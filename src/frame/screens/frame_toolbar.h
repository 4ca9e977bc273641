#pragma once

#include "controls/layout_toolbar.h"
#include "core/toolbar_side.h"
#include "frame/frame_commands.h"

class FrameMenus;
class QMainWindow;
class QMenu;

/// `Toolbar1`: the main window's toolbar, docked at one of its four sides with the buttons in the
/// middle of the side.
class FrameToolbar : public LayoutToolbar {
    Q_OBJECT

public:
    /// `menus` has what its buttons do.
    FrameToolbar(const ToolbarLayout& layout, FrameMenus& menus);

    void dock(QMainWindow& window, ToolbarSide side);
    /// Gives the focus to the button that had it last.
    void takeFocus();
    /// The button of a command; null where it has none.
    QWidget* buttonOf(FrameCommand command) const;

signals:
    /// A popup is about to show beside its button.
    void popupOpens(FrameCommand popup, QMenu& menu);

private:
    void addMargin(QAction* before);
    void showPopup(FrameCommand popup);

    FrameMenus& m_menus;
    std::vector<ToolbarButton> m_buttons;
    ToolbarSide m_side = ToolbarSide::Left;
};
