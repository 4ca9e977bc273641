// make_icons FOLDER FILE.svg...: draws each icon of the program's family into FOLDER/FILE.icon, as
// the surfaces that the program fills (core/icon_file.h). Part of the build.

#include "core/icon_file.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// Stands for `currentColor` while the SVG is drawn.
constexpr QRgb textMarker = 0xff010203;

/// Takes down what is drawn, as surfaces.
class ShapeEngine : public QPaintEngine {
public:
    ShapeEngine() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}

    void drawPath(const QPainterPath& path) override {
        if (state->brush().style() != Qt::NoBrush)
            add(path, state->brush().color());
        if (state->pen().style() != Qt::NoPen)
            add(QPainterPathStroker(state->pen()).createStroke(path), state->pen().color());
    }

    IconShapes shapes;

private:
    void add(const QPainterPath& path, const QColor& colour) {
        constexpr qreal finer = 8; // fine enough for an icon of several times its side
        QPainterPath surface;
        surface.setFillRule(Qt::WindingFill);
        for (const QPolygonF& outline : (state->transform() * QTransform::fromScale(finer, finer))
                                            .map(path)
                                            .toSubpathPolygons())
            surface.addPolygon(QTransform::fromScale(1 / finer, 1 / finer).map(outline));
        const QRgb rgb = colour.rgb();
        shapes.append({rgb == textMarker ? SchemeTextColour : rgb, surface});
    }
};

class ShapeDevice : public QPaintDevice {
public:
    QPaintEngine* paintEngine() const override { return &m_engine; }
    const IconShapes& shapes() const { return m_engine.shapes; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return IconSide;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return 1;
        }
    }

private:
    mutable ShapeEngine m_engine;
};

bool makeIcon(const QString& drawing, const QString& folder) {
    QFile source(drawing);
    if (!source.open(QIODevice::ReadOnly))
        return false;
    QByteArray svg = source.readAll();
    svg.replace("currentColor", QColor(textMarker).name().toLatin1());
    QSvgRenderer renderer(svg);
    if (!renderer.isValid())
        return false;
    ShapeDevice device;
    QPainter painter(&device);
    renderer.render(&painter, QRectF(0, 0, IconSide, IconSide));
    painter.end();
    QFile file(folder + u'/' + QFileInfo(drawing).completeBaseName() + u".icon"_s);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(IconFile::make(device.shapes()));
    return file.flush();
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    for (const QString& drawing : arguments.sliced(2)) {
        if (!makeIcon(drawing, arguments.at(1))) {
            std::fprintf(stderr, "%s can't be made an icon.\n", qPrintable(drawing));
            return 1;
        }
    }
    return 0;
}
