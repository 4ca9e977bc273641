#pragma once

#include <QImage>
#include <QWidget>

class QEventLoop;

/// "CaptureORVAClass": a picture of the whole screen, out of which the person drags a part. It
/// stands above everything, without a border.
class CaptureWindow : public QWidget {
    Q_OBJECT

public:
    /// `screen`: what the screen shows, at its own resolution; it is shown whole, as large as the
    /// window allows. That of a desktop with several screens has another shape than one screen.
    explicit CaptureWindow(QImage screen);

    /// Shows itself and waits; the part that was dragged, null where the person gave it up.
    QImage capture();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QRect place() const;
    QRect selection() const;
    QRect selectedPart() const;

    QImage m_screen;
    QPoint m_from;
    QPoint m_to;
    bool m_isDragging = false;
    QImage m_captured;
    QEventLoop* m_loop = nullptr;
};
