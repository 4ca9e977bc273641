#pragma once

#include "seating/desk_container.h"

#include <array>
#include <optional>

/// Who hears what a person does with the desks. A flag `cancel` that is set keeps it from being
/// done. Places are in twips.
class DeskEvents {
public:
    virtual ~DeskEvents() = default;

    virtual void EventBeginDrag(qint64 /*desk*/, bool& /*cancel*/) {}
    virtual void EventStopDrag(qint64 /*desk*/, const QRect& /*place*/, bool& /*cancel*/) {}
    virtual void EventDragMove(qint64 /*desk*/, const QRect& /*place*/) {}
    virtual void EventDragResize(qint64 /*desk*/, const QRect& /*place*/, int /*handle*/) {}
    virtual void EventBeforeEdit(qint64 /*desk*/, bool& /*cancel*/) {}
    virtual void EventAfterEdit(qint64 /*desk*/, const QString& /*text*/, bool& /*cancel*/) {}
    virtual void ObjectDrop(qint64 /*desk*/, const QString& /*object*/, bool& /*cancel*/) {}
};

/// The designer by which a person selects, moves, sizes and renames desks. It knows no widget: it
/// is told of presses, moves and keys, and says what is to be drawn. Points and places are in
/// twips.
class DeskDesigner {
public:
    enum class State { Detached, Attached, Selected, Dragging, Resizing, Editing };
    static constexpr int HandleCount = 8;
    static constexpr int HandleSize = 7; ///< pixels, each way
    static constexpr int UsualGridSize = 8;

    /// `twipsPerPixel`: across and down.
    explicit DeskDesigner(QSize twipsPerPixel) : m_twipsPerPixel(twipsPerPixel) {}

    /// Begins to work on desks, which have to outlive that, as `events` has to. Answers whether it
    /// does: not without desks, and not where it works already.
    bool attach(DeskContainer* container, bool acceptDrop, bool allowEdit, DeskEvents& events);
    /// Ends it. A caption that is being written is kept first; a drag is given up.
    void detach();

    /// The pitch of the grid in pixels, at least 3 and at most 256.
    void setGridSize(int pixels);
    int gridSize() const { return m_gridSize; }
    void setShowGrid(bool shown) { m_showsGrid = shown; }
    bool ShowGrid() const { return m_showsGrid && m_state != State::Detached; }
    void setSnapToGrid(bool snaps) { m_snaps = snaps; }
    /// Whether desks can be moved and sized. Turned off, a drag is given up.
    void setDragEnabled(bool enabled);

    State state() const { return m_state; }
    bool isDragging() const { return m_state == State::Dragging || m_state == State::Resizing; }
    /// The `ID` of the selected desk.
    std::optional<qint64> selected() const { return m_selected; }
    /// The handles of the selected desk, from its upper left corner clockwise; none where it can't
    /// be moved.
    std::optional<std::array<QRect, HandleCount>> handles() const;
    /// Where the desk that is dragged would come to stand.
    std::optional<QRect> dragFrame() const;

    /// Selects a desk, or none.
    void select(std::optional<qint64> desk);
    /// The pointer is pressed: on a handle, a desk, or beside both. `reach`: so far beside a handle
    /// still counts, for a finger.
    void press(QPoint point, int reach = 0);
    void move(QPoint point);
    void release(QPoint point);
    /// The drag is given up: by Escape, or because the pointer went to another window.
    void cancel();

    /// Moves the selected desk, or its lower right corner, by so many steps of the grid. Answers
    /// whether it may be.
    bool step(int across, int down);
    bool stretch(int across, int down);

    /// Begins to write the caption of the selected desk. Answers whether it may be.
    bool beginEdit();
    /// What stands in the box of the caption now.
    void editText(const QString& text) { m_text = text; }
    /// Ends it: the text becomes the caption, or is given up.
    void endEdit(bool keeps);

    /// Something is dropped on a desk. Answers whether it was taken.
    bool drop(QPoint point, const QString& object);

private:
    /// No handle: the desk as a whole.
    static constexpr int WholeDesk = -1;

    const Desk* desk(std::optional<qint64> id) const;
    const Desk* deskAt(QPoint point) const;
    std::optional<int> handleAt(QPoint point, int reach) const;
    QPoint snapped(QPoint point) const;
    QRect moved(const QRect& from, QPoint by) const;
    QRect sized(const QRect& from, QPoint by) const;
    bool beginDrag();
    void tellDrag();
    void finishDrag();
    bool dragBy(int handle, QPoint by);
    void rest();

    QSize m_twipsPerPixel;
    DeskContainer* m_container = nullptr;
    DeskEvents* m_events = nullptr;
    bool m_acceptsDrop = false;
    bool m_allowsEdit = false;
    bool m_dragEnabled = true;
    bool m_showsGrid = false;
    bool m_snaps = true;
    int m_gridSize = UsualGridSize;
    State m_state = State::Detached;
    std::optional<qint64> m_selected;
    std::optional<QPoint> m_pressed; ///< as long as the pointer is down on the selected desk
    int m_handle = WholeDesk;        ///< by which it is dragged
    QRect m_frame;
    QString m_text;
};
