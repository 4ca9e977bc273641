#include "controls/icons.h"

#include "core/icon_file.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QResource>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString pathOf(const QString& name) {
    return u":/icons/%1.icon"_s.arg(name);
}

/// Stays where it is: the program carries its icons.
IconFile fileOfIcon(const QString& name) {
    const QResource file(pathOf(name));
    return IconFile({file.data(), static_cast<qsizetype>(file.size())});
}

/// The colours that stand for others on a person's screen.
struct Colours {
    QColor lines;
    bool isSelected = false; ///< where the family's blue may stand on itself

    QColor shown(QRgb colour) const {
        const bool isText = colour == SchemeTextColour || (isSelected && colour == FamilyBlue);
        return isText ? lines : QColor(colour);
    }
};

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

void paintShapes(QPainter& painter, const QRect& rect, const IconFile& file,
                 const Colours& colours) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.topLeft());
    painter.scale(rect.width() / qreal{IconSide}, rect.height() / qreal{IconSide});
    for (const IconShape& shape : file.shapes())
        painter.fillPath(shape.surface, colours.shown(shape.colour));
    painter.restore();
}

/// A colour over another, each with its share of the pixel in it.
QRgb over(QRgb upper, QRgb lower) {
    const int rest = 255 - qAlpha(upper);
    const auto mixed = [rest](int above, int below) { return above + (below * rest + 127) / 255; };
    return qRgba(mixed(qRed(upper), qRed(lower)), mixed(qGreen(upper), qGreen(lower)),
                 mixed(qBlue(upper), qBlue(lower)), mixed(qAlpha(upper), qAlpha(lower)));
}

QImage drawnIcon(const IconFile& file, int side, const Colours& colours) {
    constexpr uchar opaque = 255;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    auto* pixels = reinterpret_cast<QRgb*>(image.bits()); // no gaps between rows of 32 bits
    for (int shape = 0; shape < file.count(); ++shape) {
        const QRgb colour = colours.shown(file.colour(shape)).rgb();
        const uchar* cover = file.cover(shape, side);
        for (int i = 0; i < side * side; ++i) {
            if (cover[i] == opaque)
                pixels[i] = colour;
            else if (cover[i] > 0)
                pixels[i] =
                    over(qPremultiply((colour & RGB_MASK) | QRgb{cover[i]} << 24), pixels[i]);
        }
    }
    return image;
}

bool isDrawnFor(const QSize& size) {
    return size.width() == size.height() &&
           std::find(DrawnSides.begin(), DrawnSides.end(), size.width()) != DrawnSides.end();
}

class FamilyEngine : public QIconEngine {
public:
    explicit FamilyEngine(QString name) : m_name(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        if (mode == QIcon::Disabled)
            painter->setOpacity(0.5);
        paintShapes(*painter, rect, fileOfIcon(m_name), coloursOf(mode));
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
        if (isDrawnFor(size)) {
            painter.setOpacity(mode == QIcon::Disabled ? 0.5 : 1);
            painter.drawImage(0, 0, drawnIcon(fileOfIcon(m_name), size.width(), coloursOf(mode)));
        } else {
            paint(&painter, QRect(QPoint(), size), mode, state);
        }
        painter.end();
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }

    QIconEngine* clone() const override { return new FamilyEngine(m_name); }

private:
    static Colours coloursOf(QIcon::Mode mode) {
        return {lineColour(mode), mode == QIcon::Selected};
    }

    QString m_name;
};

} // namespace

QIcon icon(const QString& name) {
    return QResource(pathOf(name)).isValid() ? QIcon(new FamilyEngine(name)) : QIcon();
}

void paintIcon(QPainter& painter, const QRect& rect, const QString& name, const QColor& lines) {
    paintShapes(painter, rect, fileOfIcon(name), {.lines = lines});
}
