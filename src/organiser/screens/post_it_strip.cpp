#include "organiser/screens/post_it_strip.h"

#include "controls/colours.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

/// A glyph of a few lines on the title's own colour.
class GlyphButton : public QAbstractButton {
public:
    GlyphButton(const QString& objectName, const QString& name, QList<QLineF> lines,
                QWidget* parent)
        : QAbstractButton(parent), m_lines(std::move(lines)) {
        constexpr int side = 18;
        setObjectName(objectName);
        setFixedSize(side, side);
        setFocusPolicy(Qt::NoFocus);
        setWords(name);
    }

    void setWords(const QString& name) {
        if (name == accessibleName())
            return;
        setAccessibleName(name);
        setToolTip(name);
    }
    void setLines(const QList<QLineF>& lines) {
        m_lines = lines;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (underMouse()) {
            QColor wash = palette().color(QPalette::WindowText);
            wash.setAlpha(isDown() ? 90 : 40); // of 255
            painter.fillRect(rect(), wash);
        }
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::WindowText), 1.6));
        painter.drawLines(m_lines);
    }
    void enterEvent(QEnterEvent* event) override {
        QAbstractButton::enterEvent(event);
        update();
    }
    void leaveEvent(QEvent* event) override {
        QAbstractButton::leaveEvent(event);
        update();
    }

private:
    QList<QLineF> m_lines;
};

const QList<QLineF> crossLines{{5, 5, 13, 13}, {13, 5, 5, 13}};
const QList<QLineF> upLines{{5, 11, 9, 7}, {9, 7, 13, 11}};
const QList<QLineF> downLines{{5, 7, 9, 11}, {9, 11, 13, 7}};

} // namespace

PostItStrip::PostItStrip(const QColor& colour, bool gradients, QWidget* parent)
    : QWidget(parent), m_colour(colour), m_gradients(gradients) {
    setBackground(this, colour); // before it has parts, which would all be told
    setAutoFillBackground(false);
    m_shrink = new GlyphButton(u"Shrink"_s, u"Shrink the note"_s, upLines, this);
    m_close = new GlyphButton(u"Close"_s, u"Close the note"_s, crossLines, this);
    setObjectName(u"Picture1"_s);
    setAccessibleName(u"Title of the post-it note"_s);
    setAccessibleDescription(
        u"The arrow keys move the note, Enter shrinks it, Ctrl and W closes it."_s);
    setFocusPolicy(Qt::StrongFocus);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 1, 2, 1);
    layout->setSpacing(2);
    layout->addWidget(new QLabel(u"Post-it"_s), 1);
    layout->addWidget(m_shrink);
    layout->addWidget(m_close);
    connect(m_shrink, &QAbstractButton::clicked, this, &PostItStrip::shrinkWanted);
    connect(m_close, &QAbstractButton::clicked, this, &PostItStrip::closeWanted);
}

void PostItStrip::setShrunk(bool isShrunk) {
    auto* glyph = static_cast<GlyphButton*>(m_shrink);
    glyph->setLines(isShrunk ? downLines : upLines);
    glyph->setWords(isShrunk ? u"Show the whole note"_s : u"Shrink the note"_s);
}

void PostItStrip::paintEvent(QPaintEvent*) {
    constexpr int toWhite = 70; // percent
    const auto tint = [](int part) { return part + (255 - part) * toWhite / 100; };
    QPainter painter(this);
    if (m_gradients) {
        QLinearGradient shade(0, 0, width(), 0);
        shade.setColorAt(
            0, QColor(tint(m_colour.red()), tint(m_colour.green()), tint(m_colour.blue())));
        shade.setColorAt(1, m_colour);
        painter.fillRect(rect(), shade);
    } else {
        painter.fillRect(rect(), m_colour);
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::WindowText), 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(1, 1, -2, -2));
    }
}

/// The desktop moves the window as it moves all others; where it can't, the pointer does.
void PostItStrip::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_grip = window()->pos() - event->globalPosition().toPoint();
    QWindow* handle = window()->windowHandle();
    if (handle && handle->startSystemMove())
        m_grip = {};
}

void PostItStrip::mouseMoveEvent(QMouseEvent* event) {
    if ((event->buttons() & Qt::LeftButton) && !m_grip.isNull())
        window()->move(event->globalPosition().toPoint() + m_grip);
}

void PostItStrip::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit shrinkWanted();
}

void PostItStrip::keyPressEvent(QKeyEvent* event) {
    constexpr int coarse = 10; // pixels
    const int step = event->modifiers() & Qt::ControlModifier ? 1 : coarse;
    const QPoint place = window()->pos();
    switch (event->key()) {
    case Qt::Key_Left:
        return window()->move(place - QPoint(step, 0));
    case Qt::Key_Right:
        return window()->move(place + QPoint(step, 0));
    case Qt::Key_Up:
        return window()->move(place - QPoint(0, step));
    case Qt::Key_Down:
        return window()->move(place + QPoint(0, step));
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return emit shrinkWanted();
    default:
        QWidget::keyPressEvent(event);
    }
}

void PostItStrip::contextMenuEvent(QContextMenuEvent* event) {
    emit menuWanted(event->reason() == QContextMenuEvent::Mouse ? event->globalPos()
                                                                : mapToGlobal(rect().bottomLeft()));
}

void PostItStrip::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void PostItStrip::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}
