#pragma once

#include <QImage>
#include <QMdiArea>

class Session;

/// The area of the tool windows, shaded from one colour of the settings to another. A window that
/// it becomes too small for is made smaller or moved, so that all of it can be reached.
class MdiBackground : public QMdiArea {
    Q_OBJECT

public:
    explicit MdiBackground(Session& session, QWidget* parent = nullptr);

    /// Paints the shading anew, for the present size and settings.
    void ShadeMDI();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void keepFormsInside();

    Session& m_session;
    QImage m_shading;         ///< a line of pixels from the start of the shading to its end
    qreal m_rowShift = 0;     ///< so many of them later begins each row
    bool m_isUpright = false; ///< the colour changes from row to row alone
};
