#include "classes/screens/capture_window.h"

#include <QEventLoop>
#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int SmallestDrag = 4; // pixels: less is a click, not a part of the screen

} // namespace

CaptureWindow::CaptureWindow(const QImage& screen) : m_screen(screen) {
    setObjectName(u"CaptureORVAClass"_s);
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setWindowModality(Qt::ApplicationModal);
    setAccessibleName(u"Part of the screen"_s);
    setCursor(Qt::CrossCursor);
}

QImage CaptureWindow::capture() {
    QEventLoop loop;
    m_loop = &loop;
    showFullScreen();
    activateWindow();
    loop.exec();
    m_loop = nullptr;
    return m_captured;
}

QRect CaptureWindow::selection() const {
    return QRect(m_from, m_to).normalized();
}

void CaptureWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawImage(rect(), m_screen);
    const QString prompt = u"Click and Drag to select the captured image. "
                           "All images are resized to 67 by 87."_s;
    constexpr int margin = 8;
    const QRect line(0, 0, width(), fontMetrics().height() + 2 * margin);
    painter.fillRect(line, palette().toolTipBase());
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawText(line, Qt::AlignCenter, prompt);
    if (!m_isDragging)
        return;
    painter.setPen(QPen(Qt::white, 3));
    painter.drawRect(selection());
    painter.setPen(QPen(Qt::black, 1, Qt::DashLine));
    painter.drawRect(selection());
}

void CaptureWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_from = m_to = event->position().toPoint();
    m_isDragging = true;
}

void CaptureWindow::mouseMoveEvent(QMouseEvent* event) {
    m_to = event->position().toPoint();
    update();
}

void CaptureWindow::mouseReleaseEvent(QMouseEvent*) {
    if (!m_isDragging)
        return;
    m_isDragging = false;
    const QRect part = selection();
    if (part.width() < SmallestDrag || part.height() < SmallestDrag) {
        update();
        return;
    }
    const double scale = static_cast<double>(m_screen.width()) / width();
    m_captured = m_screen.copy(
        QRect((QPointF(part.topLeft()) * scale).toPoint(), (QSizeF(part.size()) * scale).toSize()));
    close();
}

void CaptureWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
}

void CaptureWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    if (m_loop)
        m_loop->quit();
}
