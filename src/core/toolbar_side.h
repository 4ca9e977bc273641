#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// The side of the main window at which its toolbar is docked, by its number in the settings.
enum class ToolbarSide { Left = 1, Right = 2, Top = 3, Bottom = 4 };

/// Where the top left corner of a button's popup goes: beside the button on the side of the free
/// area, and centred on the button along the bar. All in one system of coordinates.
QPoint popupPlace(ToolbarSide side, const QRect& button, QSize popup);
