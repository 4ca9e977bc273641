#include "controls/tool_button.h"

#include "controls/icons.h"

#include <QToolButton>

QToolButton* makeToolButton(const QString& name, const QString& iconName, const QString& tip) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setIcon(icon(iconName));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoRaise(true);
    return button;
}
