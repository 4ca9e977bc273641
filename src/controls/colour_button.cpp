#include "controls/colour_button.h"

#include "controls/colours.h"
#include "core/prompts.h"

#include <QPainter>

ColourButton::ColourButton(const QString& objectName, const QString& caption, Prompts& prompts)
    : QPushButton(caption) {
    setObjectName(objectName);
    connect(this, &QPushButton::clicked, this, [this, &prompts] {
        if (const auto picked = prompts.ChooseColour(m_colour)) {
            setColour(*picked);
            emit chosen();
        }
    });
}

void ColourButton::setColour(qint32 colour) {
    m_colour = colour;
    constexpr int side = 16;
    QPixmap swatch(side, side);
    swatch.fill(toColour(colour));
    QPainter(&swatch).drawRect(0, 0, side - 1, side - 1);
    setIcon(swatch);
    setAccessibleDescription(toColour(colour).name());
}
