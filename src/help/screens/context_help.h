#pragma once

#include <QToolButton>

/// `ButtonEx1`: the button of the context help. Pressed, it makes the pointer the help cursor, and
/// the control over which the mouse is let go is the one that help is wanted for. Let go over the
/// button itself, it waits for the next click instead. F1 asks about the control with the focus,
/// Shift+F1 is a press of the button; Escape ends the search. All of it holds for every window of
/// the program.
class ContextHelp : public QToolButton {
    Q_OBJECT

public:
    explicit ContextHelp(QWidget* parent = nullptr);
    ~ContextHelp() override;

    bool isSearching() const { return m_isSearching; }

signals:
    void helpWanted(QWidget* control);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool keyPressed(int key, Qt::KeyboardModifiers modifiers);
    void search(bool on);
    void letGo(QPoint place);

    bool m_isSearching = false;
};
