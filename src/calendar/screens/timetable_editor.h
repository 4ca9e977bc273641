#pragma once

#include "calendar/timetable.h"

#include <QFrame>

class Prompts;
class QGridLayout;
class QLineEdit;
class QPushButton;

/// `PicX`: the in-place editor of a cell, with the caption, the room and the colour, each reached
/// by the letter that is underlined in its label. Enter ends it with what stands in it, Escape
/// without.
class TimetableEditor : public QFrame {
    Q_OBJECT

public:
    TimetableEditor(Prompts& prompts, QWidget* parent);

    /// Opens over a cell, given by its rectangle in the parent.
    void open(const TimetableCell& cell, const QString& place, const QRect& over);
    CellEdit edit() const;
    /// Takes back what stands in it and hides.
    void reset();

signals:
    void accepted();
    void cancelled();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addBox(QLineEdit& box, const QString& label, QGridLayout& layout);
    void chooseColour();
    void showColour(qint32 colour);

    Prompts& m_prompts;
    QLineEdit* m_caption;
    QLineEdit* m_room;
    QPushButton* m_pickColour;
    qint32 m_colour = NoColourChosen;
};
