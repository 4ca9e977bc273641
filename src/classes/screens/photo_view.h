#pragma once

#include <QImage>
#include <QWidget>

/// Shows a pupil's photo, whole and sharp, or two lines that say there is none, or nothing.
class PhotoView : public QWidget {
    Q_OBJECT

public:
    PhotoView();

    /// Shows a photo; a null one is none.
    void setPhoto(const QImage& photo);
    /// Shows that nobody is chosen.
    void clear();
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_photo;
    bool m_isClear = false;
};
