#include "seating/desk_designer.h"

#include "seating/plan_layout.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int LeastGrid = 3;
constexpr int GreatestGrid = 256;
/// A desk is no smaller, in pixels, so that it can be found again.
constexpr int LeastDesk = 8;
/// So far the pointer moves, in pixels, before a press becomes a drag.
constexpr int DragThreshold = 3;

/// The edges that a handle moves, from the upper left corner clockwise.
bool movesLeft(int handle) {
    return handle == 0 || handle >= 6;
}
bool movesTop(int handle) {
    return handle >= 0 && handle <= 2;
}
bool movesRight(int handle) {
    return handle >= 2 && handle <= 4;
}
bool movesBottom(int handle) {
    return handle >= 4 && handle <= 6;
}
constexpr int RightEdge = 3;
constexpr int LowerRight = 4;
constexpr int LowerEdge = 5;

} // namespace

bool DeskDesigner::attach(DeskContainer* container, bool acceptDrop, bool allowEdit,
                          DeskEvents& events) {
    if (!container || m_state != State::Detached)
        return false;
    m_container = container;
    m_events = &events;
    m_acceptsDrop = acceptDrop;
    m_allowsEdit = allowEdit;
    m_state = State::Attached;
    return true;
}

void DeskDesigner::detach() {
    if (m_state == State::Editing)
        endEdit(true);
    m_state = State::Detached;
    m_container = nullptr;
    m_events = nullptr;
    m_selected.reset();
    m_pressed.reset();
}

void DeskDesigner::setGridSize(int pixels) {
    m_gridSize = std::clamp(pixels, LeastGrid, GreatestGrid);
}

void DeskDesigner::setDragEnabled(bool enabled) {
    m_dragEnabled = enabled;
    if (!enabled)
        cancel();
}

const Desk* DeskDesigner::desk(std::optional<qint64> id) const {
    const qsizetype place = m_container && id ? deskPlace(m_container->desks(), *id) : -1;
    return place < 0 ? nullptr : &m_container->desks()[place];
}

/// The one on top, which is the one made last.
const Desk* DeskDesigner::deskAt(QPoint point) const {
    const Desks& desks = m_container->desks();
    const auto found = std::find_if(desks.rbegin(), desks.rend(), [&](const Desk& each) {
        return each.isVisible && each.place.contains(point);
    });
    return found == desks.rend() ? nullptr : &*found;
}

std::optional<std::array<QRect, DeskDesigner::HandleCount>> DeskDesigner::handles() const {
    const Desk* shown = desk(m_selected);
    if (!shown || !m_dragEnabled)
        return std::nullopt;
    const QSize size(HandleSize * m_twipsPerPixel.width(), HandleSize * m_twipsPerPixel.height());
    const QRect& place = shown->place;
    const int left = place.left();
    const int middle = left + place.width() / 2;
    const int right = left + place.width();
    const int top = place.top();
    const int centre = top + place.height() / 2;
    const int bottom = top + place.height();
    const std::array corners{QPoint(left, top),     QPoint(middle, top),   QPoint(right, top),
                             QPoint(right, centre), QPoint(right, bottom), QPoint(middle, bottom),
                             QPoint(left, bottom),  QPoint(left, centre)};
    std::array<QRect, HandleCount> all;
    for (size_t i = 0; i < all.size(); ++i)
        all[i] = {corners[i] - QPoint(size.width() / 2, size.height() / 2), size};
    return all;
}

std::optional<QRect> DeskDesigner::dragFrame() const {
    return isDragging() ? std::optional(m_frame) : std::nullopt;
}

std::optional<int> DeskDesigner::handleAt(QPoint point, int reach) const {
    const auto all = handles();
    for (int handle = 0; all && handle < HandleCount; ++handle) {
        const QRect& place = all->at(static_cast<size_t>(handle));
        if (place.adjusted(-reach, -reach, reach, reach).contains(point))
            return handle;
    }
    return std::nullopt;
}

void DeskDesigner::select(std::optional<qint64> id) {
    if (m_state == State::Detached)
        return;
    if (m_state == State::Editing)
        endEdit(true);
    m_pressed.reset();
    m_selected = desk(id) ? id : std::nullopt;
    rest();
}

void DeskDesigner::rest() {
    m_state = m_selected ? State::Selected : State::Attached;
}

void DeskDesigner::press(QPoint point, int reach) {
    if (m_state == State::Detached)
        return;
    const std::optional<int> handle = handleAt(point, reach);
    if (!handle) {
        const Desk* pressed = deskAt(point);
        select(pressed ? std::optional(pressed->id) : std::nullopt);
    }
    m_handle = handle.value_or(WholeDesk);
    if (m_selected)
        m_pressed = point;
}

void DeskDesigner::move(QPoint point) {
    if (!m_pressed || !m_dragEnabled)
        return;
    const QPoint by = point - *m_pressed;
    if (!isDragging()) {
        const bool isFar = std::abs(by.x()) >= DragThreshold * m_twipsPerPixel.width() ||
                           std::abs(by.y()) >= DragThreshold * m_twipsPerPixel.height();
        if (!isFar || !beginDrag())
            return;
    }
    const QRect& from = desk(m_selected)->place;
    m_frame = m_handle == WholeDesk ? moved(from, by) : sized(from, by);
    tellDrag();
}

