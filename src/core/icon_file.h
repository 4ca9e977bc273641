#pragma once

#include <QByteArray>
#include <QList>
#include <QPainterPath>
#include <QRgb>

#include <array>

/// What an icon is made of, in the order in which it is painted: surfaces of one colour in a square
/// of `IconSide`. Lines are surfaces already, and curves short lines.
struct IconShape {
    QRgb colour = 0;
    QPainterPath surface;
};
using IconShapes = QList<IconShape>;

constexpr int IconSide = 24;

/// The colour of what takes the text colour of the person's scheme (`currentColor` in the SVG).
constexpr QRgb SchemeTextColour = 0x00000000;
/// The family's blue, which takes the text colour too where it may stand on itself.
constexpr QRgb FamilyBlue = 0xff2f80d0;

/// The sides in pixels for which an icon is drawn beforehand: those that the program's toolbars and
/// menus ask for, at the scales 1 and 2.
constexpr std::array<int, 6> DrawnSides = {16, 20, 28, 32, 40, 56};

/// An icon as the build has drawn it out of its SVG file. A start shows forty of them, and for the
/// filling of each the toolkit would wake threads; so they are there pixel by pixel too.
class IconFile {
public:
    /// Numbers are of 16 bits in the byte order of the machine, which builds and runs the program.
    static QByteArray make(const IconShapes& shapes);

    /// Reads what `make` has made, and leaves it where it is.
    explicit IconFile(QByteArrayView file) : m_file(file) {}

    int count() const; ///< of the shapes
    QRgb colour(int shape) const;
    /// How much of each pixel of a square of one of `DrawnSides` a shape covers, row by row.
    const uchar* cover(int shape, int side) const;
    IconShapes shapes() const; ///< for any other size

private:
    qint16 numberAt(qsizetype byte) const;

    QByteArrayView m_file;
};
