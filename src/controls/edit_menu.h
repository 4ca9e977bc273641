#pragma once

#include <QMenu>

class FocusedBox;

/// The edit menu of the rich text boxes of a window: Undo, Redo, Cut, Copy, Paste, Delete and
/// Select All, above them what the caret stands on (a spelling mistake with its suggestions, an
/// object), below them what the window adds. Opens as the menu bar's or at a right click; the state
/// of its entries is that of the box at that moment.
class EditMenu : public QMenu {
    Q_OBJECT

public:
    EditMenu(const FocusedBox& focused, QWidget* parent);

    /// An entry of the window's own in the group "Selection", enabled where something is selected.
    void addSelectionAction(QAction* action);

private:
    void addEditActions();
    void refresh();
    void addSpelling();
    void addObject();
    QAction* addOnTop(const QString& text);

    const FocusedBox& m_focused;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QAction* m_paste = nullptr;
    QAction* m_selectAll = nullptr;
    QList<QAction*> m_ofSelection; ///< that need one
    QList<QAction*> m_ofCaret;     ///< at the top, made anew at each opening
    QMenu* m_selectionMenu = nullptr;
};
