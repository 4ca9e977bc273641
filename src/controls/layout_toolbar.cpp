#include "controls/layout_toolbar.h"

#include "controls/icons.h"

#include <QKeyEvent>
#include <QMenu>
#include <QToolButton>

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
            addButton(key, tipList.value(m_actions.size()), iconList.value(m_actions.size()));
    }
    keepTabStop();
}

void LayoutToolbar::addButton(const QString& key, const QString& tip, const QString& iconName) {
    QAction* action = addAction(icon(iconName), tip);
    action->setToolTip(tip);
    action->setObjectName(u"%1(%2)"_s.arg(key).arg(m_actions.size()));
    m_actions += action;
    QToolButton* button = widgetOf(m_actions.size() - 1);
    button->setObjectName(action->objectName());
    button->setAccessibleName(tip);
    button->installEventFilter(this);
}

QToolButton* LayoutToolbar::widgetOf(qsizetype index) const {
    return qobject_cast<QToolButton*>(widgetForAction(button(index)));
}

void LayoutToolbar::setMenu(qsizetype index, QMenu* menu) {
    button(index)->setMenu(menu);
    widgetOf(index)->setPopupMode(QToolButton::InstantPopup);
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
    for (qsizetype i = 0; i < buttonCount(); ++i)
        widgetOf(i)->setFocusPolicy(widgetOf(i) == button ? Qt::TabFocus : Qt::NoFocus);
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
