#include "frame/toolbar_side.h"

ToolbarSide toolbarSide(qint32 alignment) {
    const bool isSide = alignment >= static_cast<qint32>(ToolbarSide::Left) &&
                        alignment <= static_cast<qint32>(ToolbarSide::Bottom);
    return isSide ? static_cast<ToolbarSide>(alignment) : ToolbarSide::Left;
}

QPoint popupPlace(ToolbarSide side, const QRect& button, QSize popup) {
    const int middleX = button.x() + (button.width() - popup.width()) / 2;
    const int middleY = button.y() + (button.height() - popup.height()) / 2;
    switch (side) {
    case ToolbarSide::Right:
        return {button.x() - popup.width(), middleY};
    case ToolbarSide::Top:
        return {middleX, button.y() + button.height()};
    case ToolbarSide::Bottom:
        return {middleX, button.y() - popup.height()};
    default:
        return {button.x() + button.width(), middleY};
    }
}
