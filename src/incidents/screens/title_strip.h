#pragma once

#include <QWidget>

class QLabel;

/// The strip above a report with its title, shaded as the title of a window: in one colour while
/// the keyboard is in the strip's window, in another while it is elsewhere.
class TitleStrip : public QWidget {
    Q_OBJECT

public:
    /// `home`: the strip's window. Without gradients the strip has one plain colour.
    TitleStrip(const QWidget& home, bool gradients);

    void setTitle(const QString& title);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void PaintGradient(bool active);

    bool m_gradients;
    bool m_isActive = false;
    bool m_isPainting = false;
    QColor m_start;
    QColor m_end;
    QLabel* m_title;
};
