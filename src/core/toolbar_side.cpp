#include "core/toolbar_side.h"

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
