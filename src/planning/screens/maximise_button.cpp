#include "planning/screens/maximise_button.h"

#include "controls/icons.h"

#include <QEvent>

using namespace Qt::StringLiterals;

MaximiseButton::MaximiseButton(const QString& name, QWidget* home)
    : QToolButton(home), m_home(home) {
    setObjectName(name);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    hide();
}

void MaximiseButton::standOn(QWidget* text) {
    if (parentWidget() != m_home)
        parentWidget()->removeEventFilter(this);
    setParent(text ? text : m_home);
    if (!text) {
        hide();
        return;
    }
    text->installEventFilter(this);
    place();
    show();
    raise();
}

void MaximiseButton::setMaximised(bool maximised, const QString& tip) {
    setIcon(::icon(maximised ? u"restore"_s : u"maximise"_s));
    setToolTip(tip);
    setAccessibleName(tip);
}

void MaximiseButton::place() {
    adjustSize();
    move(parentWidget()->width() - width(), 0);
}

bool MaximiseButton::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && watched == parent())
        place();
    return QToolButton::eventFilter(watched, event);
}
