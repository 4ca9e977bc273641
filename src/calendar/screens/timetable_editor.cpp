#include "calendar/screens/timetable_editor.h"

#include "controls/colours.h"
#include "controls/icons.h"
#include "core/prompts.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

TimetableEditor::TimetableEditor(Prompts& prompts, QWidget* parent)
    : QFrame(parent)
    , m_prompts(prompts)
    , m_caption(new QLineEdit(this))
    , m_room(new QLineEdit(this))
    , m_pickColour(new QPushButton(u"Co&lour..."_s, this)) {
    setObjectName(u"PicX"_s);
    setFrameShape(QFrame::Box);
    m_caption->setObjectName(u"Tx1"_s);
    m_caption->setToolTip(u"Enter a discription for this period"_s);
    m_room->setObjectName(u"tx2"_s);
    m_room->setToolTip(u"Enter a room discription for this period"_s);
    m_pickColour->setObjectName(u"cmdCol"_s);
    m_pickColour->setIcon(icon(u"colour"_s));
    m_pickColour->setAutoDefault(true); // Enter presses it
    connect(m_pickColour, &QPushButton::clicked, this, &TimetableEditor::chooseColour);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(3);
    addBox(*m_caption, u"&Caption:"_s, *layout);
    addBox(*m_room, u"&Room:"_s, *layout);
    layout->addWidget(m_pickColour, layout->rowCount(), 1, Qt::AlignLeft);
    reset();
}

void TimetableEditor::addBox(QLineEdit& box, const QString& text, QGridLayout& layout) {
    box.setMaxLength(LongestCaption);
    connect(&box, &QLineEdit::returnPressed, this, &TimetableEditor::accepted);
    auto* label = new QLabel(text, this);
    label->setBuddy(&box);
    const int row = layout.rowCount();
    layout.addWidget(label, row, 0);
    layout.addWidget(&box, row, 1);
}

void TimetableEditor::open(const TimetableCell& cell, const QString& place, const QRect& over) {
    m_caption->setAccessibleName(u"Caption, %1"_s.arg(place));
    m_room->setAccessibleName(u"Room, %1"_s.arg(place));
    m_pickColour->setAccessibleName(u"Colour, %1"_s.arg(place));
    m_caption->setText(cell.caption);
    m_room->setText(cell.room);
    showColour(cell.colour);
    QRect frame = over;
    frame.setSize(over.size().expandedTo(minimumSizeHint()));
    const QRect area = parentWidget()->rect();
    frame.moveLeft(std::max(0, std::min(frame.left(), area.right() + 1 - frame.width())));
    frame.moveTop(std::max(0, std::min(frame.top(), area.bottom() + 1 - frame.height())));
    setGeometry(frame);
    show();
    raise();
    m_caption->setFocus();
    m_caption->selectAll();
}

CellEdit TimetableEditor::edit() const {
    return {m_caption->text(), m_colour, m_room->text()};
}

void TimetableEditor::reset() {
    hide();
    m_caption->clear();
    m_room->clear();
    showColour(NoColourChosen);
}

void TimetableEditor::chooseColour() {
    if (const std::optional<qint32> colour = m_prompts.ChooseColour(m_colour))
        showColour(*colour);
}

/// The room keeps the usual background.
void TimetableEditor::showColour(qint32 colour) {
    m_colour = colour;
    const QColor background = toColour(colour);
    setBackground(this, background);
    setBackground(m_caption, background);
    setBackground(m_room, QGuiApplication::palette().color(QPalette::Base));
}

void TimetableEditor::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        emit cancelled();
    else if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QFrame::keyPressEvent(event);
}
