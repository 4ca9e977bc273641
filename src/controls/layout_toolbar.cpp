#include "controls/layout_toolbar.h"

#include "controls/icons.h"

#include <QActionEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QToolButton>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

LayoutToolbar::LayoutToolbar(const QString& key, const QString& layout, const QString& tips,
                             const QString& icons, QWidget* parent)
    : QToolBar(parent) {
    setObjectName(key);
    setMovable(false);
    setIconSize(QSize(20, 20));
    const QStringList tipList = tips.split(u'|');
    const QStringList iconList = icons.split(u'|');
    for (const QChar sign : layout) {
        if (sign == u'|')
            addSeparator();
        else
            addButton(tipList.value(buttonCount()), iconList.value(buttonCount()));
    }
    keepTabStop();
}

void LayoutToolbar::addButton(const QString& tip, const QString& iconName) {
    m_buttons.append(buttonOf(addAction(icon(iconName), tip)));
    nameButton(buttonCount() - 1, tip);
    followToggle(buttonCount() - 1);
}

/// A screen reader toggles the button, which hands its state to the action but does not trigger it.
/// Where a click or the program does, the button tells of the state before the action.
void LayoutToolbar::followToggle(qsizetype index) {
    QToolButton* widget = widgetOf(index);
    QAction* action = button(index);
    const auto told = std::make_shared<bool>(false);
    connect(widget, &QToolButton::toggled, this, [told](bool on) { *told = on; });
    connect(action, &QAction::toggled, widget, [told, widget, action](bool on) {
        if (*told == on || widget->isChecked() != on)
            return;
        QMetaObject::invokeMethod(
            action, [action, on] { emit action->triggered(on); }, Qt::QueuedConnection);
    });
}

void LayoutToolbar::nameButton(qsizetype index, const QString& tip) {
    const QString name = u"%1(%2)"_s.arg(objectName()).arg(index);
    button(index)->setObjectName(name);
    button(index)->setToolTip(tip);
    QToolButton* widget = widgetOf(index);
    widget->setObjectName(name);
    widget->setAccessibleName(tip);
    widget->installEventFilter(this);
}

LayoutToolbar::Button LayoutToolbar::buttonOf(QAction* action) const {
    return {action, qobject_cast<QToolButton*>(widgetForAction(action))};
}

void LayoutToolbar::setMenu(qsizetype index, QMenu* menu) {
    const std::unique_ptr<QAction> plain(button(index));
    QAction* own = menu->menuAction();
    own->setIcon(plain->icon());
    insertAction(plain.get(), own);
    m_buttons[index] = buttonOf(own);
    removeAction(plain.get());
    nameButton(index, plain->toolTip());
    widgetOf(index)->setPopupMode(QToolButton::InstantPopup);
    keepTabStop();
}

/// A menu may go before the toolbar, and its action with it.
void LayoutToolbar::actionEvent(QActionEvent* event) {
    QToolBar::actionEvent(event);
    if (event->type() == QEvent::ActionRemoved)
        m_buttons.removeIf(
            [gone = event->action()](const Button& each) { return each.action == gone; });
}

bool LayoutToolbar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn)
        makeTabStop(watched);
    if (event->type() == QEvent::EnabledChange)
        keepTabStop();
    if (event->type() == QEvent::KeyPress) {
        for (qsizetype i = 0; i < buttonCount(); ++i) {
            if (widgetOf(i) == watched && arrowKey(i, static_cast<QKeyEvent*>(event)->key()))
                return true;
        }
    }
    return QToolBar::eventFilter(watched, event);
}

/// Where the focus was last, Tab comes back to.
void LayoutToolbar::makeTabStop(const QObject* button) {
    for (const Button& each : std::as_const(m_buttons))
        each.widget->setFocusPolicy(each.widget == button ? Qt::TabFocus : Qt::NoFocus);
}

/// A button that is disabled can't be one.
void LayoutToolbar::keepTabStop() {
    const QObject* firstEnabled = nullptr;
    for (qsizetype i = buttonCount() - 1; i >= 0; --i) {
        if (!button(i)->isEnabled())
            continue;
        firstEnabled = widgetOf(i);
        if (widgetOf(i)->focusPolicy() == Qt::TabFocus)
            return;
    }
    if (firstEnabled)
        makeTabStop(firstEnabled);
}

bool LayoutToolbar::arrowKey(qsizetype from, int key) {
    const bool backwards = key == Qt::Key_Left || key == Qt::Key_Up || key == Qt::Key_End;
    const qsizetype step = backwards ? -1 : 1;
    qsizetype to = from + step;
    if (key == Qt::Key_Home)
        to = 0;
    else if (key == Qt::Key_End)
        to = buttonCount() - 1;
    else if (key != Qt::Key_Left && key != Qt::Key_Up && key != Qt::Key_Right &&
             key != Qt::Key_Down)
        return false;
    while (to >= 0 && to < buttonCount() && !widgetOf(to)->isEnabled())
        to += step;
    if (to >= 0 && to < buttonCount())
        widgetOf(to)->setFocus(Qt::TabFocusReason);
    return true;
}
