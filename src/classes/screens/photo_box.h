#pragma once

#include "classes/screens/photo_view.h"

class QMenu;

/// A pupil's photo with the ways to change it. What its menu and keys ask for is done by whoever
/// owns it.
class PhotoBox : public PhotoView {
    Q_OBJECT

public:
    PhotoBox();

signals:
    void captureWanted();
    void fileWanted();
    void filesWanted();
    void stripWanted();
    void removeWanted();
    void removeAllWanted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QMenu* m_menu;
};
