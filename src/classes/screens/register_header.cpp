#include "classes/screens/register_header.h"

#include <QPainter>

using namespace Qt::StringLiterals;

RegisterHeader::RegisterHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(true);
}

void RegisterHeader::setCurrentLesson(int section) {
    m_currentLesson = section;
    viewport()->update();
}

/// As high as the longest name of a lesson is wide.
QSize RegisterHeader::sizeHint() const {
    constexpr int margin = 10;
    const int length = fontMetrics().horizontalAdvance(u"00/00/00 000"_s);
    return {QHeaderView::sizeHint().width(), length + margin};
}

void RegisterHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    const bool isCurrent = section == m_currentLesson;
    const auto text = model()->headerData(section, Qt::Horizontal).toString();
    painter->fillRect(rect, isCurrent ? palette().highlight() : palette().button());
    painter->setPen(palette().color(QPalette::Mid));
    painter->drawLine(rect.topRight(), rect.bottomRight());
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    painter->setPen(palette().color(isCurrent ? QPalette::HighlightedText : QPalette::ButtonText));
    if (rect.width() > fontMetrics().horizontalAdvance(text)) {
        painter->drawText(rect, Qt::AlignHCenter | Qt::AlignBottom, text);
        return;
    }
    constexpr int quarterTurn = -90;
    constexpr int margin = 4;
    painter->translate(rect.bottomLeft());
    painter->rotate(quarterTurn);
    painter->drawText(QRect(margin, 0, rect.height() - margin, rect.width()),
                      Qt::AlignLeft | Qt::AlignVCenter, text);
}
