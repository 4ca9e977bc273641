#include "incidents/screens/title_strip.h"

#include "controls/colours.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

constexpr QColor activeStart(0, 68, 207);
constexpr QColor activeEnd(62, 150, 255);
constexpr int lighterTint = 150; // percent

} // namespace

TitleStrip::TitleStrip(const QWidget& home, bool gradients)
    : m_gradients(gradients), m_title(new QLabel) {
    setObjectName(u"Pt1"_s);
    m_title->setObjectName(u"lbevent"_s);
    m_title->setTextFormat(Qt::PlainText);
    // A long title is cut at the end of the strip and does not widen the window.
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 3, 6, 3);
    layout->addWidget(m_title);
    PaintGradient(false);
    connect(qApp, &QApplication::focusChanged, this, [this, &home](QWidget*, QWidget* now) {
        const bool isActive = now && (now == &home || home.isAncestorOf(now));
        if (isActive != m_isActive)
            PaintGradient(isActive);
    });
}

void TitleStrip::setTitle(const QString& title) {
    m_title->setText(title);
    m_title->setToolTip(title);
}

void TitleStrip::PaintGradient(bool active) {
    const QScopedValueRollback painting(m_isPainting, true);
    m_isActive = active;
    const QColor caption = QApplication::palette().color(QPalette::Inactive, QPalette::Mid);
    m_start = active ? activeStart : caption;
    m_end = active ? activeEnd : caption.lighter(lighterTint);
    setBackground(this, m_start, active ? Qt::white : QColor());
    setAutoFillBackground(!m_gradients);
    update();
}

void TitleStrip::paintEvent(QPaintEvent*) {
    if (!m_gradients)
        return;
    QPainter painter(this);
    QLinearGradient shade(0, 0, width(), 0);
    shade.setColorAt(0, m_start);
    shade.setColorAt(1, m_end);
    painter.fillRect(rect(), shade);
}

void TitleStrip::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_isPainting)
        PaintGradient(m_isActive);
}
