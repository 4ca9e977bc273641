#include "settings/screens/setting_controls.h"

#include "controls/colours.h"
#include "controls/fonts.h"
#include "core/prompts.h"

#include <QHBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

QLabel* explanation(const QString& text) {
    auto* label = new QLabel(text);
    label->setWordWrap(true);
    return label;
}

FontSample::FontSample(const QString& objectName, const QString& text, Prompts& prompts)
    : m_sample(new QLabel(text)) {
    m_sample->setObjectName(objectName);
    m_sample->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    m_sample->setMinimumHeight(48);
    m_sample->setAlignment(Qt::AlignCenter);
    setBackground(m_sample, Qt::white);
    auto* button = new QPushButton(u"&Font..."_s);
    button->setObjectName(objectName + u"Font"_s);
    connect(button, &QPushButton::clicked, this, [this, &prompts] {
        if (const auto picked = prompts.ChooseFont(m_font))
            setSample(*picked);
    });
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_sample, 1);
    layout->addWidget(button);
}

void FontSample::setSample(const FontRecord& font) {
    m_font = font;
    m_sample->setFont(toFont(font));
    setBackground(m_sample, Qt::white, toColour(font.colour));
}
