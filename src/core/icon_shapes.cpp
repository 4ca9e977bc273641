#include "core/icon_shapes.h"

#include <QPolygonF>

namespace {

constexpr qreal stepsOfSide = 1024;

} // namespace

QByteArray iconFile(const IconShapes& shapes) {
    QByteArray file;
    const auto put = [&](int number) {
        const auto half = static_cast<qint16>(number);
        file.append(reinterpret_cast<const char*>(&half), sizeof half);
    };
    for (const auto& [colour, surface] : shapes) {
        put(static_cast<int>(colour >> 16));
        put(static_cast<int>(colour & 0xffff));
        for (const QPolygonF& outline : surface.toSubpathPolygons()) {
            put(static_cast<int>(outline.size()));
            for (const QPointF& point : outline) {
                put(qRound(point.x() * stepsOfSide / IconSide));
                put(qRound(point.y() * stepsOfSide / IconSide));
            }
        }
        put(0);
    }
    return file;
}

IconShapes readIconFile(QByteArrayView file) {
    const auto* next = reinterpret_cast<const qint16*>(file.data());
    const auto* end = next + file.size() / qsizetype{sizeof(qint16)};
    IconShapes shapes;
    while (next < end) {
        const QRgb colour = static_cast<quint16>(next[0]) << 16 | static_cast<quint16>(next[1]);
        next += 2;
        QPainterPath surface;
        surface.setFillRule(Qt::WindingFill);
        for (int count = *next++; count > 0; count = *next++) {
            QPolygonF outline(count);
            for (QPointF& point : outline) {
                point = QPointF(next[0], next[1]) * (IconSide / stepsOfSide);
                next += 2;
            }
            surface.addPolygon(outline);
        }
        shapes.append({colour, surface});
    }
    return shapes;
}
