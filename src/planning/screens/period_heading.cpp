#include "planning/screens/period_heading.h"

#include "controls/colours.h"

#include <QContextMenuEvent>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

PeriodHeading::PeriodHeading(int period, QWidget* parent)
    : QLabel(QString::number(period), parent) {
    setObjectName(u"Label1(%1)"_s.arg(period - 1));
    setAccessibleName(u"Period %1"_s.arg(period));
    setToolTip(u"Double click for lesson properties, Right click for options.."_s);
    setAlignment(Qt::AlignCenter);
    setFrameStyle(QFrame::Panel | QFrame::Raised);
    setAutoFillBackground(true);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    setSelected(false);
}

void PeriodHeading::setSelected(bool selected) {
    QPalette readable = palette();
    readable.setColor(QPalette::HighlightedText,
                      textColourOn(readable.color(QPalette::Highlight),
                                   readable.color(QPalette::HighlightedText)));
    setPalette(readable);
    setBackgroundRole(selected ? QPalette::Highlight : QPalette::Button);
    setForegroundRole(selected ? QPalette::HighlightedText : QPalette::ButtonText);
}

void PeriodHeading::mousePressEvent(QMouseEvent* event) {
    event->accept();
    emit pressed();
}

void PeriodHeading::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit doubleClicked();
    else
        mousePressEvent(event);
}

void PeriodHeading::contextMenuEvent(QContextMenuEvent* event) {
    emit menuWanted(event->globalPos());
}
