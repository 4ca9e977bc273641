#pragma once

#include "seating/desk.h"

#include <QColor>
#include <QLabel>

/// How desks look.
struct DeskLook {
    QColor desks;
    QColor teachers;
    QFont font;
    QColor text; ///< as wished; another where it could not be read
};

/// A desk on the canvas. The pointer goes past it, to the canvas; Tab comes to it. To screen
/// readers it is a label.
class DeskBox : public QLabel {
    Q_OBJECT

public:
    explicit DeskBox(QWidget* canvas);

    /// `spoken`: the desk in words.
    void setDesk(const Desk& desk, const QString& spoken);
    const Desk& desk() const { return m_desk; }
    void setLook(const DeskLook& look);
    /// In the colours of what is marked in a list.
    void setMarked(bool marked);
    /// For a picture: neither marked nor with the keyboard's frame.
    void setPlain(bool plain);

signals:
    void entered();

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    Desk m_desk;
    DeskLook m_look;
    bool m_isMarked = false;
    bool m_isPlain = false;
};
