#include "classes/screens/capture_window.h"

#include <QEventLoop>
#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int SmallestDrag = 4; // pixels: less is a click, not a part of the screen

/// A line across the top. It is not there while somebody drags, since it covers what is below.
void paintPrompt(QPainter& painter, const QWidget& window) {
    const QString prompt = u"Click and Drag to select the captured image. "
                           "All images are resized to 67 by 87."_s;
    constexpr int margin = 8;
    const QRect line(0, 0, window.width(), window.fontMetrics().height() + 2 * margin);
    painter.fillRect(line, window.palette().toolTipBase());
    painter.setPen(window.palette().color(QPalette::ToolTipText));
    painter.drawText(line, Qt::AlignCenter, prompt);
}

/// In two colours, one of which stands out from whatever is on the screen.
void paintSelection(QPainter& painter, const QRect& selection) {
    painter.setPen(QPen(Qt::white, 3));
    painter.drawRect(selection);
    painter.setPen(QPen(Qt::black, 1, Qt::DashLine));
    painter.drawRect(selection);
}

} // namespace

CaptureWindow::CaptureWindow(QImage screen) : m_screen(std::move(screen)) {
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

/// Where the picture of the screen stands in the window.
QRect CaptureWindow::place() const {
    QRect place(QPoint(), m_screen.size().scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(rect().center());
    return place;
}

QRect CaptureWindow::selection() const {
    return QRect(m_from, m_to).normalized() & place();
}

/// The selection in the pixels of the picture.
QRect CaptureWindow::selectedPart() const {
    const QRect shown = place();
    const double scale = static_cast<double>(m_screen.width()) / shown.width();
    const QRect part = selection().translated(-shown.topLeft());
    return QRect((QPointF(part.topLeft()) * scale).toPoint(),
                 (QSizeF(part.size()) * scale).toSize()) &
           m_screen.rect();
}

void CaptureWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    painter.drawImage(place(), m_screen);
    if (m_isDragging)
        paintSelection(painter, selection());
    else
        paintPrompt(painter, *this);
}

void CaptureWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_from = m_to = event->position().toPoint();
    m_isDragging = true;
    update();
}

void CaptureWindow::mouseMoveEvent(QMouseEvent* event) {
    m_to = event->position().toPoint();
    update();
}

void CaptureWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (!m_isDragging || event->button() != Qt::LeftButton)
        return;
    m_isDragging = false;
    const QRect part = selection();
    if (part.width() < SmallestDrag || part.height() < SmallestDrag) {
        update();
        return;
    }
    m_captured = m_screen.copy(selectedPart());
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
