#pragma once

#include <QString>

class QToolButton;

/// A flat button with an icon (icons.h) and a tip, which is its name for screen readers too. Tab
/// reaches it; a click leaves the focus where it is.
QToolButton* makeToolButton(const QString& name, const QString& iconName, const QString& tip);
