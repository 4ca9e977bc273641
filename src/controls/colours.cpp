#include "controls/colours.h"

#include <QGuiApplication>
#include <QPalette>
#include <QWidget>

namespace {

constexpr quint32 SystemWindow = 0x80000005;
constexpr double ReadableContrast = 4.5;

} // namespace

QColor toColour(qint32 colour) {
    const auto bits = static_cast<quint32>(colour);
    if (bits == SystemWindow)
        return QGuiApplication::palette().color(QPalette::Base);
    return QColor(static_cast<int>(bits & 0xFF), static_cast<int>(bits >> 8 & 0xFF),
                  static_cast<int>(bits >> 16 & 0xFF));
}

qint32 fromColour(const QColor& colour) {
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

QColor textColourOn(const QColor& background, const QColor& wish) {
    if (wish.isValid() && contrast(background, wish) >= ReadableContrast)
        return wish;
    return contrast(background, Qt::black) >= contrast(background, Qt::white) ? Qt::black
                                                                              : Qt::white;
}

void setBackground(QWidget* widget, const QColor& background, const QColor& textWish) {
    const QColor text = textColourOn(background, textWish);
    QPalette palette = widget->palette();
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base})
        palette.setColor(role, background);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
        palette.setColor(role, text);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}
