#include "help/screens/context_help.h"

#include "controls/icons.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace {

/// "HelpCur": an arrow with a question mark, its point where the arrow's is.
QCursor helpCursor() {
    constexpr int side = 32;
    constexpr int hot = 5;
    return QCursor(icon(u"context_help"_s).pixmap(side, side), hot, hot);
}

bool isPress(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
}

} // namespace

ContextHelp::ContextHelp(QWidget* parent) : QToolButton(parent) {
    setObjectName(u"ButtonEx1"_s);
    setIcon(::icon(u"context_help"_s));
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus); // the focus stays on what F1 asks about
    setToolTip(u"Context help (Shift+F1)"_s);
    setAccessibleName(u"Context help"_s);
    QApplication::instance()->installEventFilter(this);
}

ContextHelp::~ContextHelp() {
    search(false);
}

bool ContextHelp::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType())
        return false;
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        return keyPressed(key->key(), key->modifiers());
    }
    if (watched == this && isPress(type) && !m_isSearching) {
        search(true);
        return true;
    }
    if (!m_isSearching)
        return false;
    if (type == QEvent::MouseButtonRelease)
        letGo(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
    return isPress(type) || type == QEvent::MouseButtonRelease || type == QEvent::ContextMenu;
}

bool ContextHelp::keyPressed(int key, Qt::KeyboardModifiers modifiers) {
    if (key == Qt::Key_Escape && m_isSearching) {
        search(false);
        return true;
    }
    if (key != Qt::Key_F1)
        return false;
    if (modifiers == Qt::ShiftModifier)
        search(true);
    else if (QWidget* control = QApplication::focusWidget())
        emit helpWanted(control);
    else if (QWidget* window = QApplication::activeWindow())
        emit helpWanted(window);
    return true;
}

void ContextHelp::search(bool on) {
    if (on == m_isSearching)
        return;
    m_isSearching = on;
    setDown(on);
    if (on)
        QApplication::setOverrideCursor(helpCursor());
    else
        QApplication::restoreOverrideCursor();
}

void ContextHelp::letGo(QPoint place) {
    QWidget* control = QApplication::widgetAt(place);
    if (control == this)
        return;
    search(false);
    if (control)
        emit helpWanted(control);
}
