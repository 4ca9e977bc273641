#include "controls/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView familyBlue = "#2f80d0";

QByteArray drawing(const QString& name) {
    QFile file(u":/icons/%1.svg"_s.arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QColor lineColour(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::ButtonText);
    case QIcon::Selected:
        return palette.color(QPalette::HighlightedText);
    default:
        return palette.color(QPalette::ButtonText);
    }
}

void paintDrawing(QPainter& painter, const QRect& rect, QByteArray svg, const QColor& lines,
                  bool isSelected = false) {
    svg.replace("currentColor", lines.name().toLatin1());
    if (isSelected) // where the family's blue may stand on itself
        svg.replace(familyBlue, lines.name().toLatin1());
    QSvgRenderer(svg).render(&painter, rect);
}

class FamilyEngine : public QIconEngine {
public:
    FamilyEngine(QString name, QByteArray svg) : m_name(std::move(name)), m_svg(std::move(svg)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        if (mode == QIcon::Disabled)
            painter->setOpacity(0.5);
        paintDrawing(*painter, rect, m_svg, lineColour(mode), mode == QIcon::Selected);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        const QString key = u"icon %1 %2 %3x%4 %5"_s.arg(m_name, lineColour(mode).name())
                                .arg(size.width())
                                .arg(size.height())
                                .arg(mode);
        QPixmap pixmap;
        if (QPixmapCache::find(key, &pixmap))
            return pixmap;
        pixmap = QPixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        painter.end();
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }

    QIconEngine* clone() const override { return new FamilyEngine(m_name, m_svg); }

private:
    QString m_name;
    QByteArray m_svg;
};

} // namespace

QIcon icon(const QString& name) {
    const QByteArray svg = drawing(name);
    return svg.isEmpty() ? QIcon() : QIcon(new FamilyEngine(name, svg));
}

void paintIcon(QPainter& painter, const QRect& rect, const QString& name, const QColor& lines) {
    paintDrawing(painter, rect, drawing(name), lines);
}
