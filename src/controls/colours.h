#pragma once

#include "core/contrast.h"

#include <QColor>

class QWidget;

/// A colour as the year's file and the settings keep it: red in the low byte; 0x80000005 is the
/// window colour of the person's scheme.
QColor toColour(qint32 colour);
qint32 fromColour(const QColor& colour);

/// The colour for text on a background: the one wished for where that can be read, else black or
/// white.
QColor textColourOn(const QColor& background, const QColor& wish = {});

/// Gives a widget and what stands in it a background together with the colour of its text, so that
/// it reads in light and dark schemes alike.
void setBackground(QWidget* widget, const QColor& background, const QColor& textWish = {});
