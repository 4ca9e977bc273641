#pragma once

#include <QList>
#include <QToolBar>

class QToolButton;

/// A toolbar told by texts, as the windows have it: `layout` has a B for each button and a bar for
/// each separator ("BBBB|BB|B"); `tips` and `icons` have an entry a button, divided by bars
/// ("Bold|Italic", "bold|italic"; the names of icons.h). The tip is the button's name for screen
/// readers too. `key` is the toolbar's object name; its buttons' are "KEY(0)", "KEY(1)", ...
///
/// A click leaves the focus where it is. Tab reaches the toolbar as one stop, and there the arrow
/// keys, Home and End go from button to button.
class LayoutToolbar : public QToolBar {
    Q_OBJECT

public:
    LayoutToolbar(const QString& key, const QString& layout, const QString& tips,
                  const QString& icons, QWidget* parent = nullptr);

    /// The action of a button, counted from 0 over the separators: connect to its `triggered`.
    QAction* button(qsizetype index) const { return m_buttons.at(index).action; }
    qsizetype buttonCount() const { return m_buttons.size(); }

    /// Lets a button drop down a menu wherever it is pressed. The menu stays its owner's and may
    /// stand in other menus too: its own action becomes the button's, with the button's icon and
    /// tip.
    void setMenu(qsizetype index, QMenu* menu);

protected:
    void actionEvent(QActionEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Button {
        QAction* action;
        QToolButton* widget;
    };

    void addButton(const QString& tip, const QString& iconName);
    Button buttonOf(QAction* action) const;
    void followToggle(qsizetype index);
    void nameButton(qsizetype index, const QString& tip);
    QToolButton* widgetOf(qsizetype index) const { return m_buttons.at(index).widget; }
    bool arrowKey(qsizetype from, int key);
    void makeTabStop(const QObject* button);
    void keepTabStop();

    QList<Button> m_buttons;
};
