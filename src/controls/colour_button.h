#pragma once

#include <QPushButton>

class Prompts;

/// Shows a colour, and lets the person choose another one.
class ColourButton : public QPushButton {
    Q_OBJECT

public:
    ColourButton(const QString& objectName, const QString& caption, Prompts& prompts);

    qint32 colour() const { return m_colour; }
    void setColour(qint32 colour);

signals:
    void chosen();

private:
    qint32 m_colour = 0;
};
