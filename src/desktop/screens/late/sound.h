#pragma once

#include <QObject>
#include <QSoundEffect>

#include <functional>

/// A wave file that plays as long as the object lives. Tells when it is over, also where it can't
/// be read, where the computer has no sound, and where it has to give way to another.
class Sound : public QObject {
    Q_OBJECT

public:
    Sound(const QString& path, bool loop, std::function<void()> ended);
    ~Sound() override;

private:
    void followState();
    void end();

    QSoundEffect m_effect;
    std::function<void()> m_ended;
    bool m_hasStarted = false;
};
