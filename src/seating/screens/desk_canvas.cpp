#include "seating/screens/desk_canvas.h"

#include "controls/colours.h"
#include "seating/desk_seats.h"
#include "seating/plan_editor.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPointingDevice>
#include <QRubberBand>
#include <QSignalBlocker>
#include <QToolTip>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// So far beside a handle a finger still meets it, in pixels.
constexpr int FingerReach = 10;

/// A point of the grid in its upper left corner, to be laid side by side.
QPixmap gridPattern(int pitch, const QColor& ground, qreal ratio) {
    QPixmap pattern(QSize(pitch, pitch) * ratio);
    pattern.setDevicePixelRatio(ratio);
    pattern.fill(ground);
    QPainter painter(&pattern);
    painter.fillRect(0, 0, 1, 1, textColourOn(ground));
    return pattern;
}

} // namespace

DeskCanvas::DeskCanvas(PlanEditor& editor, DeskEvents& events, QSize twipsPerPixel)
    : m_editor(editor)
    , m_events(events)
    , m_twipsPerPixel(twipsPerPixel)
    , m_designer(twipsPerPixel)
    , m_frame(new QRubberBand(QRubberBand::Rectangle, this))
    , m_text(new QPlainTextEdit(this)) {
    setObjectName(u"PicPlan"_s);
    setAccessibleName(u"Classroom"_s);
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    for (QWidget*& handle : m_handles) {
        handle = new QWidget(this);
        handle->setObjectName(u"GrabBox"_s);
        handle->setAttribute(Qt::WA_TransparentForMouseEvents);
        handle->setAutoFillBackground(true);
        handle->setBackgroundRole(QPalette::Highlight);
        handle->hide();
    }
    m_text->setObjectName(u"DeskCaption"_s);
    m_text->setAccessibleName(u"Caption of the desk"_s);
    m_text->setTabChangesFocus(true);
    m_text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_text->installEventFilter(this);
    m_text->hide();
    connect(m_text, &QPlainTextEdit::textChanged, this, [this] {
        m_designer.editText(
            m_text->toPlainText().replace(u'\n', u"\r\n"_s).left(LongestDeskCaption));
    });
    connect(&editor, &PlanEditor::desksChanged, this, &DeskCanvas::showDesks);
}

void DeskCanvas::SetDragging(int mode) {
    if (mode != -1)
        return setDragEnabled(false);
    m_designer.attach(&m_editor, false, true, m_events);
    m_designer.setGridSize(DeskDesigner::UsualGridSize);
    setShowGrid(false);
    m_designer.setSnapToGrid(true);
    setDragEnabled(true);
}

void DeskCanvas::detach() {
    const bool hadGrid = m_designer.ShowGrid();
    m_designer.detach();
    if (hadGrid)
        update();
    hearSelection();
}

void DeskCanvas::setDragEnabled(bool enabled) {
    m_designer.setDragEnabled(enabled);
    showDesigner();
}

void DeskCanvas::setShowGrid(bool shown) {
    const bool wasShown = m_designer.ShowGrid();
    m_designer.setShowGrid(shown);
    if (m_designer.ShowGrid() != wasShown)
        update();
}

void DeskCanvas::setLook(const DeskLook& look, const QColor& classroom) {
    m_look = look;
    m_classroom = classroom;
    for (DeskBox* box : m_boxes)
        box->setLook(look);
    update();
}

void DeskCanvas::mark(std::optional<qint64> pupil) {
    if (m_marked == pupil)
        return;
    m_marked = pupil;
    for (DeskBox* box : shownBoxes())
        box->setMarked(m_marked == box->desk().id);
}

QRect DeskCanvas::pixels(const QRect& twips) const {
    const auto across = [this](int value) {
        return qRound(static_cast<double>(value) / m_twipsPerPixel.width());
    };
    const auto down = [this](int value) {
        return qRound(static_cast<double>(value) / m_twipsPerPixel.height());
    };
    return {across(twips.left()), down(twips.top()), across(twips.width()), down(twips.height())};
}

QPoint DeskCanvas::twips(QPointF pixels) const {
    return {static_cast<int>(std::floor(pixels.x() * m_twipsPerPixel.width())),
            static_cast<int>(std::floor(pixels.y() * m_twipsPerPixel.height()))};
}

