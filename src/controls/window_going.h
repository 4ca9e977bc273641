#pragma once

#include <QObject>

#include <functional>

class QWidget;

/// What has a say in whether a window may go, before anything of it is closed: its child, at any
/// depth. The window may stay afterwards, so that asking closes nothing and may be repeated.
class BeforeGoing : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Answers whether the window may go, asking the person where something would be lost.
    virtual bool mayGo() = 0;
};

/// One that is a question of the window's own.
class AskBeforeGoing : public BeforeGoing {
    Q_OBJECT

public:
    AskBeforeGoing(QWidget& window, std::function<bool()> ask);
    bool mayGo() override { return m_ask(); }

private:
    std::function<bool()> m_ask;
};

/// Whether all that has a say in it lets a window go. The first that does not ends the asking.
bool mayWindowGo(const QWidget& window);
