#pragma once

#include <QIcon>

class QPainter;

/// An icon of the program's own family: the file resources/icons/NAME.svg, which the build has made
/// surfaces of (core/icon_file.h). Drawn in the text colour
/// of the scheme at the moment of painting, so it reads in light and dark and follows a change. A
/// name without a file gives an empty icon.
QIcon icon(const QString& name);

/// Draws one on a background of its own, with lines of a colour that reads there.
void paintIcon(QPainter& painter, const QRect& rect, const QString& name, const QColor& lines);
