#pragma once

#include <QImage>
#include <QWidget>

class QMenu;

/// A pupil's photo, whole and sharp, or two lines that say there is none. What its menu and keys
/// ask for is done by whoever owns it.
class PhotoBox : public QWidget {
    Q_OBJECT

public:
    PhotoBox();

    /// Shows a photo; a null one is none.
    void setPhoto(const QImage& photo);
    QSize sizeHint() const override;

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
    QImage m_photo;
    QMenu* m_menu;
};