/// A desk made later comes behind the others for Tab, wherever it was made. Boxes that are not
/// needed any more wait for the next plan without what they said, in their old order.
void DeskCanvas::makeBoxes(size_t count) {
    for (size_t i = count; i < m_shownCount; ++i) {
        if (m_boxes[i]->hasFocus())
            setFocus(); // or the keyboard would walk through the boxes that go
        m_boxes[i]->hide();
        m_boxes[i]->setDesk({}, {});
    }
    while (m_boxes.size() < count) {
        auto* box = new DeskBox(this);
        box->setLook(m_look);
        setTabOrder(m_boxes.empty() ? static_cast<QWidget*>(this) : m_boxes.back(), box);
        connect(box, &DeskBox::entered, this, [this, box] { enter(*box); });
        m_boxes.push_back(box);
    }
    m_shownCount = count;
}

void DeskCanvas::showDesks() {
    const Desks& desks = m_editor.desks();
    const QStringList spoken = spokenDesks(desks);
    makeBoxes(static_cast<size_t>(desks.size()));
    QSize needed;
    for (size_t i = 0; i < m_shownCount; ++i) {
        const Desk& desk = desks[static_cast<qsizetype>(i)];
        const QRect place = pixels(desk.place);
        m_boxes[i]->setDesk(desk, spoken[static_cast<qsizetype>(i)]);
        m_boxes[i]->setMarked(m_marked == desk.id);
        m_boxes[i]->setGeometry(place);
        m_boxes[i]->setVisible(desk.isVisible);
        if (desk.isVisible)
            needed =
                needed.expandedTo({place.left() + place.width(), place.top() + place.height()});
    }
    if (needed != m_needed) {
        m_needed = needed;
        updateGeometry();
    }
    if (m_designer.selected() && !boxOf(m_designer.selected()))
        m_designer.select(std::nullopt);
    hearSelection();
}

DeskBox* DeskCanvas::boxOf(std::optional<qint64> desk) const {
    const std::span<DeskBox* const> boxes = shownBoxes();
    const auto found = std::find_if(boxes.begin(), boxes.end(),
                                    [desk](const DeskBox* box) { return desk == box->desk().id; });
    return found == boxes.end() ? nullptr : *found;
}

/// The handles and the frame stand above all desks.
void DeskCanvas::showDesigner() {
    const auto handles =
        m_designer.isDragging() || m_designer.state() == DeskDesigner::State::Editing
            ? std::nullopt
            : m_designer.handles();
    for (size_t i = 0; i < m_handles.size(); ++i) {
        if (handles) {
            QRect place(QPoint(), QSize(DeskDesigner::HandleSize, DeskDesigner::HandleSize));
            place.moveCenter(pixels(handles->at(i)).center());
            m_handles[i]->setGeometry(place);
            m_handles[i]->raise();
        }
        m_handles[i]->setVisible(handles.has_value());
    }
    if (const std::optional<QRect> frame = m_designer.dragFrame()) {
        m_frame->setGeometry(pixels(*frame));
        m_frame->raise();
    }
    m_frame->setVisible(m_designer.isDragging());
    showEditor();
}

void DeskCanvas::showEditor() {
    const bool isEditing = m_designer.state() == DeskDesigner::State::Editing;
    if (isEditing == m_text->isVisible())
        return;
    DeskBox* box = boxOf(m_designer.selected());
    if (!isEditing) {
        const bool hadFocus = m_text->hasFocus();
        m_text->hide();
        if (hadFocus && box)
            box->setFocus();
        return;
    }
    const QSignalBlocker quiet(m_text);
    m_text->setFont(m_look.font);
    m_text->setPlainText(QString(box->desk().caption).remove(u'\r'));
    m_text->setGeometry(box->geometry().adjusted(-4, -4, 4, 4));
    m_text->raise();
    m_text->show();
    m_text->selectAll();
    m_text->setFocus();
}

void DeskCanvas::hearSelection() {
    showDesigner();
    if (m_heard == m_designer.selected())
        return;
    m_heard = m_designer.selected();
    emit selectionChanged();
    if (DeskBox* box = boxOf(m_heard))
        emit shown(box);
}

