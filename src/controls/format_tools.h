#pragma once

#include "controls/focused_box.h"

#include <QColor>
#include <QList>
#include <QObject>

class EditMenu;
class InsertObjectMenu;
class LayoutToolbar;
class QAction;
class QMenu;
class QWidget;
class RichTextBox;
class Session;

/// The commands for the rich text boxes of a window, one object for all of them: the format toolbar
/// "Format_Cks", the toolbar of colours, the format menu, the edit menu that a right click opens
/// and the menu of objects. They act on the box that had the focus last and follow its caret;
/// without such a box they are disabled.
///
/// The window puts the toolbars and menus where it wants them and hands each of its boxes to
/// `serve`.
class FormatTools : public QObject {
    Q_OBJECT

public:
    /// `layout` is that of the toolbar: "BBBB|BB|B", or a beginning of it. What has no button is
    /// in the menus all the same. `window` owns everything and hears the shortcuts.
    /// `sizes`: the font sizes to choose from, in points; empty for the usual ones.
    FormatTools(Session& session, const QString& layout, QWidget& window,
                const QList<int>& sizes = {});

    void serve(RichTextBox& box);
    /// The box that had the focus last; none at first.
    RichTextBox* box() const { return m_focused.box(); }
    FocusedBox& focused() { return m_focused; }

    LayoutToolbar* toolbar() const { return m_toolbar; }
    /// Font colour and highlighter.
    LayoutToolbar* colourToolbar() const { return m_colourToolbar; }
    QMenu* formatMenu() const { return m_formatMenu; }
    EditMenu* editMenu() const { return m_editMenu; }
    InsertObjectMenu* insertMenu() const { return m_insertMenu; }

private:
    void makeCommands(QWidget& window);
    void makeSizeMenu(QWidget& window);
    void makeColourMenus(QWidget& window);
    void makeFormatMenu(QWidget& window);
    void chooseFont();
    void setColour(const QColor& colour);
    void chooseColour();
    void highlight(const QColor& colour);
    void chooseHighlight();
    void tickHighlight();
    void followCaret();

    Session& m_session;
    QList<int> m_sizes;
    FocusedBox m_focused;
    LayoutToolbar* m_toolbar;
    LayoutToolbar* m_colourToolbar;
    QList<QAction*> m_commands; ///< in the order of the toolbar, with those that it lacks
    QMenu* m_sizeMenu = nullptr;
    QMenu* m_colourMenu = nullptr;
    QMenu* m_highlightMenu = nullptr;
    QMenu* m_formatMenu = nullptr;
    EditMenu* m_editMenu;
    InsertObjectMenu* m_insertMenu;
};
