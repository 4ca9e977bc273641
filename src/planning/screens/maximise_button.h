#pragma once

#include <QToolButton>

/// The button in the top right corner of a text that gives it the whole window, and back. It reads
/// on paper of any colour and stays in its corner whatever size the text has.
class MaximiseButton : public QToolButton {
    Q_OBJECT

public:
    /// `home` has the button while it stands on no text. By keyboard it is a command of a menu.
    MaximiseButton(const QString& name, QWidget* home);

    /// Stands on a text's viewport, left of its scroll bar; null for none.
    void standOn(QWidget* text);
    /// Whether a click gives the text its old place back, and what that is called.
    void setMaximised(bool maximised, const QString& tip);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QWidget* m_home;
};
