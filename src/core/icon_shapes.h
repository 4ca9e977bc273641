#pragma once

#include <QByteArray>
#include <QList>
#include <QPainterPath>
#include <QRgb>

#include <utility>

/// An icon as the build has drawn it out of its SVG file: surfaces in the order in which they are
/// filled, in a square of `IconSide`. Lines are surfaces already, and curves short lines, so that
/// hardly more than filling is left to be done for each icon of a start.
using IconShapes = QList<std::pair<QRgb, QPainterPath>>;

constexpr int IconSide = 24;

/// The colour of what takes the text colour of the person's scheme (`currentColor` in the SVG).
constexpr QRgb SchemeTextColour = 0x00000000;
/// The family's blue, which takes the text colour too where it may stand on itself.
constexpr QRgb FamilyBlue = 0xff2f80d0;

/// Icons are kept as numbers of 16 bits in the byte order of the machine that builds and runs the
/// program: for each surface the halves of its colour, then its outlines, each the count of its
/// points and their places in 1/1024 of the side. A count of 0 ends the surface.
QByteArray iconFile(const IconShapes& shapes);
/// Reads what `iconFile` made.
IconShapes readIconFile(QByteArrayView file);
