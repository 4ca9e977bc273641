#include "calendar/screens/timetable_editor.h"

#include "controls/colours.h"
#include "controls/icons.h"
#include "core/prompts.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

TimetableEditor::TimetableEditor(Prompts& prompts, QWidget* parent)
    : QFrame(parent)
    , m_prompts(prompts)
    , m_caption(new QLineEdit(this))
    , m_room(new QLineEdit(this))
    , m_pickColour(new QToolButton(this)) {
    setObjectName(u"PicX"_s);
    setFrameShape(QFrame::Box);
    m_caption->setObjectName(u"Tx1"_s);
    m_caption->setToolTip(u"Enter a discription for this period"_s);
    m_room->setObjectName(u"tx2"_s);
    m_room->setToolTip(u"Enter a room discription for this period"_s);
    m_pickColour->setObjectName(u"cmdCol"_s);
    m_pickColour->setToolTip(u"Colour"_s);
    m_pickColour->setFocusPolicy(Qt::StrongFocus);
    for (QLineEdit* box : {m_caption, m_room}) {
        box->setMaxLength(LongestCaption);
        connect(box, &QLineEdit::returnPressed, this, &TimetableEditor::accepted);
    }
    connect(m_pickColour, &QToolButton::clicked, this, &TimetableEditor::chooseColour);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    layout->addWidget(m_caption, 0, 0, 1, 2);
    layout->addWidget(m_room, 1, 0);
    layout->addWidget(m_pickColour, 1, 1);
    reset();
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
    QPixmap picture(m_pickColour->iconSize() * devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paintIcon(painter, picture.rect(), u"colour"_s, textColourOn(background));
    painter.end();
    m_pickColour->setIcon(QIcon(picture));
    m_pickColour->setAutoRaise(true);
}

void TimetableEditor::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        emit cancelled();
    else if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QFrame::keyPressEvent(event);
}
