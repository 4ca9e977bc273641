#include "controls/family_style.h"

#include "controls/colours.h"
#include "controls/icons.h"

#include <QPainter>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace {

constexpr double ReadableTitle = 4.5;

/// The colours of a title bar on which the text that Fusion writes there reads.
QPalette titlePalette(QPalette palette, bool isActive) {
    const QPalette::ColorRole ground = isActive ? QPalette::Highlight : QPalette::Window;
    QColor colour = palette.color(ground);
    const QColor text = isActive ? Qt::white : Qt::black;
    constexpr int step = 105; // percent
    while (contrast(colour, text) < ReadableTitle) {
        if (isActive)
            colour = colour.darker(step);
        else
            colour.setHsv(colour.hsvHue(), colour.hsvSaturation() / 2, colour.value() + 8);
    }
    palette.setColor(ground, colour);
    return palette;
}

} // namespace

bool FamilyStyle::isFusion() const {
    return baseStyle()->name() == u"fusion";
}

void FamilyStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    constexpr int fainter = 160; // of 255
    QColor text = palette.color(QPalette::Text);
    text.setAlpha(fainter);
    palette.setColor(QPalette::PlaceholderText, text);
}

int FamilyStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* returned) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons && isFusion())
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

void FamilyStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (element == CE_ToolBar && isFusion()) // its shading takes longer than all the rest of a bar
        return painter->fillRect(option->rect, option->palette.window());
    const auto* item =
        element == CE_MenuItem ? qstyleoption_cast<const QStyleOptionMenuItem*>(option) : nullptr;
    if (!item || item->icon.isNull() || !(item->state & State_Selected) ||
        !(item->state & State_Enabled) || !isFusion())
        return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionMenuItem readable = *item;
    const int side = pixelMetric(PM_SmallIconSize, option, widget);
    readable.icon = QIcon(item->icon.pixmap(
        QSize(side, side), painter->device()->devicePixelRatioF(), QIcon::Selected));
    QProxyStyle::drawControl(element, &readable, painter, widget);
}

void FamilyStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const {
    if (control == CC_ScrollBar && isFusion())
        return drawScrollBar(option, painter, widget);
    const auto* bar =
        control == CC_TitleBar ? qstyleoption_cast<const QStyleOptionTitleBar*>(option) : nullptr;
    if (!bar || !isFusion())
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    QStyleOptionTitleBar readable = *bar;
    readable.palette = titlePalette(bar->palette, bar->titleBarState & State_Active);
    QProxyStyle::drawComplexControl(control, &readable, painter, widget);
}

/// In bands: for the shading of a longer one the toolkit starts threads.
void FamilyStyle::drawScrollBar(const QStyleOptionComplex* option, QPainter* painter,
                                const QWidget* widget) const {
    constexpr int bandHeight = 64;
    const QRect& whole = option->rect;
    for (int top = whole.top(); top <= whole.bottom(); top += bandHeight) {
        painter->save();
        painter->setClipRect(QRect(whole.left(), top, whole.width(), bandHeight),
                             Qt::IntersectClip);
        QProxyStyle::drawComplexControl(CC_ScrollBar, option, painter, widget);
        painter->restore();
    }
}

QIcon FamilyStyle::standardIcon(StandardPixmap standardIcon, const QStyleOption* option,
                                const QWidget* widget) const {
    if (standardIcon == SP_ToolBarHorizontalExtensionButton)
        return icon(u"next"_s);
    if (standardIcon == SP_ToolBarVerticalExtensionButton)
        return icon(u"down"_s);
    return QProxyStyle::standardIcon(standardIcon, option, widget);
}
