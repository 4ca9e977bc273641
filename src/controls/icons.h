#pragma once

#include <QIcon>

/// An icon of the program's own family: the file resources/icons/NAME.svg. Drawn in the text colour
/// of the scheme at the moment of painting, so it reads in light and dark and follows a change. A
/// name without a file gives an empty icon.
QIcon icon(const QString& name);