void DeskCanvas::enter(const DeskBox& box) {
    if (m_designer.selected() != box.desk().id)
        m_designer.select(box.desk().id);
    hearSelection();
}

void DeskCanvas::select(std::optional<qint64> desk) {
    m_designer.select(desk);
    if (DeskBox* box = boxOf(m_designer.selected()))
        box->setFocus();
    hearSelection();
}

QImage DeskCanvas::picture() {
    const auto setPlain = [this](bool plain) {
        for (DeskBox* box : shownBoxes())
            box->setPlain(plain);
    };
    for (QWidget* handle : m_handles)
        handle->hide();
    setPlain(true);
    const QImage taken = grab().toImage();
    setPlain(false);
    showDesigner();
    return taken;
}

bool DeskCanvas::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::ToolTip:
        showTip(*static_cast<QHelpEvent*>(event));
        return true;
    case QEvent::UngrabMouse:
    case QEvent::WindowDeactivate:
        m_designer.cancel();
        showDesigner();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void DeskCanvas::showTip(const QHelpEvent& event) {
    const std::span<DeskBox* const> boxes = shownBoxes();
    const auto under = std::find_if(boxes.rbegin(), boxes.rend(), [&](const DeskBox* box) {
        return box->isVisible() && box->geometry().contains(event.pos());
    });
    if (under == boxes.rend())
        QToolTip::hideText();
    else
        QToolTip::showText(event.globalPos(), StripCLF((*under)->desk().caption), this,
                           (*under)->geometry());
}

/// Enter ends the writing of a caption, with Shift it is a new line; so do Escape, which keeps
/// nothing, and leaving the box.
bool DeskCanvas::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_text)
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut) {
        m_designer.endEdit(true);
        showDesigner();
        return false;
    }
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isEnter = (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
                         key->modifiers() != Qt::ShiftModifier;
    if (!isEnter && key->key() != Qt::Key_Escape)
        return false;
    m_designer.endEdit(isEnter);
    showDesigner();
    return true;
}

void DeskCanvas::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (m_designer.ShowGrid())
        painter.fillRect(event->rect(), QBrush(gridPattern(m_designer.gridSize(), m_classroom,
                                                           devicePixelRatio())));
    else
        painter.fillRect(event->rect(), m_classroom);
}

void DeskCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const bool isFinger = event->pointingDevice() &&
                          event->pointingDevice()->type() == QInputDevice::DeviceType::TouchScreen;
    m_designer.press(twips(event->position()),
                     isFinger ? FingerReach * m_twipsPerPixel.width() : 0);
    if (DeskBox* box = boxOf(m_designer.selected()))
        box->setFocus(Qt::MouseFocusReason);
    hearSelection();
}

void DeskCanvas::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton))
        return;
    m_designer.move(twips(event->position()));
    showDesigner();
}

void DeskCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_designer.release(twips(event->position()));
    showDesigner();
}

void DeskCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
    if (event->button() == Qt::LeftButton && m_designer.beginEdit())
        showDesigner();
}

void DeskCanvas::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        if (m_designer.isDragging())
            m_designer.cancel();
        else
            m_designer.select(std::nullopt);
        return hearSelection();
    case Qt::Key_Delete:
        return emit deleteWanted();
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        if (m_designer.beginEdit())
            showDesigner();
        return;
    default:
        if (!arrowKey(*event))
            QWidget::keyPressEvent(event);
    }
}

bool DeskCanvas::arrowKey(const QKeyEvent& event) {
    int across = 0;
    int down = 0;
    switch (event.key()) {
    case Qt::Key_Left:
        across = -1;
        break;
    case Qt::Key_Right:
        across = 1;
        break;
    case Qt::Key_Up:
        down = -1;
        break;
    case Qt::Key_Down:
        down = 1;
        break;
    default:
        return false;
    }
    if (event.modifiers() & Qt::ShiftModifier)
        m_designer.stretch(across, down);
    else
        m_designer.step(across, down);
    if (DeskBox* box = boxOf(m_designer.selected()))
        emit shown(box);
    return true;
}

void DeskCanvas::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_designer.cancel();
}
