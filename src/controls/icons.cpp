#include "controls/icons.h"

#include "core/icon_shapes.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QResource>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString fileOf(const QString& name) {
    return u":/icons/%1.icon"_s.arg(name);
}

IconShapes shapesOf(const QString& name) {
    const QResource file(fileOf(name));
    return readIconFile({file.data(), static_cast<qsizetype>(file.size())});
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

void paintShapes(QPainter& painter, const QRect& rect, const IconShapes& shapes,
                 const QColor& lines, bool isSelected = false) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.topLeft());
    painter.scale(rect.width() / qreal{IconSide}, rect.height() / qreal{IconSide});
    for (const auto& [colour, surface] : shapes) {
        const bool isText = colour == SchemeTextColour || (isSelected && colour == FamilyBlue);
        painter.fillPath(surface, isText ? lines : QColor(colour));
    }
    painter.restore();
}

class FamilyEngine : public QIconEngine {
public:
    explicit FamilyEngine(QString name) : m_name(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        if (mode == QIcon::Disabled)
            painter->setOpacity(0.5);
        paintShapes(*painter, rect, shapesOf(m_name), lineColour(mode), mode == QIcon::Selected);
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

    QIconEngine* clone() const override { return new FamilyEngine(m_name); }

private:
    QString m_name;
};

} // namespace

QIcon icon(const QString& name) {
    return QResource(fileOf(name)).isValid() ? QIcon(new FamilyEngine(name)) : QIcon();
}

void paintIcon(QPainter& painter, const QRect& rect, const QString& name, const QColor& lines) {
    paintShapes(painter, rect, shapesOf(name), lines);
}
