#pragma once

#include "seating/desk_designer.h"
#include "seating/screens/desk_box.h"

#include <QImage>

#include <array>
#include <span>
#include <vector>

class PlanEditor;
class QHelpEvent;
class QPlainTextEdit;
class QRubberBand;

/// The classroom as a person sees it: draws what the editor and the designer say, and passes the
/// pointer and the keys on to the designer.
///
/// Tab goes from desk to desk, the arrow keys move the selected one a step of the grid, with Shift
/// they size it. Enter and F2, or a double click, write its caption. Escape gives up a drag or the
/// selection.
class DeskCanvas : public QWidget {
    Q_OBJECT

public:
    /// `events` hears what is done with the desks; all have to outlive the canvas.
    DeskCanvas(PlanEditor& editor, DeskEvents& events, QSize twipsPerPixel);

    /// -1: the designer begins to work on the desks, with a grid of 8 pixels that is not shown; 0:
    /// desks can't be dragged any more.
    void SetDragging(int mode);
    /// The designer lets go of the desks.
    void detach();
    void setDragEnabled(bool enabled);
    void setShowGrid(bool shown);

    void setLook(const DeskLook& look, const QColor& classroom);
    /// Marks the desk of a pupil, or none.
    void mark(std::optional<qint64> pupil);

    std::optional<qint64> selected() const { return m_designer.selected(); }
    void select(std::optional<qint64> desk);
    /// The classroom as it stands there, sharp on this screen.
    QImage picture();
    /// The canvas grows with the desks that stand beyond what is shown of it.
    QSize minimumSizeHint() const override { return m_needed; }

signals:
    void selectionChanged();
    /// A desk shall be seen: it was selected.
    void shown(QWidget* desk);
    void deleteWanted();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void showDesks();
    void makeBoxes(size_t count);
    std::span<DeskBox* const> shownBoxes() const { return {m_boxes.data(), m_shownCount}; }
    void showDesigner();
    void showEditor();
    void hearSelection();
    void enter(const DeskBox& box);
    DeskBox* boxOf(std::optional<qint64> desk) const;
    QRect pixels(const QRect& twips) const;
    QPoint twips(QPointF pixels) const;
    bool arrowKey(const QKeyEvent& event);
    void showTip(const QHelpEvent& event);

    PlanEditor& m_editor;
    DeskEvents& m_events;
    QSize m_twipsPerPixel;
    DeskDesigner m_designer;
    DeskLook m_look;
    QColor m_classroom;
    std::vector<DeskBox*> m_boxes; ///< in the order of the desks; then some that wait for more
    size_t m_shownCount = 0;
    std::array<QWidget*, DeskDesigner::HandleCount> m_handles{};
    QRubberBand* m_frame;
    QPlainTextEdit* m_text; ///< over the desk whose caption is written
    std::optional<qint64> m_marked;
    std::optional<qint64> m_heard; ///< the selection that was told last
    QSize m_needed;
};
