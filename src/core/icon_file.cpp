#include "core/icon_file.h"

#include <QImage>
#include <QPainter>
#include <QPolygonF>

#include <cstring>
#include <utility>

namespace {

// The count of shapes; their colours in two halves; of each what it covers for all sides; of each
// its outlines: the count of points, and their places in parts of the side, until a count of 0.
constexpr qsizetype numberSize = sizeof(qint16);
constexpr qsizetype colourSize = 2 * numberSize;
constexpr qreal partsOfSide = 1024;

/// The bytes of what a shape covers before a side, or for all of them.
qsizetype coverSize(int endSide = 0) {
    qsizetype size = 0;
    for (const int side : DrawnSides) {
        if (side == endSide)
            break;
        size += qsizetype{side} * side;
    }
    return size;
}

void put(QByteArray& file, int number) {
    const auto half = static_cast<qint16>(number);
    file.append(reinterpret_cast<const char*>(&half), numberSize);
}

void putCover(QByteArray& file, const QPainterPath& surface, int side) {
    QImage cover(side, side, QImage::Format_ARGB32_Premultiplied);
    cover.fill(Qt::transparent);
    QPainter painter(&cover);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / qreal{IconSide}, side / qreal{IconSide});
    painter.fillPath(surface, Qt::black);
    painter.end();
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            file.append(static_cast<char>(qAlpha(cover.pixel(x, y))));
    }
}

} // namespace

QByteArray IconFile::make(const IconShapes& shapes) {
    QByteArray file;
    put(file, static_cast<int>(shapes.size()));
    for (const IconShape& shape : shapes) {
        put(file, static_cast<int>(shape.colour >> 16));
        put(file, static_cast<int>(shape.colour & 0xffff));
    }
    for (const IconShape& shape : shapes) {
        for (const int side : DrawnSides)
            putCover(file, shape.surface, side);
    }
    for (const IconShape& shape : shapes) {
        for (const QPolygonF& outline : shape.surface.toSubpathPolygons()) {
            put(file, static_cast<int>(outline.size()));
            for (const QPointF& point : outline) {
                put(file, qRound(point.x() * partsOfSide / IconSide));
                put(file, qRound(point.y() * partsOfSide / IconSide));
            }
        }
        put(file, 0);
    }
    return file;
}

qint16 IconFile::numberAt(qsizetype byte) const {
    qint16 number = 0;
    std::memcpy(&number, m_file.data() + byte, numberSize);
    return number;
}

int IconFile::count() const {
    return m_file.isEmpty() ? 0 : numberAt(0);
}

QRgb IconFile::colour(int shape) const {
    const qsizetype place = numberSize + shape * colourSize;
    return static_cast<QRgb>(static_cast<quint16>(numberAt(place))) << 16 |
           static_cast<quint16>(numberAt(place + numberSize));
}

const uchar* IconFile::cover(int shape, int side) const {
    return reinterpret_cast<const uchar*>(m_file.data()) + numberSize + count() * colourSize +
           shape * coverSize() + coverSize(side);
}

IconShapes IconFile::shapes() const {
    IconShapes shapes;
    qsizetype place = numberSize + count() * (colourSize + coverSize());
    const auto next = [&] { return numberAt(std::exchange(place, place + numberSize)); };
    for (int i = 0; i < count(); ++i) {
        QPainterPath surface;
        surface.setFillRule(Qt::WindingFill);
        for (int points = next(); points > 0; points = next()) {
            QPolygonF outline(points);
            for (QPointF& point : outline) {
                point.setX(next() * (IconSide / partsOfSide));
                point.setY(next() * (IconSide / partsOfSide));
            }
            surface.addPolygon(outline);
        }
        shapes.append({colour(i), surface});
    }
    return shapes;
}
