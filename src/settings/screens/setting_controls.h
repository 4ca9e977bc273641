#pragma once

#include "core/font_record.h"

#include <QLabel>

class Prompts;

/// The small controls that several pages of the settings have.

/// A label of several lines that explains a page.
QLabel* explanation(const QString& text);

/// A sample of a font, with the button that chooses another one. The sample stands for the setting.
class FontSample : public QWidget {
    Q_OBJECT

public:
    FontSample(const QString& objectName, const QString& text, Prompts& prompts);

    const FontRecord& font() const { return m_font; }
    void setSample(const FontRecord& font);

private:
    FontRecord m_font;
    QLabel* m_sample;
};
