#include "controls/family_style.h"

#include "controls/colours.h"
#include "controls/icons.h"

#include <QIconEngine>
#include <QMdiSubWindow>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>

#include <functional>
#include <optional>
#include <utility>

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

/// An icon that is made when it is first drawn, and so never for most menus.
class LateIcon : public QIconEngine {
public:
    explicit LateIcon(std::function<QIcon()> make) : m_make(std::move(make)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        made().paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return made().pixmap(size, 1, mode, state);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override {
        return made().pixmap(size / scale, scale, mode, state);
    }
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return made().actualSize(size, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
        return made().availableSizes(mode, state);
    }
    QIconEngine* clone() const override { return new LateIcon(*this); }

private:
    const QIcon& made() {
        if (!m_icon)
            m_icon = m_make();
        return *m_icon;
    }

    std::function<QIcon()> m_make;
    std::optional<QIcon> m_icon;
};

/// What the menus of windows inside the main window show.
bool isOfWindowMenu(QStyle::StandardPixmap icon) {
    switch (icon) {
    case QStyle::SP_TitleBarNormalButton:
    case QStyle::SP_TitleBarMinButton:
    case QStyle::SP_TitleBarMaxButton:
    case QStyle::SP_TitleBarCloseButton:
        return true;
    default:
        return false;
    }
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
    if (isOfWindowMenu(standardIcon) && qobject_cast<const QMdiSubWindow*>(widget))
        return QIcon(new LateIcon([style = QPointer<const FamilyStyle>(this), standardIcon] {
            return style ? style->QProxyStyle::standardIcon(standardIcon) : QIcon();
        }));
    return QProxyStyle::standardIcon(standardIcon, option, widget);
}
