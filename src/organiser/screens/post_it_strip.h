#pragma once

#include <QColor>
#include <QWidget>

class QAbstractButton;

/// The title of a post-it note, which moves its window: by a drag, and by the arrow keys while it
/// has the focus, when Enter shrinks the note. Its menu comes by a right click or the menu key.
class PostItStrip : public QWidget {
    Q_OBJECT

public:
    PostItStrip(const QColor& colour, bool gradients, QWidget* parent);

    /// What the glyph of shrinking shows.
    void setShrunk(bool isShrunk);

signals:
    void shrinkWanted();
    void closeWanted();
    void menuWanted(const QPoint& place); ///< of the screen

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    const QColor m_colour;
    const bool m_gradients;
    QPoint m_grip; ///< of the window's place from the pointer, where the desktop does not move it
    QAbstractButton* m_shrink = nullptr;
    QAbstractButton* m_close = nullptr;
};