void DeskDesigner::release(QPoint point) {
    if (isDragging()) {
        move(point);
        finishDrag();
    }
    m_pressed.reset();
}

void DeskDesigner::cancel() {
    m_pressed.reset();
    if (isDragging())
        rest();
}

/// Whoever hears of it may refuse; the press is then over.
bool DeskDesigner::beginDrag() {
    bool cancel = false;
    m_events->EventBeginDrag(*m_selected, cancel);
    if (cancel) {
        m_pressed.reset();
        return false;
    }
    m_state = m_handle == WholeDesk ? State::Dragging : State::Resizing;
    m_frame = desk(m_selected)->place;
    return true;
}

void DeskDesigner::tellDrag() {
    if (m_state == State::Dragging)
        m_events->EventDragMove(*m_selected, m_frame);
    else
        m_events->EventDragResize(*m_selected, m_frame, m_handle);
}

void DeskDesigner::finishDrag() {
    const QRect place = m_frame;
    bool cancel = false;
    rest();
    m_events->EventStopDrag(*m_selected, place, cancel);
    if (!cancel)
        m_container->setPlace(*m_selected, place);
}

QPoint DeskDesigner::snapped(QPoint point) const {
    if (!m_snaps)
        return point;
    const int across = m_gridSize * m_twipsPerPixel.width();
    const int down = m_gridSize * m_twipsPerPixel.height();
    return {roundedQuotient(point.x(), across) * across, roundedQuotient(point.y(), down) * down};
}

/// No desk leaves the room to the left or upwards, where nobody could reach it any more.
QRect DeskDesigner::moved(const QRect& from, QPoint by) const {
    const QPoint corner = snapped(from.topLeft() + by);
    return {QPoint(std::max(0, corner.x()), std::max(0, corner.y())), from.size()};
}

QRect DeskDesigner::sized(const QRect& from, QPoint by) const {
    const QPoint near = snapped(from.topLeft() + by);
    const QPoint far = snapped(QPoint(from.left() + from.width(), from.top() + from.height()) + by);
    const int leastWidth = LeastDesk * m_twipsPerPixel.width();
    const int leastHeight = LeastDesk * m_twipsPerPixel.height();
    int left = from.left();
    int top = from.top();
    int right = left + from.width();
    int bottom = top + from.height();
    if (movesLeft(m_handle))
        left = std::min(std::max(0, near.x()), right - leastWidth);
    if (movesTop(m_handle))
        top = std::min(std::max(0, near.y()), bottom - leastHeight);
    if (movesRight(m_handle))
        right = std::max(far.x(), left + leastWidth);
    if (movesBottom(m_handle))
        bottom = std::max(far.y(), top + leastHeight);
    return {left, top, right - left, bottom - top};
}

bool DeskDesigner::step(int across, int down) {
    return dragBy(WholeDesk, {across, down});
}

bool DeskDesigner::stretch(int across, int down) {
    const int handle = down == 0 ? RightEdge : across == 0 ? LowerEdge : LowerRight;
    return dragBy(handle, {across, down});
}

bool DeskDesigner::dragBy(int handle, QPoint by) {
    if (m_state != State::Selected || !m_dragEnabled)
        return false;
    m_handle = handle;
    if (!beginDrag())
        return false;
    const QPoint twips(by.x() * m_gridSize * m_twipsPerPixel.width(),
                       by.y() * m_gridSize * m_twipsPerPixel.height());
    const QPoint corner = m_frame.topLeft();
    m_frame = handle == WholeDesk ? moved(m_frame, twips) : sized(m_frame, twips);
    // Only the way of the arrow is snapped.
    if (by.x() == 0)
        m_frame.moveLeft(corner.x());
    if (by.y() == 0)
        m_frame.moveTop(corner.y());
    tellDrag();
    finishDrag();
    return true;
}

bool DeskDesigner::beginEdit() {
    if (m_state != State::Selected || !m_allowsEdit)
        return false;
    bool cancel = false;
    m_events->EventBeforeEdit(*m_selected, cancel);
    if (cancel)
        return false;
    m_pressed.reset();
    m_text = desk(m_selected)->caption;
    m_state = State::Editing;
    return true;
}

void DeskDesigner::endEdit(bool keeps) {
    if (m_state != State::Editing)
        return;
    rest();
    if (!keeps || !desk(m_selected))
        return;
    bool cancel = false;
    m_events->EventAfterEdit(*m_selected, m_text, cancel);
    if (!cancel)
        m_container->setCaption(*m_selected, m_text);
}

bool DeskDesigner::drop(QPoint point, const QString& object) {
    if (m_state == State::Detached || !m_acceptsDrop)
        return false;
    const Desk* target = deskAt(point);
    if (!target)
        return false;
    bool cancel = false;
    m_events->ObjectDrop(target->id, object, cancel);
    return !cancel;
}
